// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runs/station_map.h"

#include "base/text.h"
#include "runs/night_desk.h"

namespace soran {

using namespace Qt::StringLiterals;

namespace {

/// The text in so many columns, and a blank.
QString cellText(const QString& text, int columns) {
  return text + QString(std::max(0, columns - displayWidth(text)) + 1, u' ');
}

QString lineOf(const QString& state, const QString& alarm, const QString& code, const QString& position,
               const QString& name) {
  QString line = cellText(state, 10) + cellText(alarm, 5) + cellText(code, 4) + cellText(position, 12) + name;
  while (line.endsWith(u' '))
    line.chop(1);
  return line;
}

QString lineOf(const MapStation& station) {
  const BoardRow& row = station.row;
  return lineOf(stateWord(row), alarmWord(row.alarm), row.code.text(),
                station.position ? positionText(*station.position) : u"UNKNOWN"_s, row.name);
}

} // namespace

std::optional<EarthPosition> positionOf(Program& program, const QString& code) {
  std::optional<StationPositions>& positions = program.desk.positions;
  if (!positions)
    positions.emplace(program.services.positions());
  return positions->find(code);
}

std::vector<MapStation> mapStations(Program& program, const QStringList& codes) {
  std::vector<BoardRow> rows = boardRows(program, codes);
  sortWorstFirst(rows);
  std::vector<MapStation> stations;
  for (BoardRow& row : rows) {
    const std::optional<EarthPosition> position = positionOf(program, row.code.text());
    stations.push_back({std::move(row), position});
  }
  return stations;
}

QString mapScreenText(Program& program, const QStringList& codes, int columns) {
  program.desk.showsBoard = true;
  refreshSigmets(program);
  QStringList lines{lineOf(u"ST"_s, u"ALARM"_s, u"AP"_s, u"POSITION"_s, u"NAME"_s)};
  for (const MapStation& station : mapStations(program, codes))
    lines.append(lineOf(station));
  for (QString& line : lines) {
    while (displayWidth(line) > columns)
      line.chop(1);
  }
  if (codes.isEmpty())
    lines = QStringList{u"NO AIRPORT IN THE LIST"_s};
  return u"*** MAP " + program.services.clock.now().toUTC().toString(u"HH:mm"_s) + u"Z ***" + crlf + crlf +
         lines.join(crlf.toString()) + crlf;
}

} // namespace soran
