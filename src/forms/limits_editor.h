// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "forms/edited_list.h"
#include "reports/airport_limits.h"

namespace soran {

/// The form `limits` without its window: the rows of 空港別制限 as texts, columns as LimitColumn. It is
/// written when it closes, and nothing earlier.
class LimitsEditor {
 public:
  static constexpr QStringView title = u" 空港別制限";
  static constexpr QStringView editTip = u" リターンキーで確定　空欄は動作設定の制限値 ";

  explicit LimitsEditor(Program& program);

  const EditedRows<QStringList>& list() const { return list_; }
  static QStringList headings();
  int column() const { return column_; }
  void select(int row, int column);

  /// The entries of the popup menu of the grid.
  bool canEdit() const { return list_.hasSelection(); }
  bool canRemove() const { return list_.hasSelection(); }

  /// A cell is open for editing.
  bool editing() const { return editing_; }

  /// Opens the chosen cell.
  void edit();
  /// Adds a row at the end and opens its code.
  void addRow();
  /// Asks where the row has a code.
  void remove();
  void moveUp();
  void moveDown();

  /// Enter in the open cell. False where the text was refused; that was told, and the cell stays open. The
  /// code of a new row brings the first condition that the airport has no row of.
  bool commit(const QString& text);
  /// The open cell has lost the focus: what was typed is thrown away.
  void abandon();

  /// Writes the list without the rows that lack a code.
  void close();

  /// Something looks otherwise than before.
  std::function<void()> changed = [] {};

 private:
  QString refusal(const QString& text) const;
  bool hasOther(const QString& code, const QString& condition) const;
  QString freeCondition(const QString& code) const;

  Program& program_;
  EditedRows<QStringList> list_;
  int column_ = 0;
  bool editing_ = false;
};

} // namespace soran
