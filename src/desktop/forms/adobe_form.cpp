// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/forms/adobe_form.h"

#include "imagery/adobe_notice.h"
#include "ui_adobe_form.h"

namespace soran {

AdobeForm::AdobeForm(QWidget* parent) : QDialog(parent), ui_(std::make_unique<Ui::AdobeForm>()) {
  ui_->setupUi(this);
  setWindowTitle(adobe_notice::title.toString());
  ui_->lbl->setText(adobe_notice::text.toString());
  ui_->chk->setText(adobe_notice::checkBox.toString());
  ui_->cmdOK->setText(adobe_notice::closeButton.toString());
  connect(ui_->cmdOK, &QPushButton::clicked, this, &QDialog::accept);
  connect(ui_->imgBanner, &QPushButton::clicked, this, [this] {
    banner_ = true;
    accept();
  });
}

AdobeForm::~AdobeForm() = default;

void AdobeForm::done(int result) {
  if (isVisible())
    outcome_ = form::PdfNotice::Outcome{ui_->chk->isChecked(), banner_};
  QDialog::done(result);
}

} // namespace soran
