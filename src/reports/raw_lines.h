// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/report_rules.h"

#include <QDateTime>
#include <QHash>
#include <QString>
#include <QStringView>
#include <optional>

namespace soran {

/// A report of a body of raw lines, as the station file that would hold it.
struct RawReport {
  QString file;   ///< "2026/11/24 05:00", line end, the report ahead of which a TAF has its kind
  QDateTime time; ///< of observation or issue, UTC
  std::optional<bool> isSpecial; ///< its line says SPECI, or METAR; nothing where it says neither
};

/// The date and time of that day of a month and time of day that is nearest to `near`, both UTC; invalid
/// where there is no such time or none of the three months has that day.
QDateTime nearestTo(int day, QTime time, const QDateTime& near);

/// The date and time nearest to `now` (UTC) of a group DDHHMMZ; invalid where it is none.
QDateTime timeNear(QStringView group, const QDateTime& now);

/// The newest report of each station of a body that holds a report a line (WMO No. 306, FM 15, FM 16 and
/// FM 51): METAR, SPECI or TAF may stand ahead of the code, AMD or COR with it, and indented lines go on with
/// a TAF. The date is that of the day and time nearest to `now` (UTC). Lines that are no report are left out.
QHash<QString, RawReport> readRawLines(QStringView body, ReportKind kind, const QDateTime& now);

} // namespace soran
