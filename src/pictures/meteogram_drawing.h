// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pictures/drawing.h"
#include "pictures/meteogram.h"

namespace soran {

/// The meteogram as a picture of that size: from top to bottom the weather symbols and wind arrows, wind and
/// gust (knots), visibility (metres) and ceiling (feet) on logarithmic scales with the limits, temperature
/// and dew point (degrees Celsius), QNH (hectopascals). Behind them the nights, and now as a line. What is
/// observed is a dot for each value, joined where no report is missing between; what is forecast is a line
/// for the time that it holds, dashed where it is becoming, and hatched below the value where it is temporary
/// or probable. An element that a report does not tell leaves a gap. Each shape of a value tells its element,
/// time, value and words.
Drawing meteogramDrawing(const Meteogram& meteogram, const SettingsRecord& settings, double width,
                         double height);

/// The time (UTC) that lies at x of such a picture; invalid beside its graphs.
QDateTime timeAt(const Meteogram& meteogram, double x, double width);

} // namespace soran
