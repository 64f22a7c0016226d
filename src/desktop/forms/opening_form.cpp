// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/forms/opening_form.h"

#include "desktop/widgets/look.h"
#include "ui_opening_form.h"

#include <QApplication>
#include <QEvent>

namespace soran {

OpeningForm::OpeningForm() : ui_(std::make_unique<Ui::OpeningForm>()) {
  ui_->setupUi(this);
  showProgramName(*ui_->Image1, *ui_->lblName);
}

OpeningForm::~OpeningForm() = default;

void OpeningForm::appear() {
  if (!QApplication::activeModalWidget())
    show();
}

bool OpeningForm::event(QEvent* event) {
  // Nobody would find a message behind it.
  if (event->type() == QEvent::WindowBlocked)
    hide();
  return QDialog::event(event);
}

} // namespace soran
