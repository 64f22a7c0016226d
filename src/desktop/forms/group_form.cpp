// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/forms/group_form.h"

#include "base/text.h"
#include "desktop/forms/grid_editing.h"
#include "ui_group_form.h"

namespace soran {

using namespace Qt::StringLiterals;

GroupForm::GroupForm(QWidget* parent, Terminal& terminal)
    : QDialog(parent), ui_(std::make_unique<Ui::GroupForm>()), editor_(terminal.program()) {
  constexpr int nameWidth = 14;
  ui_->setupUi(this);
  setWindowTitle(GroupEditor::title.toString());
  ui_->grid->showList(editor_.list(), {u"グループ名"_s, u"ICAOコード"_s}, nameWidth);
  actions_ = std::make_unique<RowActions>(*ui_->grid);
  actions_->showOn(*ui_->tool_new, *ui_->tool_edit, *ui_->tool_del);
  CellDelegate& cells = connectGrid(*ui_->grid, *actions_, editor_, terminal);
  cells.tip = GroupEditor::editTip.toString();
  cells.held = [](const QString& typed) { return asciiUpper(typed); };
  connect(ui_->cmd0, &QPushButton::clicked, this, &GroupForm::reject);
  connect(ui_->cmd1, &QPushButton::clicked, this, [this] { editor_.moveUp(); });
  connect(ui_->cmd2, &QPushButton::clicked, this, [this] { editor_.moveDown(); });
  editor_.changed = [this] { mirror(); };
  mirror();
  ui_->grid->setFocus();
}

GroupForm::~GroupForm() = default;

void GroupForm::mirror() {
  ui_->grid->mirror(editor_.column());
  actions_->edit().setEnabled(editor_.canEdit());
  actions_->removal().setEnabled(editor_.canRemove());
  ui_->cmd1->setEnabled(editor_.list().canMoveUp());
  ui_->cmd2->setEnabled(editor_.list().canMoveDown());
  if (editor_.editing())
    ui_->grid->openCell();
}

void GroupForm::reject() {
  editor_.close();
  QDialog::reject();
}

} // namespace soran
