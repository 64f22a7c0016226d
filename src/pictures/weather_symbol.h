// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pictures/drawing.h"

#include <QStringView>

namespace soran {

/// The symbol of a group of present or forecast weather (WMO No. 306, code table 4678) about the point at
/// `at`, `size` high, after the present weather symbols of synoptic charts (WMO No. 485, code table 4677):
/// precipitation by its kind as marks for light, moderate and heavy, rain with snow as a dot and a star,
/// showers over a triangle, thunder and freezing beside it; blowing and drifting snow; fog, mist, haze, dust,
/// sand, their storms and whirls, smoke, squall and funnel. What is in the vicinity stands in brackets. What
/// has no symbol is nothing.
std::vector<Shape> weatherSymbol(QStringView group, Point at, double size);

/// How grave a group of weather is: of several that have no room it is the greatest that is shown.
int weatherRank(QStringView group);

} // namespace soran
