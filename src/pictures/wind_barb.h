// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pictures/drawing.h"
#include "reports/element_values.h"

namespace soran {

/// The shaft and feathers of a wind (WMO No. 485, appendix II-4, wind arrows): from the point at `at` the
/// shaft goes towards where the wind comes from, its feathers on the side of the lower pressure, to the right
/// of one who looks along it (to the left in the southern hemisphere). A half feather is 5 knots, a whole one
/// 10, a pennant 50, of the speed rounded to 5 knots. A calm is a circle; a wind without a direction or a
/// speed is nothing.
std::vector<Shape> windBarb(const Wind& wind, Point at, double length, bool southern = false);

} // namespace soran
