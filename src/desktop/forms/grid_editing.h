// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/text.h"
#include "desktop/forms/row_actions.h"
#include "desktop/widgets/cell_delegate.h"
#include "desktop/widgets/editor_grid.h"
#include "terminal/terminal.h"

#include <QDialog>
#include <QPushButton>
#include <memory>

namespace soran {

/// Connects a grid whose cells are edited, and the entries of its menu, to the editor behind it. Returns the
/// fields over its cells, for what differs between editors. Editor and view outlive the grid.
template <class Editor>
CellDelegate& connectGrid(EditorGrid& grid, RowActions& actions, Editor& editor, Terminal& terminal) {
  auto* cells = new CellDelegate(&grid);
  const auto onAction = [&grid, cells](QAction& action, auto act) {
    QObject::connect(&action, &QAction::triggered, &grid, [cells, act] {
      if (cells->leave())
        act();
    });
  };
  onAction(actions.addition(), [&editor] { editor.addRow(); });
  onAction(actions.edit(), [&editor] { editor.edit(); });
  onAction(actions.removal(), [&editor, &terminal] { terminal.guarded([&] { editor.remove(); }); });
  QObject::connect(&grid, &EditorGrid::cellChosen, &grid,
                   [&editor](int row, int column) { editor.select(row, column); });
  QObject::connect(&grid, &QTableView::activated, &grid, [&editor] { editor.edit(); });
  cells->commit = [&editor, &terminal](const QString& text) {
    bool done = false;
    terminal.guarded([&] { done = editor.commit(text); });
    return done;
  };
  cells->abandon = [&editor] { editor.abandon(); };
  grid.setItemDelegate(cells);
  return *cells;
}

/// Shows what the editor holds on its form.
template <class Ui, class Editor>
void mirrorListForm(Ui& ui, RowActions& actions, const Editor& editor) {
  ui.grid->mirror(editor.column());
  actions.edit().setEnabled(editor.canEdit());
  actions.removal().setEnabled(editor.canRemove());
  ui.cmd1->setEnabled(editor.list().canMoveUp());
  ui.cmd2->setEnabled(editor.list().canMoveDown());
  if (editor.editing())
    ui.grid->openCell();
}

/// Connects the form of a list, its grid, the entries of its menu and its buttons, which move the chosen row,
/// to the editor behind it; what is typed is held in capitals.
template <class Ui, class Editor>
std::unique_ptr<RowActions> connectListForm(Ui& ui, QDialog& form, Editor& editor, Terminal& terminal) {
  auto actions = std::make_unique<RowActions>(*ui.grid);
  actions->showOn(*ui.tool_new, *ui.tool_edit, *ui.tool_del);
  CellDelegate& cells = connectGrid(*ui.grid, *actions, editor, terminal);
  cells.tip = Editor::editTip.toString();
  cells.held = [](const QString& typed) { return asciiUpper(typed); };
  QObject::connect(ui.cmd0, &QPushButton::clicked, &form, &QDialog::reject);
  const auto move = [&](QPushButton* button, void (Editor::*way)()) {
    QObject::connect(button, &QPushButton::clicked, &form, [&editor, &cells, way] {
      if (cells.leave())
        (editor.*way)();
    });
  };
  move(ui.cmd1, &Editor::moveUp);
  move(ui.cmd2, &Editor::moveDown);
  editor.changed = [&ui, &editor, rows = actions.get()] { mirrorListForm(ui, *rows, editor); };
  mirrorListForm(ui, *actions, editor);
  ui.grid->setFocus();
  return actions;
}

} // namespace soran
