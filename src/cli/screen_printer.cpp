// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/screen_printer.h"

#include "base/text.h"

#include <algorithm>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

constexpr int widestRule = 72;

} // namespace

void ScreenPrinter::noteReplaced() {
  replaced_ = true;
  replacement_ = screen_.text();
}

void ScreenPrinter::noteForeignLine() {
  if (tail_ == Tail::JustAbove)
    tail_ = Tail::FurtherUp;
}

/// What stands ahead of a replaced text; `printed_` is set to where its news begin.
QByteArray ScreenPrinter::startOver(int columns) {
  replaced_ = false;
  tail_ = Tail::Ended;
  printed_ = 0;
  const QString before = std::exchange(shown_, replacement_);
  if (replacement_.trimmed().isEmpty()) {
    printed_ = replacement_.size();
    tail_ = Tail::FurtherUp;
    return style_.attributes ? "\x1B[H\x1B[2J" : QByteArray();
  }
  // A run that does not clear the screen puts its text behind that of the run before.
  if (!before.trimmed().isEmpty() && replacement_.size() > before.size() && replacement_.startsWith(before)) {
    printed_ = before.size();
    while (const qsizetype lineEnd = lineEndLength(replacement_, printed_))
      printed_ += lineEnd;
  }
  if (!begun_)
    return {};
  const QByteArray rule(std::clamp(columns - 1, 0, widestRule), '-');
  return attributed(dimCode(style_), rule) + '\n';
}

/// What joins an append to the line before it, and in which column that goes on; a line end that was printed
/// already is passed.
QByteArray ScreenPrinter::joint(int columns, int& column) {
  const QString& text = screen_.text();
  const Tail tail = std::exchange(tail_, Tail::Ended);
  if (tail == Tail::Ended)
    return {};
  if (const qsizetype lineEnd = lineEndLength(text, printed_)) {
    printed_ += lineEnd;
    return {};
  }
  if (tail == Tail::FurtherUp || !style_.attributes || columns <= 0)
    return {};
  // A line that fills its row ends where the cursor stands already.
  column = column_ % columns;
  return column == 0 ? QByteArray() : "\x1B[A\x1B[" + QByteArray::number(column + 1) + 'G';
}

QByteArray ScreenPrinter::takeNews(int columns) {
  QByteArray news = replaced_ ? startOver(columns) : QByteArray();
  int column = 0;
  news += joint(columns, column);
  const SoftWrapped wrapped =
      columns > 0 ? softWrapped(screen_.text(), printed_, columns, column) : SoftWrapped();
  column_ = wrapped.column;
  const QByteArray lines =
      ansiText(screen_.text(), printed_, screen_.runs(), screen_.baseColour(), style_, wrapped.breaks);
  printed_ = screen_.text().size();
  begun_ = begun_ || !lines.isEmpty();
  news += lines;
  if (!lines.isEmpty() && !lines.endsWith('\n')) {
    news += '\n';
    tail_ = Tail::JustAbove;
  }
  return news;
}

} // namespace soran
