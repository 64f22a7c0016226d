// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/forms/panel_form.h"

#include <memory>

namespace Ui {
class TipForm;
}

namespace soran {

/// The form `tooltips`: the explanation of what is selected on the screen, above all windows.
class TipForm : public PanelForm {
  Q_OBJECT
 public:
  explicit TipForm(QWidget* parent);
  ~TipForm() override;

  /// Shows the text beside the place of the mouse.
  void showTip(const QString& text, QPoint mouse);

 private:
  std::unique_ptr<Ui::TipForm> ui_;
};

} // namespace soran
