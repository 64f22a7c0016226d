// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/forms/data_change_form.h"

#include "desktop/services/platform_abilities.h"
#include "desktop/widgets/look.h"
#include "ui_data_change_form.h"

namespace soran {

DataChangeForm::DataChangeForm(QWidget* parent, Colour ground, Colour text)
    : QDialog(parent), ui_(std::make_unique<Ui::DataChangeForm>()) {
  ui_->setupUi(this);
  // A note that takes the keys away would swallow what the user is typing.
  floatAboveWindows(*this);
  setFocusPolicy(Qt::NoFocus);
  paintLikeScreen(*this, ground, text);
  connect(&timer_, &QTimer::timeout, this, &DataChangeForm::tick);
  timer_.start(1000);
}

DataChangeForm::~DataChangeForm() = default;

void DataChangeForm::tick() {
  if (++ticks_ < lastTick)
    return;
  timer_.stop();
  close();
}

} // namespace soran
