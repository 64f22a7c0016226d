// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/forms/imagery_form.h"
#include "imagery/cameras.h"

namespace soran {

/// The window `camera`: live pictures of airfields and cities by its menu.
class CameraForm : public ImageryForm {
  Q_OBJECT
 public:
  CameraForm(QWidget* parent, Terminal& terminal);

  void choose(const QString& menu, std::optional<int> index) override;

 protected:
  void begin() override;
  bool tick() override { return model_.tick(); }

 private:
  void present(const CameraView& shown);

  CameraModel model_;
};

} // namespace soran
