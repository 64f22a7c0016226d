// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "reports/element_values.h"

#include <algorithm>
#include <optional>

namespace soran {

/// Walks the groups of a stretch of a text, which blanks and line ends separate. An "=" ends the message: it
/// belongs to no group, and nothing behind it is given. Internal to this folder.
class GroupWalk {
 public:
  GroupWalk(QStringView text, const Words& stretch)
      : text_(text.first(std::clamp<qsizetype>(stretch.end(), 0, text.size()))), at_(stretch.start) {}

  /// The next group; nothing behind the last one.
  std::optional<Words> next() {
    while (at_ < text_.size() && isGap(text_[at_]))
      ++at_;
    const qsizetype start = at_;
    while (at_ < text_.size() && !isGap(text_[at_]) && text_[at_] != u'=')
      ++at_;
    if (at_ < text_.size() && text_[at_] == u'=')
      text_ = text_.first(at_);
    return at_ == start ? std::nullopt : std::optional(Words{start, at_ - start});
  }

 private:
  static bool isGap(QChar c) { return c == u' ' || c == u'\n' || c == u'\r' || c == u'\t'; }

  QStringView text_;
  qsizetype at_;
};

} // namespace soran
