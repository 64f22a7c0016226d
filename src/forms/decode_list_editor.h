// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "forms/edited_list.h"

namespace soran {

/// The form `decodelist` without its window: picks the airports of the automatic decode (the target) from
/// the user's list (the source). It is written when it closes, and nothing earlier.
class DecodeListEditor {
 public:
  static constexpr QStringView title = u" 自動デコード";

  explicit DecodeListEditor(Program& program);

  /// The texts of the rows: a blank, the code, three blanks, the name.
  QStringList sourceTexts() const { return textsOf(source_); }
  QStringList targetTexts() const { return textsOf(target_); }

  /// The row that is marked, -1 where none is. At most one of the two lists has one.
  int markedSource() const { return source_.selected(); }
  int markedTarget() const { return target_.selected(); }
  void selectSource(int row);
  void selectTarget(int row);

  bool canAdd() const { return source_.hasSelection(); }
  bool canRemove() const { return target_.hasSelection(); }
  bool canMoveUp() const { return target_.canMoveUp(); }
  bool canMoveDown() const { return target_.canMoveDown(); }

  /// Adds the marked airport at the end, unless the list has it; that is told.
  void add();
  void remove();
  void moveUp();
  void moveDown();

  /// Writes the list; an empty one switches the automatic decode off.
  void close();

  /// Something looks otherwise than before.
  std::function<void()> changed = [] {};

 private:
  static QString textOf(const EditedRow& row);
  static QStringList textsOf(const EditedList& list);

  Program& program_;
  EditedList source_;
  EditedList target_;
};

} // namespace soran
