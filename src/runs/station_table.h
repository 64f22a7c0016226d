// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/stamp.h"
#include "base/station_code.h"

#include <vector>

namespace soran {

/// A station of the list that is watched, with the stamps of the files seen last.
struct Station {
  StationCode stationCode;
  Stamp metarStamp;
  Stamp tafStamp;
};

/// The stations of the last full load, in the order of its list.
class StationTable {
 public:
  /// Makes a row with empty stamps for each code of the list (codes at positions 1, 6, 11, ...).
  void rebuild(QStringView codeList);

  int stationCount() const { return int(rows_.size()); }

  /// The row of a code, the first of equal ones; null where it is not in the table.
  Station* find(const StationCode& code);

  std::vector<Station>& rows() { return rows_; }

 private:
  std::vector<Station> rows_;
};

} // namespace soran
