// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pictures/meteogram.h"

namespace soran {

struct Program;

/// Asks for METAR and TAF of the station and, where sequences are shown, for the hourly files, and puts them
/// together. Without a network it is what is known. Waits in the event loop; throws Unwind where the program
/// was closed.
Meteogram gatherMeteogram(Program& program, const StationCode& code);

/// The same of what is known already.
Meteogram knownMeteogram(Program& program, const StationCode& code);

} // namespace soran
