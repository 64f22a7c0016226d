// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/forms/board_model.h"

#include "desktop/widgets/look.h"

#include <algorithm>
#include <array>

namespace soran {

namespace {

constexpr std::array limitColours = {key::視程1の色, key::視程2の色, key::視程3の色};

/// That of the limit that the airport is beyond, now or in the hours ahead.
Colour colourOfRow(const BoardRow& row, const SettingsRecord& settings) {
  const Colour text = settings[key::表示文字の色].value_or(white);
  const int level = std::max(row.level(), row.outlookLevel());
  if (level > 0)
    return settings[limitColours[size_t(level - 1)]].value_or(text);
  const bool silent = row.freshness == Freshness::Overdue || row.freshness == Freshness::Unknown;
  return silent ? yellow : text;
}

/// What a reader speaks of a cell: its column goes ahead, since a cell alone may be a number only.
QString spoken(BoardColumn column, const QString& cell) {
  return headingOf(column) + u' ' + cell;
}

} // namespace

bool BoardModel::hasSameAirports(const std::vector<Shown>& rows) const {
  const auto sameCode = [](const Shown& one, const Shown& other) { return one.row.code == other.row.code; };
  return std::ranges::equal(rows_, rows, sameCode);
}

void BoardModel::show(std::vector<BoardRow> rows, const SettingsRecord& settings, const QDateTime& now) {
  std::vector<Shown> shown;
  for (BoardRow& row : rows) {
    QStringList cells;
    for (int column = 0; column < boardColumnCount; ++column)
      cells.append(cellOf(row, BoardColumn(column), now));
    const Colour colour = colourOfRow(row, settings);
    shown.push_back({std::move(row), std::move(cells), colour});
  }
  if (!hasSameAirports(shown)) {
    beginResetModel();
    rows_ = std::move(shown);
    endResetModel();
    return;
  }
  for (size_t i = 0; i < shown.size(); ++i) {
    const bool changed = !rows_[i].looksLike(shown[i]);
    rows_[i] = std::move(shown[i]);
    if (changed)
      emit dataChanged(index(int(i), 0), index(int(i), boardColumnCount - 1));
  }
}

int BoardModel::rowOf(const StationCode& code) const {
  const auto found = std::ranges::find_if(rows_, [&](const Shown& shown) { return shown.row.code == code; });
  return found == rows_.end() ? -1 : int(found - rows_.begin());
}

bool BoardModel::isEmpty(int column) const {
  const auto hasNothing = [=](const Shown& shown) { return shown.cells[column].isEmpty(); };
  return !rows_.empty() && std::ranges::all_of(rows_, hasNothing);
}

int BoardModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : int(rows_.size());
}

int BoardModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : boardColumnCount;
}

QVariant BoardModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid())
    return {};
  const Shown& shown = rows_[size_t(index.row())];
  const auto column = BoardColumn(index.column());
  const QString& cell = shown.cells[index.column()];
  const bool rings =
      column == BoardColumn::Alarm && shown.row.alarm.state == AlarmState::Ringing && !shown.row.alarm.muted;
  switch (role) {
  case Qt::DisplayRole:
    return cell;
  case Qt::AccessibleTextRole:
    return spoken(column, cell);
  case Qt::ForegroundRole:
    return toQColor(rings ? white : shown.colour);
  case Qt::BackgroundRole:
    return rings ? QVariant(toQColor(red)) : QVariant();
  default:
    return {};
  }
}

QVariant BoardModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation == Qt::Vertical)
    return {};
  if (role == Qt::TextAlignmentRole)
    return static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter);
  return role == Qt::DisplayRole ? QVariant(headingOf(BoardColumn(section))) : QVariant();
}

} // namespace soran
