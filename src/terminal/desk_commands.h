// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace soran {

class Terminal;

/// The commands of the night desk: BOARD, MAP, ACK, MUTE and SHIFT, each with its words. False where the line
/// is none of them.
bool runDeskCommand(Terminal& terminal, const QString& line);

/// Shows the board of the group of that name, of the automatic list where it is empty: its form, or lines on
/// the screen where there are no windows. False where there is no such group.
bool showBoard(Terminal& terminal, const QString& group);

/// The same with the map, which asks for the SIGMETs; waits in the event loop.
bool showMap(Terminal& terminal, const QString& group);

/// Shows the graph of a station: its form, or a table on the screen where there are no windows. Waits in the
/// event loop.
void showGraph(Terminal& terminal, const QString& code);

} // namespace soran
