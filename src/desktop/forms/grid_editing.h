// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/forms/row_actions.h"
#include "desktop/widgets/cell_delegate.h"
#include "desktop/widgets/editor_grid.h"
#include "terminal/terminal.h"

namespace soran {

/// Connects a grid whose cells are edited, and the entries of its menu, to the editor behind it. Returns the
/// fields over its cells, for what differs between editors. Editor and view outlive the grid.
template <class Editor>
CellDelegate& connectGrid(EditorGrid& grid, RowActions& actions, Editor& editor, Terminal& terminal) {
  QObject::connect(&actions.addition(), &QAction::triggered, &grid, [&editor] { editor.addRow(); });
  QObject::connect(&actions.edit(), &QAction::triggered, &grid, [&editor] { editor.edit(); });
  QObject::connect(&actions.removal(), &QAction::triggered, &grid,
                   [&editor, &terminal] { terminal.guarded([&] { editor.remove(); }); });
  QObject::connect(&grid, &EditorGrid::cellChosen, &grid,
                   [&editor](int row, int column) { editor.select(row, column); });
  QObject::connect(&grid, &QTableView::activated, &grid, [&editor] { editor.edit(); });
  auto* cells = new CellDelegate(&grid);
  cells->commit = [&editor, &terminal](const QString& text) {
    bool done = false;
    terminal.guarded([&] { done = editor.commit(text); });
    return done;
  };
  cells->abandon = [&editor] { editor.abandon(); };
  grid.setItemDelegate(cells);
  return *cells;
}

} // namespace soran
