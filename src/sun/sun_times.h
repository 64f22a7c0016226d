// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringView>
#include <array>

/// Sunrise and sunset in Japan Standard Time (UTC+9, whatever the computer's zone), after the abridged
/// expressions of the sun's position that the Hydrographic Department of Japan published for almanac users.
/// The figures are those of 常用日出没: the upper limb on the horizon, seen 15 units above mean sea level.
namespace soran {

/// One periodic term of the sun's longitude: amplitude x sin(rate x T + phase), amplitude and phase in
/// degrees, rate in degrees a year.
struct SunTerm {
  double amplitude;
  double phase;
  double rate;
};

/// The 18 periodic terms, in the order in which they are added.
inline constexpr std::array<SunTerm, 18> sunSeries{{
    {0.0003, 241.2, -44.43},
    {0.0003, 349.6, 1079.97},
    {0.0004, 18.1, 720.02},
    {0.0004, 233.8, 229.3},
    {0.0004, 264.8, 315.56},
    {0.0005, 99.1, -22.81},
    {0.0005, 10.1, -1.5},
    {0.0006, 239.1, 337.18},
    {0.0007, 12.1, -30.35},
    {0.0007, 53.5, 90.38},
    {0.0008, 208.0, 659.29},
    {0.0013, 211.1, 225.18},
    {0.0015, 242.4, 450.37},
    {0.0018, 293.7, -0.2},
    {0.0018, 334.2, -4452.67},
    {0.002, 285.0, 329.64},
    {0.0048, 68.64, -19.341},
    {0.02, 353.06, 719.981},
}};

/// Sunrise as HHMM on a date of the civil calendar (month and day from 1) at a point north and east:
/// `latitude` as ddmmss, `longitude` as dddmmss. Each of degrees, minutes and seconds is read as the leading
/// number of its digits, so a malformed text counts as zero. The hour is not wrapped at 24, and a day
/// without a sunrise still gives digits.
QString SunriseTime(int year, int month, int day, QStringView latitude, QStringView longitude);

/// Sunset, with the same fields and the same limits as SunriseTime.
QString SunsetTime(int year, int month, int day, QStringView latitude, QStringView longitude);

} // namespace soran
