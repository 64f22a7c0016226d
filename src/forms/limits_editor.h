// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "forms/edited_list.h"
#include "reports/airport_limits.h"

namespace soran {

/// The form `limits` without its window: the rows of 空港別制限 as texts, columns as LimitColumn. It is
/// written when it closes, and nothing earlier.
class LimitsEditor : public CellEditor<QStringList> {
 public:
  static constexpr QStringView title = u" 空港別制限";
  static constexpr QStringView editTip = u" リターンキーで確定　空欄は動作設定の制限値 ";

  explicit LimitsEditor(Program& program);

  static QStringList headings();

  /// Adds a row at the end and opens its code.
  void addRow();
  /// Asks where the row has a code.
  void remove();

  /// Enter in the open cell. False where the text was refused; that was told, and the cell stays open. The
  /// code of a new row brings the first condition that the airport has no row of.
  bool commit(const QString& text);

  /// Writes the list without the rows that lack a code.
  void close();

 private:
  QString refusal(const QString& text) const;
  bool hasOther(const QString& code, const QString& condition) const;
  QString freeCondition(const QString& code) const;
};

} // namespace soran
