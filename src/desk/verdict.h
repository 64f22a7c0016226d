// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desk/board.h"
#include "reports/limits.h"
#include "reports/taf_slices.h"

#include <QStringView>
#include <optional>
#include <span>
#include <vector>

namespace soran {

/// A report against the limits.
struct Verdict {
  std::vector<Finding> findings = {}; ///< the worst of each element, the worst first
  QStringList told = {};              ///< the elements whose value is known, beyond a limit or not
};

/// What the observation of a METAR, or of the file of a station with one, says; its trend is no part of it.
Verdict observationVerdict(QStringView text, const Limits& limits);

/// The same with the trend, of which the elements are named "TREND VIS" and so on. `now` is in UTC.
Verdict metarVerdict(QStringView text, const QDateTime& now, const Limits& limits);

/// What a TAF, or the file of a station with one, says of the hours of a board from `now` (UTC) on. One that
/// is not in force, or has parts that cannot be read, tells nothing.
Verdict tafVerdict(QStringView text, const QDateTime& now, const Limits& limits);

/// Slices with the text that their words are in, which must outlive them.
struct Forecast {
  QStringView text;
  std::vector<ForecastSlice> slices;
};

/// The worst that the forecasts tell of the time from `from` on and before `to` (UTC), and when in that time
/// it first does so.
std::optional<Outlook> worstOutlook(std::span<const Forecast> forecasts, const QDateTime& from,
                                    const QDateTime& to, const Limits& limits);

/// The reports of an airport, as station files or as texts; what is not known is empty.
struct BoardReports {
  QString metar = {};
  QString before = {}; ///< the METAR before
  QString taf = {};
  QDateTime time = {};                ///< of the METAR, UTC
  std::optional<bool> isSpecial = {}; ///< what its source says; nothing: by its minute
  std::vector<QDateTime> times = {};  ///< of the METARs that are known, UTC
  QDateTime watchedSince = {};        ///< UTC, as in freshnessOf
};

/// The row of the airport as far as its reports tell it.
BoardRow boardRow(const StationCode& code, const BoardReports& reports, const Limits& limits,
                  const QDateTime& now);

} // namespace soran
