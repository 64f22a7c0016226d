// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desk/board.h"

/// What a row of the board shows in each column.
namespace soran::cell {

QString state(const BoardRow& row, const QDateTime& now);
QString alarm(const BoardRow& row, const QDateTime& now);
QString code(const BoardRow& row, const QDateTime& now);
QString name(const BoardRow& row, const QDateTime& now);
QString report(const BoardRow& row, const QDateTime& now); ///< "METAR 0430Z"
QString age(const BoardRow& row, const QDateTime& now);    ///< "12m", "1h05 OVERDUE"
QString wind(const BoardRow& row, const QDateTime& now);   ///< as reported
/// "34L H12 R5": the runway in use, headwind, and crosswind with the side that it comes from, in knots; X for
/// either side. "VRB X8" where no runway is the best one.
QString runway(const BoardRow& row, const QDateTime& now);
QString visibility(const BoardRow& row, const QDateTime& now);
QString weather(const BoardRow& row, const QDateTime& now);
QString ceiling(const BoardRow& row, const QDateTime& now); ///< with its amount, as reported
QString temperatures(const BoardRow& row, const QDateTime& now);
/// Hectopascals behind a Q, without which the colouring takes them for a visibility.
QString qnh(const BoardRow& row, const QDateTime& now);
/// "VIS0800 18Z"; `place` from 0 in outlookHours.
QString outlook(const BoardRow& row, int place);
QString sigmet(const BoardRow& row, const QDateTime& now);
QString source(const BoardRow& row, const QDateTime& now);
/// The elements that went up or down against the report before:
/// "VIS↓ CIG↑".
QString changes(const BoardRow& row, const QDateTime& now);

} // namespace soran::cell
