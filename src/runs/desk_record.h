// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desk/alarm_book.h"
#include "runs/program.h"

#include <vector>

/// Where the events of the night desk are kept: in the shift log, and with the other desks of an office. What
/// a file cannot take now stays in memory, in its order, until it can.
namespace soran {

/// How long the shift log keeps what happened.
inline constexpr int keptDays = 30;

/// The book of the alarms, made of the shift log when it is first needed.
AlarmBook& bookOf(Program& program);

/// Writes events of the book down, in the running log too.
void record(Program& program, const std::vector<AlarmEvent>& events);

/// The same of what the user did here, which the other desks are told.
void recordAct(Program& program, const std::vector<AlarmEvent>& events);

/// Tries the files again, and takes over what other desks did; each few seconds at most.
void tendRecords(Program& program);

/// The events of the log and those that it does not have yet; `fault` and `unreadable` as the log tells.
ShiftLog::Content allEvents(Program& program);

/// What is wrong with the files, in one line; empty where nothing is.
QString recordNote(const Program& program);

} // namespace soran
