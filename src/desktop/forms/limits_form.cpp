// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/forms/limits_form.h"

#include "base/text.h"
#include "desktop/forms/grid_editing.h"
#include "ui_limits_form.h"

namespace soran {

using namespace Qt::StringLiterals;

LimitsForm::LimitsForm(QWidget* parent, Terminal& terminal)
    : QDialog(parent), ui_(std::make_unique<Ui::LimitsForm>()), editor_(terminal.program()) {
  ui_->setupUi(this);
  setWindowTitle(LimitsEditor::title.toString());
  showRows();
  actions_ = std::make_unique<RowActions>(*ui_->grid);
  actions_->showOn(*ui_->tool_new, *ui_->tool_edit, *ui_->tool_del);
  CellDelegate& cells = connectGrid(*ui_->grid, *actions_, editor_, terminal);
  cells.tip = LimitsEditor::editTip.toString();
  cells.held = [](const QString& typed) { return asciiUpper(typed); };
  connect(ui_->cmd0, &QPushButton::clicked, this, &LimitsForm::reject);
  connect(ui_->cmd1, &QPushButton::clicked, this, [this] { editor_.moveUp(); });
  connect(ui_->cmd2, &QPushButton::clicked, this, [this] { editor_.moveDown(); });
  editor_.changed = [this] { mirror(); };
  mirror();
  ui_->grid->setFocus();
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

void LimitsForm::mirror() {
  ui_->grid->mirror(editor_.column());
  actions_->edit().setEnabled(editor_.canEdit());
  actions_->removal().setEnabled(editor_.canRemove());
  ui_->cmd1->setEnabled(editor_.list().canMoveUp());
  ui_->cmd2->setEnabled(editor_.list().canMoveDown());
  if (editor_.editing())
    ui_->grid->openCell();
}

void LimitsForm::reject() {
  editor_.close();
  QDialog::reject();
}

} // namespace soran
