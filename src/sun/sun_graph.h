// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/colour.h"
#include "sun/sun_table.h"

#include <QList>
#include <QString>
#include <array>

/// The graph of a year's sunrise and sunset, in the twips of the form's picture (y grows downwards).
namespace soran {

/// The part of the picture in which points lie: the year from left to right, and from top to bottom the time
/// of sunrise from 0820 to 0300 and of sunset from 2020 to 1500. Nothing is clipped to it.
inline constexpr double sunGraphLeft = 660;
inline constexpr double sunGraphRight = 13620;
inline constexpr double sunGraphTop = 245;
inline constexpr double sunGraphBottom = 6645;

/// Colours of the two curves.
inline constexpr Colour sunriseColour = colourOf(190, 0, 0);
inline constexpr Colour sunsetColour = colourOf(0, 0, 190);

struct SunPoint {
  double x = 0;
  double y = 0;
  bool operator==(const SunPoint&) const = default;
};

/// A mark at the first day with the earliest or latest time of the year.
struct SunExtreme {
  QString time; ///< HHMM
  QString date; ///< " 6月21日 "
  double x = 0; ///< left edge of the label
  double y = 0; ///< top edge of the label
  bool operator==(const SunExtreme&) const = default;
};

/// One point a day; all empty where the table has no position.
struct SunGraph {
  QList<SunPoint> sunrise;
  QList<SunPoint> sunset;
  QList<SunExtreme> extremes; ///< earliest and latest sunrise, earliest and latest sunset
};

/// x of the day of the year, counted from 0.
double sunGraphX(int dayIndex, bool leapYear);

/// y of a time in minutes from midnight, on the scale of sunrise and on that of sunset.
double sunriseY(int minutes);
double sunsetY(int minutes);

/// The graph of a table.
SunGraph sunGraph(const SunTable& table);

} // namespace soran
