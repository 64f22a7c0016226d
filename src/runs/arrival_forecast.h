// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/station_code.h"

#include <QDateTime>
#include <QString>

namespace soran {

struct Program;

/// Asks for METAR and TAF of the station and tells what they say for the time `at` (UTC) of an arrival, in
/// Japanese, under a title. Of a report that is older than the latest known the latest is told. Waits in the
/// event loop; throws Unwind where the program was closed.
QString arrivalForecast(Program& program, const StationCode& code, const QDateTime& at);

} // namespace soran
