// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "forms/list_rules.h"
#include "runs/program.h"

#include <algorithm>
#include <functional>
#include <vector>

namespace soran {

/// The rows of an editor with the one that is chosen and moved: what all editors of lists have in common.
/// Rows count from 0; a heading is no row.
template <class Row>
class EditedRows {
 public:
  EditedRows() = default;
  explicit EditedRows(std::vector<Row> rows) : rows_(std::move(rows)) { select(0); }

  const std::vector<Row>& rows() const { return rows_; }
  int count() const { return int(rows_.size()); }
  bool isEmpty() const { return rows_.empty(); }
  Row& at(int row) { return rows_[size_t(row)]; }
  const Row& at(int row) const { return rows_[size_t(row)]; }
  bool has(int row) const { return row >= 0 && row < count(); }

  /// The chosen row, -1 where there is none.
  int selected() const { return has(selected_) ? selected_ : -1; }
  bool hasSelection() const { return selected() >= 0; }
  Row& current() { return at(selected_); }
  const Row& current() const { return at(selected_); }

  /// Chooses a row and lets it be moved; nothing happens where there is no such row.
  void select(int row) {
    if (!has(row))
      return;
    selected_ = row;
    movable_ = true;
  }
  void clearSelection() { selected_ = -1; }
  /// Until the next selection the chosen row cannot be moved.
  void holdMoves() { movable_ = false; }
  bool canMoveUp() const { return movable_ && selected() >= 1; }
  bool canMoveDown() const { return movable_ && hasSelection() && selected_ < count() - 1; }

  /// Swaps the chosen row with its neighbour; the selection follows. False where it cannot be moved so.
  bool moveUp() { return canMoveUp() && swapWith(selected_ - 1); }
  bool moveDown() { return canMoveDown() && swapWith(selected_ + 1); }

  void insert(int row, Row cells) { rows_.insert(rows_.begin() + row, std::move(cells)); }
  /// Takes the chosen row off; the one behind it, else the last, is chosen, and cannot be moved at first.
  void removeCurrent() {
    rows_.erase(rows_.begin() + selected_);
    selected_ = std::min(selected_, count() - 1);
    movable_ = false;
  }

 private:
  bool swapWith(int neighbour) {
    std::swap(at(selected_), at(neighbour));
    selected_ = neighbour;
    return true;
  }

  std::vector<Row> rows_;
  int selected_ = -1;
  bool movable_ = false;
};

/// Of rows of two texts.
using EditedList = EditedRows<EditedRow>;

/// An editor of rows whose cells are opened one at a time. Columns count from 0.
template <class Row>
class CellEditor {
 public:
  const EditedRows<Row>& list() const { return list_; }
  int column() const { return column_; }
  void select(int row, int column) {
    if (!list_.has(row))
      return;
    list_.select(row);
    column_ = std::clamp(column, 0, columns_ - 1);
    editing_ = false;
    changed();
  }

  /// The entries of the popup menu of the grid.
  bool canEdit() const { return list_.hasSelection(); }
  bool canRemove() const { return list_.hasSelection(); }

  /// A cell is open for editing.
  bool editing() const { return editing_; }
  /// Opens the chosen cell.
  void edit() {
    editing_ = canEdit();
    changed();
  }
  /// The open cell has lost the focus: what was typed is thrown away.
  void abandon() { endEditing(); }
  void moveUp() {
    if (list_.moveUp())
      changed();
  }
  void moveDown() {
    if (list_.moveDown())
      changed();
  }

  /// Something looks otherwise than before.
  std::function<void()> changed = [] {};

 protected:
  CellEditor(Program& program, int columns) : program_(program), columns_(columns) { program.watchTicks = 0; }

  /// Adds a row at the end and opens its first cell.
  void append(Row cells) {
    list_.insert(list_.count(), std::move(cells));
    list_.select(list_.count() - 1);
    list_.holdMoves();
    column_ = 0;
    edit();
  }
  void takeOffChosen() {
    list_.removeCurrent();
    endEditing();
  }
  void endEditing() {
    editing_ = false;
    changed();
  }

  Program& program_;
  EditedRows<Row> list_;
  int column_ = 0;

 private:
  int columns_;
  bool editing_ = false;
};

/// Asks the user; no where the program was closed meanwhile.
bool confirmed(Program& program, const QString& text);
/// Asks whether `what` is to be deleted.
bool confirmedDeletion(Program& program, const QString& what);
/// Tells the user, under the title of all editors.
void tell(Program& program, const QString& text);
/// Writes what an editor holds as it closes; a failure is passed over and told, and the table then keeps its
/// rows.
void writeBack(Program& program, const std::function<void()>& store);

} // namespace soran
