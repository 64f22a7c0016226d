// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "forms/edited_list.h"

namespace soran {

/// The form `company` without its window: named code lists. Column 0 is the name, column 1 the list. It is
/// written when it closes, and nothing earlier.
class GroupEditor {
 public:
  static constexpr QStringView title = u" グループ編集";
  static constexpr QStringView editTip = u" リターンキーで確定 ";

  explicit GroupEditor(Program& program);

  const EditedList& list() const { return list_; }
  int column() const { return column_; }
  void select(int row, int column);

  /// The entries of the popup menu of the grid.
  bool canEdit() const { return list_.hasSelection(); }
  bool canRemove() const { return list_.hasSelection(); }

  /// A cell is open for editing, with this text at first.
  bool editing() const { return editing_; }
  QString cellText() const;

  /// Opens the chosen cell.
  void edit();
  /// Adds a row at the end and opens its name.
  void addRow();
  /// Asks where the row has a name.
  void remove();
  void moveUp();
  void moveDown();

  /// Enter in the open cell. False where the text was refused; that was told, and the cell stays open.
  bool commit(const QString& text);
  /// The open cell has lost the focus: what was typed is thrown away.
  void abandon();

  /// Writes the list without the rows that lack a cell.
  void close();

  /// Something looks otherwise than before.
  std::function<void()> changed = [] {};

 private:
  QString refusal(const QString& text) const;

  Program& program_;
  EditedList list_;
  int column_ = 0;
  bool editing_ = false;
};

} // namespace soran
