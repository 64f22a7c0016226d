// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QString>
#include <QStringView>

namespace soran {

/// How often the charts of a name pattern are issued (JMA facsimile charts, forecasts for aviation).
enum class IssueCycle {
  None,        ///< one name at all times
  SixHourly,   ///< 0000, 0600, 1200, 1800
  ThreeHourly, ///< 0000, 0300 and on
};

/// Date and issue time in the name of the chart to show at local time `now`, such as "201003020600". The
/// issue follows from the clock's hour less 9 plus `timeOffset`, the hours that the clock is ahead of UTC
/// ("+9"); the date is the clock's own. Early hours ask for the last issue of the day before, whose year,
/// month and day stand without leading zeros (on 2 March 2004 "200431"); the day before every 1 March is
/// the 29th.
QString issueStamp(IssueCycle cycle, const QDateTime& now, QStringView timeOffset);

} // namespace soran
