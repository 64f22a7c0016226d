// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringView>
#include <span>

/// Positions of Japanese airfields (AIP Japan, AD 2 and the heliport lists), compiled in.
namespace soran {

/// A row of the position tables.
struct FieldPosition {
  QStringView key;       ///< ICAO code, or the name in the form's list with its "(H)" or "(JSDF)"
  QStringView latitude;  ///< ddmmss, north
  QStringView longitude; ///< dddmmss, east
  QStringView elevation; ///< plain decimal number
};

/// The 128 fields with an ICAO code; a code occurs once.
std::span<const FieldPosition> codedPositions() noexcept;

/// The 58 fields known by their name in the list: 旭川(JSDF), then 9 airfields, then the heliports.
std::span<const FieldPosition> namedPositions() noexcept;

/// The row with exactly this code or name, null where there is none.
const FieldPosition* findCoded(QStringView code) noexcept;
const FieldPosition* findNamed(QStringView name) noexcept;

/// Latitude (characters 1 to 6), longitude (7 to 13) and elevation (from 14) of an upper-case ICAO code in
/// one text without separators; empty for a code without a row.
QString AirfieldPosition(QStringView code);

} // namespace soran
