// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pictures/drawing.h"

#include <QStringView>

namespace soran {

/// The symbol of a group of present or forecast weather (WMO No. 306, code table 4678) about the point at
/// `at`, `size` high, after the present weather symbols of synoptic charts (WMO No. 485, code table 4677):
/// precipitation by its kind as one, two or four marks for light, moderate and heavy, showers over a
/// triangle, thunder and freezing beside it; fog, mist, haze, dust, sand, smoke, squall and funnel. What has
/// no symbol is nothing.
std::vector<Shape> weatherSymbol(QStringView group, Point at, double size);

} // namespace soran
