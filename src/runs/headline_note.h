// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QString>

namespace soran {

struct Program;

/// How long ago `time` was, in whole minutes: "3 h 20 min OLD". Of a time ahead it is "0 min OLD".
QString ageText(const QDateTime& time, const QDateTime& now);

/// What is known of the report under the headline ("RJTT  METAR 1030I") in whose line the position (from 0)
/// of the screen's text lies: its age, who served it, and when it was asked for, in UTC. Empty anywhere else,
/// and where the report is not of this run of the program.
QString headlineNote(const Program& program, qsizetype at);

/// How old the METARs of the watched airports are: the oldest, and those of which the next one is missed.
/// Empty where none is known.
QString watchNote(Program& program);

} // namespace soran
