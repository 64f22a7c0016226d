// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/group_editor.h"

#include "base/text.h"

#include <algorithm>

namespace soran {

using namespace Qt::StringLiterals;

GroupEditor::GroupEditor(Program& program) : CellEditor(program, 2) {
  std::vector<EditedRow> rows;
  for (const Group& group : program.tables.groupRows())
    rows.emplace_back(group.id, group.route);
  list_ = EditedList(std::move(rows));
}

QString GroupEditor::cellText() const {
  if (!list_.hasSelection())
    return {};
  return column_ == 0 ? list_.current().first : list_.current().second;
}

void GroupEditor::remove() {
  if (!canRemove())
    return;
  const QString& id = list_.current().first;
  if (!id.isEmpty() && !confirmedDeletion(program_, id))
    return;
  takeOffChosen();
}

/// What speaks against the text in the open cell, empty where nothing does. The row's own name counts as
/// one that is taken.
QString GroupEditor::refusal(const QString& text) const {
  if (column_ == 1)
    return isCodeList(text) ? QString() : u"入力規則を確認してください　　"_s;
  const bool taken = std::ranges::any_of(
      list_.rows(), [&](const EditedRow& row) { return asciiUpper(trimBlanks(row.first)) == text; });
  return taken ? text + u" はすでに登録されています　　" : QString();
}

bool GroupEditor::commit(const QString& text) {
  if (!editing())
    return false;
  const QString upper = asciiUpper(trimBlanks(text));
  const QString why = refusal(upper);
  if (!why.isEmpty()) {
    tell(program_, why);
    return false;
  }
  (column_ == 0 ? list_.current().first : list_.current().second) = upper;
  endEditing();
  return true;
}

void GroupEditor::close() {
  writeBack(program_, [this] { storeGroups(program_.tables, list_.rows()); });
}

} // namespace soran
