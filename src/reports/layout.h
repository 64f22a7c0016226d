// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/report_rules.h"
#include "base/stamp.h"
#include "base/station_code.h"
#include "store/settings_record.h"

#include <QString>

namespace soran {

/// A station file, laid out.
struct StationReport {
  Stamp stamp;
  QString obsTime; ///< time label such as 0500Z or 1400I
  QString body;    ///< the report behind the station code, indented by six blanks
};

/// Lays a station file out by positions and plain replacements. The response is not parsed: whatever it holds
/// gives a result.
StationReport layoutReport(QStringView response, ReportKind kind, const SettingsRecord& settings);

/// "  METAR " or "  SPECI ", as it stands behind a station code.
QString kindWord(bool routine);

/// The hour in the zone that the settings ask for: `hour` plus 時差, wrapped once into the day, where
/// LOCAL使用 is true; otherwise `hour`.
int displayedHour(int hour, const SettingsRecord& settings);

/// The letter behind a displayed time.
QString displayedZone(const SettingsRecord& settings);

/// The heading of a single report line ("RJTT 240500Z ..."): line end, `code`, kind and time label. The label
/// alone is in `time`.
struct LineHeading {
  QString text;
  QString time;
};
LineHeading lineHeading(const StationCode& code, QStringView line, const SettingsRecord& settings);

} // namespace soran
