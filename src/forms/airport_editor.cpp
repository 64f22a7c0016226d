// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/airport_editor.h"

namespace soran {

AirportEditor::AirportEditor(Program& program) : program_(program) {
  program.watchTicks = 0;
  std::vector<EditedRow> rows;
  for (const Airport& airport : program.tables.airportRows())
    rows.emplace_back(airport.code, airport.name);
  list_ = EditedList(std::move(rows));
}

void AirportEditor::select(int row) {
  list_.select(row);
  changed();
}

void AirportEditor::add() {
  AirportEntry entry(program_, AirportEntry::Mode::Add);
  showEntry(entry);
  if (entry.cancelled())
    return;
  list_.insert(0, {entry.code(), entry.name()});
  list_.select(0);
  changed();
}

void AirportEditor::change() {
  if (!canChange())
    return;
  AirportEntry entry(program_, AirportEntry::Mode::Change, list_.current().first, list_.current().second);
  showEntry(entry);
  if (entry.cancelled())
    return;
  list_.current() = {entry.code(), entry.name()};
  changed();
}

void AirportEditor::open(int row) {
  if (!list_.has(row))
    return;
  list_.select(row);
  change();
}

void AirportEditor::remove() {
  if (!canRemove())
    return;
  const auto& [code, name] = list_.current();
  if (!confirmedDeletion(program_, code + u' ' + name))
    return;
  list_.removeCurrent();
  changed();
}

void AirportEditor::moveUp() {
  if (list_.moveUp())
    changed();
}

void AirportEditor::moveDown() {
  if (list_.moveDown())
    changed();
}

void AirportEditor::close() {
  writeBack(program_, [this] { storeAirports(program_.tables, list_.rows()); });
}

} // namespace soran
