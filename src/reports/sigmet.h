// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringView>
#include <optional>

namespace soran {

/// A position on the earth, degrees, north and east positive.
struct EarthPosition {
  double latitude = 0;
  double longitude = 0;

  bool operator==(const EarthPosition&) const = default;
};

/// A SIGMET (ICAO Annex 3, appendix 6) of one flight information region.
struct Sigmet {
  QString heading; ///< "RJJJ SIGMET M02"
  QString text;    ///< what it says behind its validity, on one line, without the "=" at its end
  QDateTime from;  ///< UTC
  QDateTime to;    ///< UTC
  bool isWholeRegion = false;
  QList<EarthPosition> area =
      {}; ///< corners in their order; empty where the text tells none that can be read

  /// The area can be told.
  bool isPlaced() const { return isWholeRegion || area.size() > 2; }
  /// A position lies in the area, its edge included.
  bool covers(const EarthPosition& position) const;
};

/// The SIGMETs of the region with that indicator, those in force or to come at `now` (UTC), in the order of
/// their beginning. One that was cancelled is left out, as is the message that cancels it. A body may hold
/// other regions, headings of bulletins and lines of its own, which are passed over.
QList<Sigmet> readSigmets(QStringView body, QStringView region, const QDateTime& now);

/// The position of a text ddmmss dddmmss as tables of fields have it.
EarthPosition positionOf(QStringView latitude, QStringView longitude);

} // namespace soran
