// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/terminal_output.h"

#include "cli/ansi.h"

#include <QStringList>

namespace soran {

using namespace Qt::StringLiterals;

TerminalOutput::TerminalOutput(LineEditor& editor, TerminalStyle style) : editor_(editor), style_(style) {
  connect(&editor, &LineEditor::aboutToShow, this, &TerminalOutput::flush);
  connect(this, &TerminalOutput::flushWanted, this, &TerminalOutput::flush, Qt::QueuedConnection);
  connect(
      &editor, &LineEditor::diagnostic, this, [this](const QString& text) { tell(text, Look::Dim); },
      Qt::QueuedConnection);
}

void TerminalOutput::attach(const Console& console) {
  const Screen& screen = console.screen();
  printer_.emplace(screen, style_);
  connect(&screen, &Screen::replaced, this, [this] {
    printer_->noteReplaced();
    scheduleFlush();
  });
  connect(&screen, &Screen::appended, this, &TerminalOutput::scheduleFlush);
}

/// A writer appends in pieces and paints last: all that it does in one go is shown together.
void TerminalOutput::scheduleFlush() {
  if (!std::exchange(scheduled_, true))
    emit flushWanted();
}

void TerminalOutput::flush() {
  scheduled_ = false;
  if (printer_ && printer_->hasNews())
    editor_.print(printer_->takeNews(LineEditor::columns()));
}

void TerminalOutput::noteTypedLine() {
  if (printer_)
    printer_->noteForeignLine();
}

void TerminalOutput::printLines(const QByteArray& lines) {
  flush();
  noteTypedLine();
  editor_.print(lines);
}

void TerminalOutput::tell(const QString& text, Look look) {
  const QByteArray code = look == Look::Plain ? QByteArray()
                          : look == Look::Dim ? dimCode(style_)
                                              : boldCode(style_);
  QByteArray lines;
  for (const QString& line : linesOf(text)) {
    if (const QString shown = printable(line); !shown.trimmed().isEmpty())
      lines += attributed(code, shown.toUtf8()) + '\n';
  }
  printLines(lines);
}

void TerminalOutput::tell(const QString& line, Colour colour, Colour base) {
  printLines(ansiText(line + u'\n', 0, {{0, line.size() + 1, colour, false}}, base, style_));
}

int TerminalOutput::columns() const {
  constexpr int usualColumns = 80;
  const int columns = LineEditor::columns();
  return columns > 0 ? columns : usualColumns;
}

void TerminalOutput::ring() {
  flush();
  editor_.print("\a");
}

std::optional<QString> TerminalOutput::ask(const QString& prompt, const Shutdown& shutdown,
                                           const QString& initial) {
  flush();
  noteTypedLine();
  return editor_.ask(printable(prompt).toUtf8(), initial, shutdown);
}

} // namespace soran
