// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desk/board.h"
#include "runs/program.h"

class QPainter;
class QRectF;

namespace soran {

/// Draws lines of a fixed-pitch text in the area, as large as their width and number allow, up to 11 points.
void drawLines(QPainter& painter, const QRectF& area, const QStringList& lines);

/// Prints the board on one A4 page in landscape. The user may be asked for the printer. Throws Unwind where
/// the program was closed meanwhile.
void printBoard(Program& program, const std::vector<BoardRow>& rows, const QString& title);

} // namespace soran
