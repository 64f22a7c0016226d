// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/colour.h"
#include "cli/soft_wrap.h"

#include <QByteArray>
#include <QString>
#include <vector>

namespace soran {

/// How many colours a terminal shows.
enum class ColourDepth { None, Sixteen, Indexed, True };

/// What a terminal understands.
struct TerminalStyle {
  ColourDepth depth = ColourDepth::None;
  bool attributes = false; ///< bold, dim and movements of the cursor

  bool operator==(const TerminalStyle&) const = default;
};

/// The style of a terminal by its environment: TERM, COLORTERM and NO_COLOR.
TerminalStyle terminalStyle(const QByteArray& term, const QByteArray& colorTerm, const QByteArray& noColor);

/// The sequence that switches to a colour and weight; empty for plain text in `base`, which is shown in the
/// terminal's own colour so that it is legible on any ground.
QByteArray attributeCode(Colour colour, bool bold, Colour base, TerminalStyle style);

/// The sequences for a dim and for a bold line, empty where the terminal knows none.
QByteArray dimCode(TerminalStyle style);
QByteArray boldCode(TerminalStyle style);

/// The text behind an attribute sequence, which may be empty, and plain again after it.
QByteArray attributed(const QByteArray& code, const QByteArray& text);

/// The text as it may reach a terminal: a tab is a blank, and what has no shape of its own (controls,
/// directional and other format characters, separators, halves of a pair) is a middle dot.
QString printable(QStringView text);

/// The length of the line end at a position: 2 for CR LF, 1 for a lone CR or LF, 0 for none.
qsizetype lineEndLength(QStringView text, qsizetype at);

/// The lines of a text whose lines end with CR LF, LF or CR.
QStringList linesOf(const QString& text);

/// The text from `from` on with the attributes of `runs` (which cover the whole text), printable, with LF
/// line ends. No attribute reaches over a line end. At the breaks, which are in their order, it goes on in a
/// new line.
QByteArray ansiText(const QString& text, qsizetype from, const std::vector<AttributeRun>& runs, Colour base,
                    TerminalStyle style, const std::vector<SoftBreak>& breaks = {});

} // namespace soran
