// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/text.h"
#include "base/zone_offset.h"

#include <QDateTime>
#include <QStringView>
#include <array>
#include <compare>

/// Rules of the field that several readers of reports share.
namespace soran {

/// The two kinds of reports (WMO No. 306, FM 15/16 and FM 51).
enum class ReportKind { Metar, Taf };

/// The minute of a report's time, as its figures read; figures that are none read as any number.
struct MinuteOfHour {
  double value = 0;

  /// The two figures at `pos`, read as a whole number.
  static MinuteOfHour at(QStringView text, Position1 pos) {
    return {double(leadingInteger(mid1(text, pos, 2)))};
  }

  /// True where a report of this minute is a METAR: 50 and more, 0 and 30; every other minute makes a SPECI.
  /// Observation schedules of the region served set this rule; the text of a report is not asked.
  constexpr bool isRoutine() const { return value >= 50 || value == 0 || value == 30; }
};

/// Whether a report of that time (UTC) is a METAR.
inline bool isRoutine(const QDateTime& time) {
  return MinuteOfHour{double(time.time().minute())}.isRoutine();
}

/// An hour of UTC, 0 to 23: that of a cycle file.
struct UtcHour {
  int value = 0;

  bool operator==(const UtcHour&) const = default;
  constexpr std::strong_ordering operator<=>(const UtcHour& other) const { return value <=> other.value; }
};

/// What tells an amended, corrected or delayed report, in the order in which one is looked for. They are
/// found wherever they stand, within other words too.
inline constexpr std::array<QStringView, 3> amendmentWords = {u"AMD", u"COR", u"TRD"};

/// The first of these words that the text holds, empty where it holds none.
inline QStringView amendmentIn(QStringView text) {
  for (const QStringView word : amendmentWords) {
    if (text.contains(word))
      return word;
  }
  return {};
}

/// Days of a month (1 to 12; others count as the nearest), every fourth year being a leap year.
constexpr int daysInMonth(int year, int month) {
  constexpr std::array<int, 12> days = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  if (month == 2 && year % 4 == 0)
    return 29;
  return days[size_t(month < 1 ? 0 : month > 12 ? 11 : month - 1)];
}

/// How an hour that has left its day is told.
enum class HourWrap {
  Both,  ///< brought into the day
  Above, ///< brought into the day where it lies behind its end; one before its beginning stays as it is
};

/// The hour (0 to 23) in a zone.
constexpr int shiftedHour(int hour, ZoneOffset offset, HourWrap wrap = HourWrap::Both) {
  const int shifted = hour + offset.hours;
  if (shifted >= 24)
    return shifted - 24;
  return shifted < 0 && wrap == HourWrap::Both ? shifted + 24 : shifted;
}

} // namespace soran
