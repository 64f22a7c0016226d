// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desk/board.h"
#include "pictures/drawing.h"

namespace soran {

/// A stretch of a picture.
struct Box {
  double left = 0;
  double top = 0;
  double right = 0;
  double bottom = 0;

  bool overlaps(const Box& other) const {
    return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
  }
  Box movedTo(Point at) const { return {left + at.x, top + at.y, right + at.x, bottom + at.y}; }
};

/// What a row is drawn with: the worst limit that it is beyond, now or in the hours ahead, else whether it is
/// silent.
Ink inkOf(const BoardRow& row);

/// The amount of cloud in eighths after code table 2700 of WMO No. 306: the most that FEW (2), SCT (4), BKN
/// (6) and OVC (8) mean of the layers, 0 for a sky without cloud or without any of significance, 9 where it
/// is obscured; nothing where the report does not tell.
std::optional<int> cloudEighths(const BoardRow& row);

/// The station model (WMO No. 485, appendix II-4) of a row about the point at `at`, in letters of that
/// height: the circle filled by the amount of cloud and broken where none is told, the wind arrow, air
/// temperature upper left, dew point lower left, weather left, the last three figures of the tenths of QNH
/// upper right, and where no wind arrow reaches, visibility and ceiling as reported in a line below; the
/// state word lower right, the code under the circle. An element that is not known has no shape. Those of an
/// element carry its name (CLOUD, WIND, AIR, DEWPOINT, WX, VIS, QNH, CIG, CODE, STATE), its value (eighths,
/// knots, degrees Celsius, metres, hectopascals, feet, level) and the words of the report.
std::vector<Shape> stationPlot(const BoardRow& row, Point at, double size, bool southern);

/// The room that the letters and the circle of the plot take about the point 0, 0; its wind arrow may reach
/// beyond.
Box plotBox(const BoardRow& row, double size);

} // namespace soran
