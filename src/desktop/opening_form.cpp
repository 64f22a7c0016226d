// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/opening_form.h"

#include "desktop/look.h"
#include "ui_opening_form.h"

namespace soran {

OpeningForm::OpeningForm() : ui_(std::make_unique<Ui::OpeningForm>()) {
  ui_->setupUi(this);
  showProgramName(*ui_->Image1, *ui_->lblName);
}

OpeningForm::~OpeningForm() = default;

} // namespace soran
