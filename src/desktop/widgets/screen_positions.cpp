// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/widgets/screen_positions.h"

#include "base/text.h"

#include <algorithm>

namespace soran {

void ScreenPositions::extend(QStringView text, qsizetype from) {
  for (qsizetype at = text.indexOf(crlf, from); at >= 0; at = text.indexOf(crlf, at + crlf.size()))
    pairs_.push_back(at);
}

qsizetype ScreenPositions::toWidget(qsizetype position) const {
  return position - (std::lower_bound(pairs_.begin(), pairs_.end(), position) - pairs_.begin());
}

qsizetype ScreenPositions::toScreen(qsizetype position) const {
  // The n-th pair, counted from 0, ends its line n positions earlier in the widget.
  qsizetype low = 0;
  auto high = static_cast<qsizetype>(pairs_.size());
  while (low < high) {
    const qsizetype middle = (low + high) / 2;
    if (pairs_[static_cast<size_t>(middle)] - middle < position)
      low = middle + 1;
    else
      high = middle;
  }
  return position + low;
}

} // namespace soran
