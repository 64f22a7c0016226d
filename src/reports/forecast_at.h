// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/report_rules.h"
#include "reports/limits.h"
#include "reports/taf_slices.h"
#include "store/settings_record.h"

#include <QString>
#include <span>

/// What the reports of a station say for a time, such as that of an arrival: pure functions.
namespace soran {

/// How far ahead of the time and behind it a slice still counts.
inline constexpr qint64 minutesAround = 60;

/// The slices that touch the time between an hour ahead of `at` and an hour behind it. One that ends as that
/// hour begins is left out, one that begins as the other ends is not.
std::vector<ForecastSlice> slicesAround(std::span<const ForecastSlice> slices, const QDateTime& at);

/// The slice that is worst against the limits, of which report it is and by what.
struct WorstSlice {
  ReportKind report = ReportKind::Taf;
  size_t slice = 0; ///< in the list of that report
  Crossing crossing = {};
};

/// The reports of one station at one time. The words of METAR and TAF are stretches of their texts.
struct StationForecast {
  QDateTime at = {}; ///< UTC
  QString metarText = {};
  QString tafText = {};
  std::optional<MetarReading> metar = {}; ///< nothing where the text cannot be read, as of the TAF
  std::optional<Taf> taf = {};
  std::vector<ForecastSlice> trendSlices = {}; ///< around the time
  std::vector<ForecastSlice> tafSlices = {};
  std::optional<WorstSlice> worst = {}; ///< nothing where no slice lies beyond a limit

  const QString& textOf(ReportKind report) const { return report == ReportKind::Taf ? tafText : metarText; }
  const std::vector<ForecastSlice>& slicesOf(ReportKind report) const {
    return report == ReportKind::Taf ? tafSlices : trendSlices;
  }
};

/// Reads the texts (station files or reports, either may be empty) for the time `at`, at the time `now`
/// (UTC).
StationForecast forecastAt(const QString& metarText, const QString& tafText, const QDateTime& at,
                           const QDateTime& now, const Limits& limits);

/// The same in Japanese, a line for each slice with the words that it comes from; times in the zone of the
/// settings. Lines end with CR LF.
QString forecastText(const StationForecast& forecast, const SettingsRecord& settings);

/// The next time from `now` (UTC) on that a text HHMM tells: with "Z" behind it in UTC, else in the zone of
/// the settings. Nothing where it is no time of day.
std::optional<QDateTime> nextTime(QStringView text, const QDateTime& now, const SettingsRecord& settings);

/// The report of a text on one line, without the time of writing that a station file has ahead of it.
QString reportOn(const QString& text);

/// A time as it is displayed: "22 1430I", or "22 0530Z" where the settings display UTC.
QString displayedTime(const QDateTime& time, const SettingsRecord& settings);

} // namespace soran
