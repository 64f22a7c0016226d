// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desk/board.h"
#include "runs/program.h"

namespace soran {

/// A pass of the watch begins. Where more than half an hour went by since the last one, reports may have been
/// missed.
void noteWatch(Program& program);

/// Compares the METARs that came since this was done last, and the TAFs for the hours ahead, those of the
/// automatic list, with the user's limits, where 条件アラーム is on. What changed stands in the running log
/// and in the shift log.
void observeReports(Program& program);

/// Sounds the alarms that are due, where 条件アラーム is on. Waits in the event loop while one sounds.
void ringAlarms(Program& program);

/// The rows of the board, one for each code, in their order.
std::vector<BoardRow> boardRows(Program& program, const QStringList& codes);

/// The codes that a board shows: those of the group of that name, of the automatic list where it is empty;
/// nothing where there is no such group.
std::optional<QStringList> boardCodes(Program& program, const QString& group);

/// The board as text for a terminal of so many columns. Asks for the SIGMETs; waits in the event loop.
QString boardScreenText(Program& program, const QStringList& codes, int columns);

/// Does what ACK and MUTE ask and tells what was done; nothing where the words are none of theirs. "RJTT" or
/// "ALL"; "RJTT", "RJTT 90" (minutes), "RJTT OFF".
std::optional<QString> acknowledgeText(Program& program, const QString& words);
std::optional<QString> muteText(Program& program, const QString& words);

/// Acknowledges the alarm of one airport, as a click does.
void acknowledge(Program& program, const StationCode& code);

} // namespace soran
