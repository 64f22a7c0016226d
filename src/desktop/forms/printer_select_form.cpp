// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/forms/printer_select_form.h"

#include "ui_printer_select_form.h"

namespace soran {

PrinterSelectForm::PrinterSelectForm(QWidget* parent, PrinterSelection& selection)
    : QDialog(parent), ui_(std::make_unique<Ui::PrinterSelectForm>()) {
  constexpr int shownCharacters = 40;
  ui_->setupUi(this);
  setWindowTitle(PrinterSelection::title.toString());
  ui_->cmb->setMinimumWidth(fontMetrics().horizontalAdvance(u'0') * shownCharacters);
  ui_->cmb->addItems(selection.entries());
  ui_->cmb->setEnabled(selection.listEnabled());
  ui_->cmb->setCurrentIndex(selection.selected());
  ui_->cmd0->setText(selection.cancelCaption());
  ui_->cmd0->setAccessibleName(selection.cancelCaption());
  ui_->cmd1->setText(selection.confirmCaption());
  ui_->cmd1->setAccessibleName(selection.confirmCaption());
  ui_->cmd1->setEnabled(selection.confirmEnabled());
  connect(ui_->cmb, &QComboBox::activated, this, [this, &selection](int entry) {
    selection.select(entry);
    ui_->cmd1->setEnabled(selection.confirmEnabled());
  });
  connect(ui_->cmd0, &QPushButton::clicked, this, &QDialog::reject);
  connect(ui_->cmd1, &QPushButton::clicked, this, &QDialog::accept);
}

PrinterSelectForm::~PrinterSelectForm() = default;

} // namespace soran
