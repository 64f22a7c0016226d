// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/decode_list_editor.h"

namespace soran {

namespace {

EditedList listOf(const QList<Airport>& airports) {
  std::vector<EditedRow> rows;
  for (const Airport& airport : airports)
    rows.emplace_back(airport.code, airport.name);
  return EditedList(std::move(rows));
}

} // namespace

DecodeListEditor::DecodeListEditor(Program& program)
    : program_(program), source_(listOf(program.tables.airportRows())),
      target_(listOf(program.tables.autoRows())) {
  program.watchTicks = 0;
  target_.clearSelection();
}

QString DecodeListEditor::textOf(const EditedRow& row) {
  return u' ' + row.first + u"   " + row.second;
}

QStringList DecodeListEditor::textsOf(const EditedList& list) {
  QStringList texts;
  for (const EditedRow& row : list.rows())
    texts.append(textOf(row));
  return texts;
}

void DecodeListEditor::selectSource(int row) {
  if (!source_.has(row))
    return;
  source_.select(row);
  target_.clearSelection();
  changed();
}

void DecodeListEditor::selectTarget(int row) {
  if (!target_.has(row))
    return;
  target_.select(row);
  source_.clearSelection();
  changed();
}

void DecodeListEditor::add() {
  if (!canAdd())
    return;
  const QString text = textOf(source_.current());
  if (targetTexts().contains(text)) {
    tell(program_, text + u" はすでに選択されています　　");
    return;
  }
  target_.insert(target_.count(), source_.current());
  changed();
}

void DecodeListEditor::remove() {
  if (!canRemove())
    return;
  target_.removeCurrent();
  target_.clearSelection();
  changed();
}

void DecodeListEditor::moveUp() {
  if (target_.moveUp())
    changed();
}

void DecodeListEditor::moveDown() {
  if (target_.moveDown())
    changed();
}

void DecodeListEditor::close() {
  writeBack(program_, [this] { storeAutoList(program_.tables, target_.rows()); });
}

} // namespace soran
