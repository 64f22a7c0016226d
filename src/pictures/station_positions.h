// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "reports/sigmet.h"

#include <QByteArrayView>
#include <QStringView>
#include <array>
#include <optional>
#include <vector>

namespace soran {

/// Where the stations of the world lie: Japanese fields by AIP Japan, others by the list that is delivered.
class StationPositions {
 public:
  /// The list as a file: code, tab, degrees north, tab, degrees east, each line ended by LF; others are
  /// passed over.
  explicit StationPositions(QByteArrayView list = {});

  /// Of an upper-case ICAO code; nothing where it is not known.
  std::optional<EarthPosition> find(QStringView code) const;

 private:
  using Code = std::array<char, 4>;
  struct Row {
    Code code;
    float latitude;
    float longitude;
  };
  std::vector<Row> rows_; // in the order of their codes
};

/// A position in whole minutes, as reports write it: "3533N 13947E".
QString positionText(const EarthPosition& position);

} // namespace soran
