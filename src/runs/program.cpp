// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runs/program.h"

namespace soran {

Limits Program::limitsOf(const StationCode& code) {
  if (!limits_.runways)
    limits_.runways.emplace(services.runways());
  if (limits_.revision != tables.revision()) {
    limits_.rows = tables.limitRows();
    limits_.revision = tables.revision();
  }
  return Limits::of(record(), limits_.rows, code, limits_.runways->of(code));
}

QString Program::connectedText() const {
  const std::vector<ReportSource> sources = services.endpoints.reportSources();
  const bool away = sources.size() > 1 && sourceHealth.isAway(0, services.clock.now());
  return away ? panelConnected + u" (" + sources.front().name + u" 応答なし)" : panelConnected.toString();
}

} // namespace soran
