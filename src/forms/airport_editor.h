// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "forms/airport_entry.h"
#include "forms/edited_list.h"

namespace soran {

/// The form `airport` without its window: the user's own list of airports. It is written when it closes, and
/// nothing earlier. Rows are code and name.
class AirportEditor {
 public:
  static constexpr QStringView title = u" 飛行場リスト";
  static constexpr QStringView codeHeading = u"ICAOコード";
  static constexpr QStringView nameHeading = u"飛行場名称";

  explicit AirportEditor(Program& program);

  const EditedList& list() const { return list_; }
  /// The headings come with the first row and go with the last.
  bool headingsShown() const { return !list_.isEmpty(); }
  void select(int row);

  bool canChange() const { return list_.hasSelection(); }
  bool canRemove() const { return list_.hasSelection(); }

  /// Asks for a new airport, which goes to the top.
  void add();
  /// Asks for other texts of the chosen airport.
  void change();
  /// A double click on a row.
  void open(int row);
  void remove();
  void moveUp();
  void moveDown();

  /// Writes the list.
  void close();

  /// Shows the dialog `airportedit` over an entry until the user has closed it.
  std::function<void(AirportEntry&)> showEntry = [](AirportEntry& entry) { entry.cancel(); };
  /// Something looks otherwise than before.
  std::function<void()> changed = [] {};

 private:
  Program& program_;
  EditedList list_;
};

} // namespace soran
