// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runs/station_table.h"

namespace soran {

void StationTable::rebuild(QStringView codeList) {
  rows_.clear();
  for (StationCode& code : codesOf(codeList))
    rows_.push_back({std::move(code), {}, {}});
}

Station* StationTable::find(const StationCode& code) {
  for (Station& station : rows_) {
    if (station.stationCode == code)
      return &station;
  }
  return nullptr;
}

} // namespace soran
