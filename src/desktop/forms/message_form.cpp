// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/forms/message_form.h"

#include "ui_message_form.h"

namespace soran {

MessageForm::MessageForm(QWidget* parent) : QDialog(parent), ui_(std::make_unique<Ui::MessageForm>()) {
  ui_->setupUi(this);
  setWindowFlag(Qt::WindowStaysOnTopHint);
  // The flashing line keeps its place while it is off.
  QSizePolicy policy = ui_->lbl->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  ui_->lbl->setSizePolicy(policy);
  connect(ui_->cmdOK, &QPushButton::clicked, this, &QDialog::accept);
  connect(&timer_, &QTimer::timeout, this, &MessageForm::tick);
  timer_.start(1000);
}

MessageForm::~MessageForm() = default;

void MessageForm::tick() {
  ui_->lbl->setVisible(ui_->lbl->isHidden());
  if (++ticks_ < lastTick)
    return;
  timer_.stop();
  close();
}

} // namespace soran
