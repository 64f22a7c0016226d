// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/forms/picture_form.h"

#include "desktop/services/platform_abilities.h"
#include "ui_picture_form.h"

#include <QScreen>

namespace soran {

PictureForm::PictureForm(QWidget* parent, const QPixmap& picture, std::optional<QPoint> corner)
    : PanelForm(parent, true), ui_(std::make_unique<Ui::PictureForm>()) {
  constexpr int inset = 7;
  ui_->setupUi(this);
  floatAboveWindows(*this);
  const QSize most = screen()->availableSize() * 9 / 10;
  ui_->Picture1->setPixmap(picture.width() > most.width() || picture.height() > most.height()
                               ? picture.scaled(most, Qt::KeepAspectRatio, Qt::SmoothTransformation)
                               : picture);
  adjustSize();
  if (corner)
    move(*corner + QPoint(inset, inset));
  else if (parent)
    move(parent->frameGeometry().center() - rect().center());
}

PictureForm::~PictureForm() = default;

} // namespace soran
