// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "runs/program.h"

namespace soran {

class Terminal;

/// The text of the start-up banner; lines end with CR.
QString bannerText(const SettingsRecord& settings);

/// Writes the screen of the start and sets the state of the runs back. `notice` is a line that the start has
/// to tell.
void loadTerminal(Program& program, const QString& notice);

/// The version check, the log and the timers: the terminal takes input behind it. Throws Unwind where the
/// program was closed meanwhile.
void activateTerminal(Terminal& terminal);

} // namespace soran
