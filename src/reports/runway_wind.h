// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/station_code.h"
#include "reports/element_values.h"

#include <QByteArray>
#include <QString>
#include <map>
#include <optional>
#include <span>
#include <vector>

namespace soran {

/// One direction of a runway.
struct RunwayEnd {
  QString designator = {}; ///< "34L"
  int bearing = 0;         ///< in which one lands, degrees true

  bool operator==(const RunwayEnd&) const = default;
};

/// The runways of the world's airports, read for an airport when they are first asked for.
class Runways {
 public:
  Runways() = default;
  /// Lines of code, tab, designator, tab, bearing; the lines of an airport stand together. The first line is
  /// none of them.
  explicit Runways(QByteArray lines) : lines_(std::move(lines)) {}

  /// Empty where none is known.
  const std::vector<RunwayEnd>& of(const StationCode& code);

 private:
  QByteArray lines_;
  std::map<QString, std::vector<RunwayEnd>> read_; // by code
};

/// The wind along and across the runway in use.
struct RunwayWind {
  enum class Side { Left, Right, Either };

  QString runway = {};      ///< empty where the direction is variable and no runway is the best one
  double headwind = 0;      ///< knots; 0 where no runway is the best one
  double crosswind = 0;     ///< knots, the worst of the directions that are reported
  Side side = Side::Either; ///< from which it blows; either where the directions differ
};

/// The wind on the end with the greatest headwind, the first one of equal ones (of parallel runways). The
/// speed is that of the gusts where there are any, else the mean one. The direction of a METAR or TAF is in
/// degrees true (WMO No. 306, FM 15 and FM 51), as the bearings are. Where it varies between two directions
/// (310V010) the crosswind is the greatest between them; with VRB all of the speed counts as crosswind.
/// Nothing for a calm, where direction or speed is missing, and without runways.
std::optional<RunwayWind> runwayWind(const ElementValues& values, std::span<const RunwayEnd> ends);

/// A speed in knots as it is compared with a limit: one above what its figures hold counts as one unit more.
double comparedKnots(const Speed& speed, SpeedUnit unit);

/// Knots as they are shown and compared: a part of one counts as a whole one, so that nothing is told late.
int wholeKnots(double knots);

} // namespace soran
