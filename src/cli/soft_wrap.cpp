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

/// How far in the rows of a line go on.
int indentOf(QStringView text, qsizetype start) {
  constexpr QStringView behindTitle = u"： ";
  constexpr qsizetype longestTitle = 12;
  const QStringView title = text.sliced(start, std::min(longestTitle, text.size() - start));
  if (const qsizetype colon = title.indexOf(behindTitle); colon > 0)
    return displayWidth(title.first(colon + behindTitle.size()));
  return int(endOf(text, start, true) - start);
}

/// A row that is filled leaves the cursor in it.
int advanced(int column, int width, int columns) {
  const int end = column + width;
  return end > columns ? (end - 1) % columns + 1 : end;
}

} // namespace

SoftWrapped softWrapped(QStringView text, qsizetype from, int columns, int column) {
  constexpr int leastForWords = 3; // of the columns, the indentation takes at most one in so many
  const auto indentAt = [&](qsizetype start) {
    return std::min(indentOf(text, start), columns / leastForWords);
  };
  SoftWrapped wrapped{.column = column};
  int indent = indentAt(lineStart(text, from));
  for (qsizetype at = from; at < text.size();) {
    if (const qsizetype lineEnd = lineEndLength(text, at)) {
      at += lineEnd;
      wrapped.column = 0;
      indent = indentAt(at);
      continue;
    }
    const qsizetype word = endOf(text, at, true);
    const qsizetype end = endOf(text, word, false);
    const int blanks = int(word - at);
    const int width = displayWidth(printable(text.sliced(word, end - word)));
    const bool isTorn = wrapped.column + blanks + width > columns;
    // Ahead of the first word of a line nothing is gained by it.
    if (isTorn && blanks > 0 && end > word && wrapped.column > indent && indent + width <= columns) {
      wrapped.breaks.push_back({at, word, indent});
      wrapped.column = indent + width;
    } else {
      wrapped.column = advanced(wrapped.column, blanks + width, columns);
    }
    at = end;
  }
  return wrapped;
}

} // namespace soran
