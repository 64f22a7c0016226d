// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/rows.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>

/// The year's table of sunrise and sunset of a field chosen by its name in the form's list.
namespace soran {

/// Sunrise and sunset of one day, HHMM in Japan Standard Time.
struct SunDay {
  QString sunrise;
  QString sunset;
  bool operator==(const SunDay&) const = default;
};

/// What the form shows of a field and a year. Without a position `valid` and `leapYear` are false and all
/// texts and `days` are empty.
struct SunTable {
  QString code;      ///< ICAO code, empty for a field known by its name alone
  QString latitude;  ///< "35 33 12 N"
  QString longitude; ///< "139 46 52 E"
  QString elevation; ///< plain number
  QString deltaH;    ///< height of eye of 15 less the rounded elevation, "+" in front above zero
  int year = 0;
  bool leapYear = false; ///< the year is divisible by four
  bool valid = false;
  QList<SunDay> days; ///< from 1 January, 365 or 366
};

/// The entry that separates the parts of the list and has no position.
inline constexpr QStringView sunListSeparator = u"---";

/// The form's list of fields: every row of 飛行場情報 with a code that begins with RO or RJ, by its name
/// without blanks, six with a second name in brackets; then the named airfields and the heliports, a
/// separator ahead of each.
QStringList sunFieldList(const QList<Airport>& airports);

/// The form's years, from three before to six after the current one.
QList<int> sunYearList(int currentYear);

/// The index of the current year in sunYearList.
inline constexpr int sunCurrentYearIndex = 3;

/// The table of an entry of the list. The name ahead of the first bracket is looked up in `airports` (all
/// rows, blanks in their names left out); a code found there without a position ends the search. A row of
/// the named positions with the entry's whole text stands over what was found.
SunTable sunTable(QStringView entry, int year, const QList<Airport>& airports);

} // namespace soran
