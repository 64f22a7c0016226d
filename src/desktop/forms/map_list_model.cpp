// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/forms/map_list_model.h"

#include <algorithm>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

/// The cells of a line, one blank apart, the first in so many columns.
QString textOf(const MapStation& station, qsizetype stateWidth) {
  const BoardRow& row = station.row;
  QStringList cells = {stateWord(row).leftJustified(stateWidth), row.code.text(), row.name,
                       alarmWord(row.alarm), station.position ? QString() : u"位置不明"_s};
  cells.removeAll(QString());
  return cells.join(u' ');
}

} // namespace

void MapListModel::show(const std::vector<MapStation>& stations, const Ground& ground) {
  std::vector<Line> lines;
  qsizetype stateWidth = 0;
  for (const MapStation& station : stations)
    stateWidth = std::max(stateWidth, stateWord(station.row).size());
  for (const MapStation& station : stations) {
    const QString text = textOf(station, stateWidth);
    lines.push_back({station.row.code.text(), text, text.simplified(), colourOf(inkOf(station.row), ground)});
  }
  if (lines == lines_)
    return;
  const bool sameAirports = std::ranges::equal(lines, lines_, {}, &Line::code, &Line::code);
  if (!sameAirports)
    beginResetModel();
  lines_ = std::move(lines);
  if (!sameAirports)
    endResetModel();
  else
    emit dataChanged(index(0), index(int(lines_.size()) - 1));
}

int MapListModel::rowOf(const QString& code) const {
  const auto found = std::ranges::find(lines_, code, &Line::code);
  return found == lines_.end() ? -1 : int(found - lines_.begin());
}

int MapListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : int(lines_.size());
}

QVariant MapListModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid())
    return {};
  const Line& line = lines_[size_t(index.row())];
  switch (role) {
  case Qt::DisplayRole:
    return line.text;
  case Qt::AccessibleTextRole:
    return line.spoken;
  case Qt::ForegroundRole:
    return line.colour;
  default:
    return {};
  }
}

} // namespace soran
