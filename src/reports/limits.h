// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "reports/element_values.h"
#include "reports/runway_wind.h"
#include "store/rows.h"
#include "store/settings_record.h"

#include <QStringList>
#include <array>
#include <optional>
#include <span>
#include <vector>

namespace soran {

/// The limits of one weather condition. Nothing is beyond a limit that is missing.
struct ConditionLimits {
  std::optional<int> ceiling = {};     ///< feet
  bool testsVertical = false;          ///< a vertical visibility counts as a ceiling
  std::optional<int> visibility = {};  ///< metres
  std::optional<int> runwayRange = {}; ///< metres; that of the visibility where it is missing
  std::optional<int> wind = {};        ///< knots, of the mean speed
  std::optional<int> gust = {};        ///< knots
  std::optional<int> crosswind = {};   ///< knots, on the runway in use
  QStringList weather = {};            ///< words as holdsWeather takes them
};

/// The limits by condition; nothing for one that is not in force.
struct Limits {
  std::array<std::optional<ConditionLimits>, 3> conditions = {};
  std::vector<RunwayEnd> runways = {}; ///< of the airport; without one there is no crosswind

  /// Those of the settings, below which the colouring paints. With 計器気象状態を強調 off no condition is in
  /// force.
  static Limits of(const SettingsRecord& settings);

  /// Those of one airport: what its rows tell over what the rows for all airports tell, both over the
  /// settings. A row that sets a limit brings its condition into force, with the settings' visibility and
  /// ceiling where no row sets these.
  static Limits of(const SettingsRecord& settings, std::span<const AirportLimits> rows,
                   const StationCode& code, std::vector<RunwayEnd> runways);
};

enum class LimitedElement { Visibility, RunwayRange, Ceiling, Wind, Gust, Crosswind, Weather };
inline constexpr std::array allLimitedElements = {
    LimitedElement::Visibility, LimitedElement::RunwayRange, LimitedElement::Ceiling, LimitedElement::Wind,
    LimitedElement::Gust,       LimitedElement::Crosswind,   LimitedElement::Weather};

/// A value that lies beyond a limit, or weather that is not to be.
struct Crossing {
  int condition = 0; ///< from 1
  LimitedElement element = LimitedElement::Visibility;
  int value = 0; ///< metres, feet or knots (a part of one counts as a whole one); 0 of weather
  int limit = 0; ///< in the same unit; 0 of weather
  Words words = {};

  /// The value is greater than its limit, and not less.
  bool isAbove() const { return element >= LimitedElement::Wind && element < LimitedElement::Weather; }
  /// How far beyond, in the same unit.
  int beyond() const { return isAbove() ? value - limit : limit - value; }
  /// The same as a share of the limit: 0 at it, and for weather; of a value below it 1 at nothing.
  double share() const { return limit == 0 ? 0 : double(beyond()) / limit; }
  bool operator==(const Crossing&) const = default;
};

/// The values that lie beyond the limits: of each condition visibility, least runway visual range, ceiling,
/// wind, gust, crosswind and each group of weather, in this order. A limit itself is neither below nor above:
/// visibilities and ceilings count where they are less, winds where they are greater.
std::vector<Crossing> crossings(const ElementValues& values, QStringView text, const Limits& limits);

/// The worst of them: that of the last condition, as its colour stands over those before it, and of these the
/// one that is by the greatest share beyond. Null where there is none.
const Crossing* worstOf(const std::vector<Crossing>& crossings);

/// Whether one is worse than another by the same rule.
bool isWorse(const Crossing& one, const Crossing& other);

} // namespace soran
