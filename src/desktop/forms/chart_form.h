// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/forms/imagery_form.h"
#include "imagery/chart_model.h"

namespace soran {

/// The window `chart`: weather charts, maps and satellite images by its menu.
class ChartForm : public ImageryForm {
  Q_OBJECT
 public:
  ChartForm(QWidget* parent, Terminal& terminal);

  void choose(const QString& menu, std::optional<int> index) override;

 protected:
  void begin() override;
  bool tick() override { return model_ && model_->tick(); }

 private:
  void makeMenus();
  ImageRow rowOf(const ChartItem& item) const;
  void present(const ChartShow& shown);
  void printByMenu();

  std::optional<ChartModel> model_;
  QAction* print_ = nullptr;
};

} // namespace soran
