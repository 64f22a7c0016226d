// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/text.h"
#include "reports/colouring_words.h"

#include <optional>

/// How a figure that is compared with a limit is read where it stands. The colouring reads so at every hit of
/// its scans, the element values at the groups of a report: both judge by the same numbers. Internal to this
/// folder. All of it is inline, because a screen's text has thousands of hits.
namespace soran {

/// A figure of a report, and the stretch that stands out where it is below a limit.
struct LimitReading {
  Position1 pos;
  qsizetype length;
  double value;
};

/// Four figures at `pos`: metres.
inline std::optional<LimitReading> fourFiguresAt(QStringView text, Position1 pos) {
  int value = 0;
  for (Position1 i = pos; i < pos + 4; i = i + 1) {
    const QChar c = at1(text, i);
    if (!isAsciiDigit(c))
      return std::nullopt;
    value = value * 10 + (c.unicode() - u'0');
  }
  return LimitReading{pos, 4, static_cast<double>(value)};
}

/// The stretch of a ceiling, with the eighths ahead of the word of such a form.
inline qsizetype ceilingLength(const colouring::CeilingForm& form) {
  return form.word.size() + 3 + (form.oktas ? 1 : 0);
}

/// The height behind the word of the form at `pos`: hundreds of feet. Nothing where it is no ceiling.
inline std::optional<LimitReading> ceilingAt(QStringView text, const colouring::CeilingForm& form,
                                             Position1 pos) {
  if (form.oktas && leadingNumber(mid1(text, pos - 1, 1)) < 5)
    return std::nullopt;
  const QStringView height = mid1(text, pos + form.word.size(), 3);
  if (form.mayBeUnknown && height == u"///")
    return std::nullopt;
  return LimitReading{pos - (form.oktas ? 1 : 0), ceilingLength(form), leadingNumber(height)};
}

/// Calls `take` for all four figures from the runway's letter at `pos` to the next blank: metres. Gives where
/// that is.
template <class Take>
inline Position1 readRunwayRanges(QStringView text, Position1 pos, Take take) {
  const Position1 blank = find1(text, colouring::groupGap, pos);
  const Position1 end = blank ? blank : Position1::ofIndex(text.size());
  for (Position1 i = pos; i + 4 <= end; i = i + 1) {
    if (const std::optional<LimitReading> reading = fourFiguresAt(text, i))
      take(*reading);
  }
  return end;
}

} // namespace soran
