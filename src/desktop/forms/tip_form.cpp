// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/forms/tip_form.h"

#include "desktop/services/platform_abilities.h"
#include "ui_tip_form.h"

namespace soran {

TipForm::TipForm(QWidget* parent) : PanelForm(parent, true), ui_(std::make_unique<Ui::TipForm>()) {
  ui_->setupUi(this);
  floatAboveWindows(*this);
  setBackgroundRole(QPalette::ToolTipBase);
  ui_->lbl->setForegroundRole(QPalette::ToolTipText);
}

TipForm::~TipForm() = default;

void TipForm::showTip(const QString& text, QPoint mouse) {
  constexpr QPoint beside(7, -7);
  ui_->lbl->setText(text);
  setWindowTitle(text);
  adjustSize();
  move(mouse + beside - QPoint(0, height()));
  show();
}

} // namespace soran
