// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "reports/taf_slices.h"
#include "store/json_fields.h"

#include <QDateTime>
#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <QStringList>

/// Reports as plain numbers for scripts: one field a value, null where the report does not hold it, in
/// degrees true, knots, metres, feet, degrees Celsius and hectopascals.
namespace soran {

/// A time as "2026-11-24T05:30Z"; null where it is invalid.
QJsonValue minuteJson(const QDateTime& time);

/// A time in UTC or with its offset: "2026-11-24T05:30Z", "2026-11-24T14:30:00+09:00"; one without either is
/// in UTC. Throws InputError, naming `name`, where it is none.
QDateTime minuteOf(const QString& text, const QString& name);

/// Wind, visibility (9999 and CAVOK are 10000), weather and ceiling: "wind_dir" ("VRB" where it is variable),
/// "wind_kt", "gust_kt", "vis_m", "weather" (the groups of the text), "ceiling_ft".
QJsonObject plainElements(const ElementValues& values, QStringView text);

/// The same of a whole METAR or SPECI, with "code", "kind", "time", "rvr_m", "temp_c", "dew_c", "qnh_hpa",
/// "trend", and "unread", groups that were meant for an element and are none, where there are any.
QJsonObject plainReport(const MetarReading& metar, QStringView text);

/// The stretches of a text, each as a text.
QJsonArray textsOf(const std::vector<Words>& stretches, QStringView text);

/// METAR or SPECI of a report of that time (UTC): by what it says of itself, else by its minute.
QString metarKind(const QDateTime& time, std::optional<bool> isSpecial);

/// A figure against a limit that it may be compared with.
struct PlainLimit {
  QString name; ///< "vis_m", "ceiling_ft", "wind_kt", "gust_kt"
  int value = 0;
};

/// The names of the limits that the values lie beyond, in the order of the limits: a visibility or ceiling
/// that is less, a wind that is more. VV/// counts as a ceiling of 0 feet.
QStringList hitsOf(const ElementValues& values, const QList<PlainLimit>& limits);

/// Whether the report tells of each limit's element, be it that there is no ceiling or no gust.
bool knowsAll(const ElementValues& values, const QList<PlainLimit>& limits);

/// Whether a value lies at most a quarter of its limit on the good side of it.
bool isNear(const ElementValues& values, const QList<PlainLimit>& limits);

/// The name that the limit of an element of the shift log has here: "vis_m" of "VIS" and of "TREND VIS".
QString plainNameOf(const QString& element);

} // namespace soran
