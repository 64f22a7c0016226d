// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/soft_wrap.h"

#include "base/text.h"
#include "cli/ansi.h"

#include <algorithm>

namespace soran {

namespace {

bool isBlank(QChar c) {
  return c == u' ' || c == u'\t';
}

qsizetype endOf(QStringView text, qsizetype at, bool blanks) {
  while (at < text.size() && lineEndLength(text, at) == 0 && isBlank(text[at]) == blanks)
    ++at;
  return at;
}

qsizetype lineStart(QStringView text, qsizetype at) {
  while (at > 0 && lineEndLength(text, at - 1) == 0)
    --at;
  return at;
}

} // namespace

void SoftWrap::beginLine(QStringView text, qsizetype at) {
  constexpr QStringView behindTitle = u"： ";
  constexpr qsizetype longestTitle = 12;
  indent_ = int(endOf(text, at, true) - at);
  const QStringView title = text.sliced(at, std::min(longestTitle, text.size() - at));
  if (const qsizetype colon = title.indexOf(behindTitle); colon > 0)
    indent_ = displayWidth(title.first(colon + behindTitle.size()));
}

/// A row that is filled leaves the cursor in it.
void SoftWrap::advance(int width, int columns) {
  column_ += width;
  if (column_ > columns)
    column_ = (column_ - 1) % columns + 1;
}

std::vector<SoftBreak> SoftWrap::breaksFrom(QStringView text, qsizetype from, int columns, int column) {
  constexpr int leastForWords = 3; // of the columns, the indentation takes at most one in so many
  std::vector<SoftBreak> breaks;
  column_ = column;
  beginLine(text, lineStart(text, from));
  for (qsizetype at = from; at < text.size();) {
    if (const qsizetype lineEnd = lineEndLength(text, at)) {
      at += lineEnd;
      column_ = 0;
      beginLine(text, at);
      continue;
    }
    const qsizetype word = endOf(text, at, true);
    const qsizetype end = endOf(text, word, false);
    const int blanks = int(word - at);
    const int width = displayWidth(printable(text.sliced(word, end - word)));
    const int indent = std::min(indent_, columns / leastForWords);
    const bool isTorn = column_ + blanks + width > columns;
    // Ahead of the first word of a line nothing is gained by it.
    if (isTorn && blanks > 0 && end > word && column_ > indent && indent + width <= columns) {
      breaks.push_back({at, word, indent});
      column_ = indent + width;
    } else {
      advance(blanks + width, columns);
    }
    at = end;
  }
  return breaks;
}

} // namespace soran
