// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "forms/edited_list.h"

namespace soran {

/// The form `company` without its window: named code lists. Column 0 is the name, column 1 the list. It is
/// written when it closes, and nothing earlier.
class GroupEditor : public CellEditor<EditedRow> {
 public:
  static constexpr QStringView title = u" グループ編集";
  static constexpr QStringView editTip = u" リターンキーで確定 ";

  explicit GroupEditor(Program& program);

  /// What the chosen cell holds.
  QString cellText() const;

  /// Adds a row at the end and opens its name.
  void addRow() { append({}); }
  /// Asks where the row has a name.
  void remove();

  /// Enter in the open cell. False where the text was refused; that was told, and the cell stays open.
  bool commit(const QString& text);

  /// Writes the list without the rows that lack a cell.
  void close();

 private:
  QString refusal(const QString& text) const;
};

} // namespace soran
