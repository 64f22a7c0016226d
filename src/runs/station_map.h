// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pictures/map_drawing.h"
#include "runs/program.h"

namespace soran {

/// Where the station of an upper-case code lies; nothing where that is not known.
std::optional<EarthPosition> positionOf(Program& program, const QString& code);

/// The airports of these codes as a map has them, the worst first.
std::vector<MapStation> mapStations(Program& program, const QStringList& codes);

/// The airports of a map as lines of text for a terminal of so many columns, the worst first: state, alarm,
/// code, position and name. Asks for the SIGMETs; waits in the event loop.
QString mapScreenText(Program& program, const QStringList& codes, int columns);

} // namespace soran
