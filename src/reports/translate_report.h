// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/station_code.h"
#include "reports/dictionaries.h"
#include "store/settings_record.h"

namespace soran {

/// What a report is told as where it has an unforeseen form; no line end follows.
inline constexpr QStringView untranslatable = u"例外フォーマットのため翻訳できません";

/// The Japanese translation of a METAR or SPECI (ICAO Annex 3; remarks as of FMH-1 and as Japanese stations
/// write them), one line for each group, lines joined by CR LF and ended by one.
///
/// `code` is the station's code as typed. `time` is the time of the report, HHMM and a zone letter ("0630Z").
/// `body` is the report behind its time group, on one line or several with LF. Of the settings LOCAL使用,
/// 時差 and 規約読み are read. With 規約読み each group is told as the code form means it, and what is
/// missing as not reported. Without it the groups are read in a fixed order and by fixed rules; a report
/// without a temperature group and one of any other unforeseen form then gives `untranslatable` alone. The
/// cost is linear in the body, merged cloud remarks aside.
QString TranslateReport(const StationCode& code, QStringView time, QStringView body,
                        const SettingsRecord& settings, const Dictionaries& dictionaries);

} // namespace soran
