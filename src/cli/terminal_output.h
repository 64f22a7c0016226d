// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/line_editor.h"
#include "cli/screen_printer.h"
#include "platform/shutdown.h"
#include "screen/console.h"

#include <optional>

namespace soran {

/// All that the program shows on the terminal, in order: the news of its screen and lines of other kinds,
/// above the line that the user types.
class TerminalOutput final : public QObject {
  Q_OBJECT
 public:
  TerminalOutput(LineEditor& editor, TerminalStyle style);

  /// Shows the screen of this console from now on.
  void attach(const Console& console);

  enum class Look { Plain, Dim, Bold };
  /// Shows the lines of a text behind what the screen has to show so far.
  void tell(const QString& text, Look look = Look::Plain);
  /// Shows a line in a colour; `base` is the terminal's own.
  void tell(const QString& line, Colour colour, Colour base);
  void ring();
  /// Columns of the terminal; 80 where it tells none.
  int columns() const;

  /// Asks for a line. Nothing where the user ended the input; throws Unwind where the program is closed.
  std::optional<QString> ask(const QString& prompt, const Shutdown& shutdown,
                             const QString& initial = QString());

  /// Shows what is new on the screen, at once.
  void flush();

  /// The user's line ends stand below the screen's last line.
  void noteTypedLine();

 signals:
  void flushWanted();

 private:
  void scheduleFlush();
  void printLines(const QByteArray& lines);

  LineEditor& editor_;
  TerminalStyle style_;
  std::optional<ScreenPrinter> printer_;
  bool scheduled_ = false;
};

} // namespace soran
