// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/limits_editor.h"

#include "base/text.h"

#include <algorithm>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

constexpr int codeColumn = int(LimitColumn::Code);
constexpr int conditionColumn = int(LimitColumn::Condition);

} // namespace

LimitsEditor::LimitsEditor(Program& program) : CellEditor(program, limitColumnCount) {
  std::vector<QStringList> rows;
  for (const AirportLimits& row : program.tables.limitRows())
    rows.push_back(cellsOf(row));
  list_ = EditedRows(std::move(rows));
}

QStringList LimitsEditor::headings() {
  QStringList headings;
  for (int i = 0; i < limitColumnCount; ++i) {
    const auto column = LimitColumn(i);
    const QString unit = unitOf(column);
    headings += unit.isEmpty() ? nameOf(column) : nameOf(column) + u' ' + unit;
  }
  return headings;
}

void LimitsEditor::addRow() {
  QStringList cells(limitColumnCount);
  cells[conditionColumn] = u'1';
  append(std::move(cells));
}

void LimitsEditor::remove() {
  if (!canRemove())
    return;
  const QStringList& row = list_.current();
  const QString what = row[codeColumn] + u" 条件" + row[conditionColumn];
  if (!row[codeColumn].isEmpty() && !confirmedDeletion(program_, what))
    return;
  takeOffChosen();
}

/// Another row than the chosen one has the code and the condition.
bool LimitsEditor::hasOther(const QString& code, const QString& condition) const {
  return std::ranges::any_of(list_.rows(), [&](const QStringList& row) {
    return &row != &list_.current() && row[codeColumn] == code && row[conditionColumn] == condition;
  });
}

/// The condition of the chosen row under a code: its own, of a new row one that is free; empty where there is
/// none.
QString LimitsEditor::freeCondition(const QString& code) const {
  const QString& own = list_.current()[conditionColumn];
  QStringList wanted = {own};
  if (list_.current()[codeColumn].isEmpty())
    wanted += {u"1"_s, u"2"_s, u"3"_s};
  const auto free = std::ranges::find_if(wanted, [&](const QString& each) { return !hasOther(code, each); });
  return free == wanted.end() ? QString() : *free;
}

/// What speaks against the text in the open cell, empty where nothing does.
QString LimitsEditor::refusal(const QString& text) const {
  QString why = refusalOf(LimitColumn(column_), text);
  if (!why.isEmpty())
    return why;
  const QString& code = list_.current()[codeColumn];
  const bool isTaken = column_ == codeColumn        ? freeCondition(text).isEmpty()
                       : column_ == conditionColumn ? hasOther(code, text)
                                                    : false;
  if (!isTaken)
    return {};
  return (column_ == codeColumn ? text : code + u" 条件" + text) + u" はすでに登録されています　　";
}

bool LimitsEditor::commit(const QString& text) {
  if (!editing())
    return false;
  const QString upper = asciiUpper(text).simplified();
  const QString why = refusal(upper);
  if (!why.isEmpty()) {
    tell(program_, why);
    return false;
  }
  if (column_ == codeColumn)
    list_.current()[conditionColumn] = freeCondition(upper);
  list_.current()[column_] = upper;
  endEditing();
  return true;
}

void LimitsEditor::close() {
  QList<AirportLimits> rows;
  for (const QStringList& cells : list_.rows()) {
    if (!cells[codeColumn].isEmpty())
      rows += rowOfCells(cells);
  }
  writeBack(program_, [&] { storeLimits(program_.tables, rows); });
}

} // namespace soran
