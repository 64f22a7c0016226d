// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/rows.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QList>
#include <QStringList>
#include <array>
#include <optional>

/// The rows of 空港別制限 as texts, as JSON and as stored values.
namespace soran {

/// The columns of a row as texts, in the order of the table's columns behind 順位.
enum class LimitColumn { Code, Condition, Visibility, RunwayRange, Ceiling, Wind, Gust, Crosswind, Weather };
inline constexpr int limitColumnCount = int(LimitColumn::Weather) + 1;

/// The name of a column in the table and in JSON: "視程".
QString nameOf(LimitColumn column);
/// The unit of its numbers: "m", "ft" or "kt"; empty where they have none.
QString unitOf(LimitColumn column);

/// The row as texts, one for each column; empty where a limit is missing.
QStringList cellsOf(const AirportLimits& row);

/// What speaks against a text in a column, in Japanese; empty where nothing does. A code is four letters and
/// figures that begin with a letter, or ALL, a condition 1 to 3; each limit may be empty. Visibility and
/// runway visual range are 1 to 9999, a ceiling 1 to 30000, winds 1 to 199. Words of weather are those of
/// isWeatherGroup.
QString refusalOf(LimitColumn column, const QString& text);

/// The row of texts of which refusalOf has nothing to say.
AirportLimits rowOfCells(const QStringList& cells);

/// The row as the table holds it, of that rank.
QVariantList storedRow(const AirportLimits& row, int rank);

/// The row as an object of the columns that have something.
QJsonObject limitsJson(const AirportLimits& row);

/// The rows of a list of such objects; a column may be missing or null. Throws InputError for a row that is
/// none, and for a second one of an airport and condition.
QList<AirportLimits> airportLimitsOf(const QJsonArray& rows);

/// The rows as lines of text under their headings, joined by CR LF; "-" where a limit is missing.
QString limitsText(const QList<AirportLimits>& rows);

} // namespace soran
