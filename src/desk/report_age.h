// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <optional>
#include <span>

namespace soran {

/// How fresh the newest METAR of a station is, by the rhythm in which the station reports.
enum class Freshness {
  Unknown, ///< there is no report
  Current,
  Overdue, ///< the next report should have come
  Closed,  ///< the next one has not come, and there was none a day before either; a day at most
};

/// The minutes between two routine reports, 30 or 60 (ICAO Annex 3, 3.3.1): 30 where the times (UTC, in any
/// order, those of special reports too) hold two routine reports of the same hour.
int reportingInterval(std::span<const QDateTime> times);

/// How fresh the newest of the times is at `now` (UTC). A report may be up to 15 minutes late. `watchedSince`
/// is the beginning of the time in which no report was missed, without which nothing tells a closed station
/// from one that failed.
Freshness freshnessOf(std::span<const QDateTime> times, const QDateTime& watchedSince, const QDateTime& now);

} // namespace soran
