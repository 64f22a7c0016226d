// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "pictures/station_positions.h"

#include "sun/positions.h"

#include <QByteArrayList>
#include <algorithm>
#include <cmath>

namespace soran {

namespace {

/// "3533N" with so many figures for the degrees.
QString minutesText(double degrees, int figures, QStringView signs) {
  const int minutes = int(std::lround(std::abs(degrees) * 60));
  return QStringLiteral("%1%2")
             .arg(minutes / 60, figures, 10, QChar(u'0'))
             .arg(minutes % 60, 2, 10, QChar(u'0')) +
         signs[degrees < 0 ? 1 : 0];
}

} // namespace

StationPositions::StationPositions(QByteArrayView list) {
  constexpr qsizetype usualLine = 22;
  rows_.reserve(size_t(list.size() / usualLine));
  for (const QByteArray& line : QByteArray::fromRawData(list.data(), list.size()).split('\n')) {
    const QList<QByteArray> cells = line.split('\t');
    if (cells.size() != 3 || cells[0].size() != 4)
      continue;
    bool hasLatitude = false;
    bool hasLongitude = false;
    Row row{{}, cells[1].toFloat(&hasLatitude), cells[2].toFloat(&hasLongitude)};
    std::ranges::copy(cells[0], row.code.begin());
    if (hasLatitude && hasLongitude && std::abs(row.latitude) <= 90 && std::abs(row.longitude) <= 180)
      rows_.push_back(row);
  }
  std::ranges::sort(rows_, {}, &Row::code);
}

std::optional<EarthPosition> StationPositions::find(QStringView code) const {
  if (const FieldPosition* field = findCoded(code))
    return positionOf(field->latitude, field->longitude);
  const QByteArray bytes = code.toLatin1();
  if (bytes.size() != 4)
    return std::nullopt;
  Code wanted;
  std::ranges::copy(bytes, wanted.begin());
  const auto row = std::ranges::lower_bound(rows_, wanted, {}, &Row::code);
  if (row == rows_.end() || row->code != wanted)
    return std::nullopt;
  return EarthPosition{row->latitude, row->longitude};
}

QString positionText(const EarthPosition& position) {
  return minutesText(position.latitude, 2, u"NS") + u' ' + minutesText(position.longitude, 3, u"EW");
}

} // namespace soran
