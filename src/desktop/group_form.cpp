// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/group_form.h"

#include "base/text.h"
#include "desktop/cell_delegate.h"
#include "desktop/editor_grid.h"
#include "ui_group_form.h"

namespace soran {

using namespace Qt::StringLiterals;

GroupForm::GroupForm(QWidget* parent, View& view)
    : QDialog(parent), ui_(std::make_unique<Ui::GroupForm>()), editor_(view.program()) {
  constexpr int nameWidth = 14;
  ui_->setupUi(this);
  setWindowTitle(GroupEditor::title.toString());
  ui_->grid->showList(editor_.list(), {u"グループ名"_s, u"ICAOコード"_s}, nameWidth);
  actions_ = std::make_unique<RowActions>(*ui_->grid);
  const std::pair<QToolButton*, QAction*> tools[] = {{ui_->tool_new, &actions_->addition()},
                                                     {ui_->tool_edit, &actions_->edit()},
                                                     {ui_->tool_del, &actions_->removal()}};
  for (const auto& [tool, action] : tools)
    tool->setDefaultAction(action);
  connect(&actions_->addition(), &QAction::triggered, this, [this] { editor_.addRow(); });
  connect(&actions_->edit(), &QAction::triggered, this, [this] { editor_.edit(); });
  connect(&actions_->removal(), &QAction::triggered, this,
          [this, &view] { view.guarded([&] { editor_.remove(); }); });
  connect(ui_->cmd0, &QPushButton::clicked, this, &GroupForm::reject);
  connect(ui_->cmd1, &QPushButton::clicked, this, [this] { editor_.moveUp(); });
  connect(ui_->cmd2, &QPushButton::clicked, this, [this] { editor_.moveDown(); });
  connectCells(view);
  editor_.changed = [this] { mirror(); };
  mirror();
  ui_->grid->setFocus();
}

GroupForm::~GroupForm() = default;

void GroupForm::connectCells(View& view) {
  connect(ui_->grid, &EditorGrid::cellChosen, this,
          [this](int row, int column) { editor_.select(row, column); });
  connect(ui_->grid, &QTableView::activated, this, [this] { editor_.edit(); });
  auto* cells = new CellDelegate(ui_->grid);
  cells->tip = GroupEditor::editTip.toString();
  cells->held = [](const QString& typed) { return asciiUpper(typed); };
  cells->commit = [this, &view](const QString& text) {
    bool done = false;
    view.guarded([&] { done = editor_.commit(text); });
    return done;
  };
  cells->abandon = [this] { editor_.abandon(); };
  ui_->grid->setItemDelegate(cells);
}

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
