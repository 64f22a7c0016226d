// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/forms/no_connect_form.h"

#include "ui_no_connect_form.h"

namespace soran {

NoConnectForm::NoConnectForm(QWidget* parent) : QDialog(parent), ui_(std::make_unique<Ui::NoConnectForm>()) {
  ui_->setupUi(this);
  connect(ui_->cmdOK, &QPushButton::clicked, this, &QDialog::accept);
}

NoConnectForm::~NoConnectForm() = default;

} // namespace soran
