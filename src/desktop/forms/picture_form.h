// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/forms/panel_form.h"

#include <QPixmap>
#include <memory>
#include <optional>

namespace Ui {
class PictureForm;
}

namespace soran {

/// The form `pictureform`: a picture, above all windows, as large as the picture. A drag moves it, a click
/// closes it.
class PictureForm : public PanelForm {
  Q_OBJECT
 public:
  /// `corner` is the place to put it, a little inset; without one it stands over the middle of `parent`.
  PictureForm(QWidget* parent, const QPixmap& picture, std::optional<QPoint> corner);
  ~PictureForm() override;

 private:
  std::unique_ptr<Ui::PictureForm> ui_;
};

} // namespace soran
