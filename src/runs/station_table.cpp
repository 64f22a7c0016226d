// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runs/station_table.h"

#include "base/text.h"

namespace soran {

std::vector<QString> codesOf(QStringView codeList) {
  std::vector<QString> codes;
  for (qsizetype pos = 1; pos <= codeList.size(); pos += 5)
    codes.push_back(mid1(codeList, pos, 4).toString());
  return codes;
}

void StationTable::rebuild(QStringView codeList) {
  rows_.clear();
  for (QString& code : codesOf(codeList))
    rows_.push_back({std::move(code), {}, {}});
}

Station* StationTable::find(QStringView code) {
  for (Station& station : rows_) {
    if (station.stationCode == code)
      return &station;
  }
  return nullptr;
}

} // namespace soran
