// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "screen/untold_text.h"

#include <algorithm>

namespace soran {

namespace {

bool endsLine(QStringView text, qsizetype place) {
  return place == text.size() || text[place] == u'\r' || text[place] == u'\n';
}

} // namespace

QString untoldText(QStringView told, QStringView now) {
  const auto parting = std::mismatch(now.begin(), now.end(), told.begin(), told.end()).first;
  qsizetype from = parting - now.begin();
  if (!endsLine(told, from) || !endsLine(now, from))
    from = now.first(from).lastIndexOf(u'\n') + 1;
  QString lines;
  for (const QStringView line : now.sliced(from).tokenize(u'\n')) {
    const QStringView words = line.trimmed();
    if (words.isEmpty())
      continue;
    if (!lines.isEmpty())
      lines += u'\n';
    lines += words;
  }
  return lines;
}

} // namespace soran
