// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runs/source_health.h"

#include <algorithm>

namespace soran {

QDateTime SourceHealth::awayUntil(size_t source, const QDateTime& now) const {
  const auto state = states_.find(source);
  return state != states_.end() && now < state->second.until ? state->second.until : QDateTime();
}

void SourceHealth::tell(size_t source, int asked, int failed, const QDateTime& now) {
  constexpr int minute = 60;
  constexpr int longest = 30 * minute;
  constexpr int mostDoublings = 5;
  State& state = states_[source];
  if (asked == 0)
    return;
  if (failed * 2 <= asked) {
    state = {};
    return;
  }
  state.until = now.addSecs(std::min(longest, minute << std::min(state.failures, mostDoublings)));
  ++state.failures;
}

} // namespace soran
