// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/text.h"

#include <algorithm>
#include <initializer_list>

namespace soran {

/// Takes a group apart from its front. Internal to this folder.
class Scan {
 public:
  explicit Scan(QStringView group) : rest_(group) {}

  /// Takes a word where it is next.
  bool word(QStringView word) {
    if (!rest_.startsWith(word))
      return false;
    rest_ = rest_.sliced(word.size());
    return true;
  }

  /// Takes one of the words, the first that is next; empty where none is.
  QStringView oneOf(std::initializer_list<QStringView> words) {
    const auto* const next =
        std::ranges::find_if(words, [this](QStringView word) { return rest_.startsWith(word); });
    if (next == words.end())
      return {};
    return take(next->size());
  }

  /// Takes figures, the more the better, with one of the letters ahead of them; empty where there are none.
  QStringView figures(qsizetype least, qsizetype most, QStringView ahead = {}) {
    const qsizetype sign = !rest_.isEmpty() && ahead.contains(rest_.front()) ? 1 : 0;
    qsizetype count = 0;
    while (count < most && sign + count < rest_.size() && isAsciiDigit(rest_[sign + count]))
      ++count;
    return count < least ? QStringView() : take(sign + count);
  }

  bool atEnd() const { return rest_.isEmpty(); }

 private:
  QStringView take(qsizetype count) {
    const QStringView taken = rest_.first(count);
    rest_ = rest_.sliced(count);
    return taken;
  }

  QStringView rest_;
};

} // namespace soran
