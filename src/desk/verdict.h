// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desk/board.h"
#include "reports/limits.h"
#include "reports/taf_slices.h"

#include <QStringView>
#include <optional>
#include <vector>

namespace soran {

/// What the observation of a METAR, or of the file of a station with one, has beyond the limits, the worst
/// first; its trend is no part of it.
std::vector<Finding> metarFindings(QStringView text, const Limits& limits);

/// What a TAF, or the file of a station with one, tells beyond the limits of the time from `now` (UTC) on:
/// the worst of each element, the worst first. Nothing where it cannot be read.
std::vector<Finding> tafFindings(QStringView text, const QDateTime& now, const Limits& limits);

/// The worst that a TAF, read from `text`, tells of the time from `from` on and before `to` (UTC), and when
/// in that time it first does so.
std::optional<Outlook> worstOutlook(const Taf& taf, QStringView text, const QDateTime& from,
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
