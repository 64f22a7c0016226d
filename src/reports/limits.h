// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "reports/element_values.h"
#include "store/settings_record.h"

#include <array>
#include <optional>
#include <vector>

namespace soran {

/// The limits of one weather condition. A limit that is missing is never undercut.
struct ConditionLimits {
  std::optional<int> ceiling = {};    ///< feet
  bool testsVertical = false;         ///< a vertical visibility counts as a ceiling
  std::optional<int> visibility = {}; ///< metres, of runway visual ranges too
};

/// The limits below which the colouring paints, by condition; nothing for one that is not in force.
struct Limits {
  std::array<std::optional<ConditionLimits>, 3> conditions = {};

  /// Those of the settings. With 計器気象状態を強調 off no condition is in force.
  static Limits of(const SettingsRecord& settings);
};

enum class LimitedElement { Visibility, RunwayRange, Ceiling };

/// A value that lies below a limit.
struct Crossing {
  int condition = 0; ///< from 1
  LimitedElement element = LimitedElement::Visibility;
  int value = 0; ///< metres or feet
  int limit = 0; ///< in the same unit, greater than the value
  Words words = {};

  /// How far below, in the same unit.
  int below() const { return limit - value; }
  /// The same as a share of the limit: 0 at it, 1 at nothing.
  double share() const { return double(below()) / limit; }
  bool operator==(const Crossing&) const = default;
};

/// The values that lie below the limits: of each condition visibility, least runway visual range and ceiling,
/// in this order. A limit itself is not yet below.
std::vector<Crossing> crossings(const ElementValues& values, const Limits& limits);

/// The worst of them: that of the last condition, as its colour stands over those before it, and of these the
/// one that is by the greatest share below. Null where there is none.
const Crossing* worstOf(const std::vector<Crossing>& crossings);

/// Whether one is worse than another by the same rule.
bool isWorse(const Crossing& one, const Crossing& other);

} // namespace soran
