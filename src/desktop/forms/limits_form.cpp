// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/forms/limits_form.h"

#include "desktop/forms/grid_editing.h"
#include "ui_limits_form.h"

namespace soran {

using namespace Qt::StringLiterals;

LimitsForm::LimitsForm(QWidget* parent, Terminal& terminal)
    : QDialog(parent), ui_(std::make_unique<Ui::LimitsForm>()), editor_(terminal.program()) {
  ui_->setupUi(this);
  setWindowTitle(LimitsEditor::title.toString());
  showRows();
  actions_ = connectListForm(*ui_, *this, editor_, terminal);
  cells().keepsTyped = true;
}

LimitsForm::~LimitsForm() = default;

void LimitsForm::showRows() {
  constexpr int codeWidth = 12;
  constexpr int numberWidth = 9;
  constexpr int allWidth = 100;
  const auto& list = editor_.list();
  ui_->grid->showRows({.count = [&list] { return list.count(); },
                       .selected = [&list] { return list.selected(); },
                       .text = [&list](int row, int column) { return list.at(row)[column]; }},
                      LimitsEditor::headings(), codeWidth);
  const int digit = fontMetrics().horizontalAdvance(u'0');
  for (int column = 1; column < limitColumnCount - 1; ++column)
    ui_->grid->setColumnWidth(column, digit * numberWidth);
  ui_->grid->setMinimumWidth(digit * allWidth);
}

CellDelegate& LimitsForm::cells() {
  return *qobject_cast<CellDelegate*>(ui_->grid->itemDelegate());
}

void LimitsForm::reject() {
  if (!cells().leave())
    return;
  editor_.close();
  QDialog::reject();
}

} // namespace soran
