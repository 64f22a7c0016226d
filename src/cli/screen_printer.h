// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/ansi.h"
#include "screen/screen.h"

namespace soran {

/// Tells what a terminal that only grows at its end has to print so that it shows what the screen shows: the
/// new text after an append; a rule and the whole text, or what was added to it, after a replacement; a
/// cleared terminal after a clearing.
class ScreenPrinter {
 public:
  ScreenPrinter(const Screen& screen, TerminalStyle style) : screen_(screen), style_(style) {}

  /// The screen's text was replaced.
  void noteReplaced();

  /// Something else was printed below the screen's last line, so that this line cannot be continued any more.
  void noteForeignLine();

  bool hasNews() const { return replaced_ || printed_ < screen_.text().size(); }

  /// What is to be printed now, from a line's beginning, on a terminal of so many columns. It leaves the
  /// cursor at a line's beginning.
  QByteArray takeNews(int columns);

 private:
  /// Where the screen's last line stands.
  enum class Tail {
    Ended,     ///< it has its line end
    JustAbove, ///< it has none yet, and the cursor stands on the line below it
    FurtherUp, ///< it has none yet, and cannot be continued: other lines were printed since
  };

  QByteArray startOver(int columns);
  QByteArray joint(int columns, int& column);

  const Screen& screen_;
  TerminalStyle style_;
  qsizetype printed_ = 0;
  bool replaced_ = false;
  bool begun_ = false;
  QString replacement_; // the text of the last replacement
  QString shown_;       // the one before it that was printed
  Tail tail_ = Tail::Ended;
  int column_ = 0; // in which the last line ended
};

} // namespace soran
