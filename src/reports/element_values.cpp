// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/element_values.h"

#include <algorithm>

namespace soran {

using namespace Qt::StringLiterals;

const RunwayRange* ElementValues::leastRunwayRange() const {
  const auto least = std::ranges::min_element(runwayRanges, {}, &RunwayRange::metres);
  return least == runwayRanges.end() ? nullptr : &*least;
}

bool ElementValues::isEmpty() const {
  ElementValues read = *this;
  read.unread.clear();
  read.directional.reset();
  return read == ElementValues();
}

const Ceiling* ElementValues::ceiling() const {
  if (layer && vertical)
    return vertical->feet < layer->feet ? &*vertical : &*layer;
  return layer ? &*layer : vertical ? &*vertical : nullptr;
}

std::vector<Words> ElementValues::allWords() const {
  std::vector<Words> all;
  const auto add = [&all](const auto& element) {
    if (element)
      all.push_back(element->words);
  };
  add(wind);
  add(sector);
  if (cavok)
    all.push_back(*cavok);
  add(visibility);
  for (const RunwayRange& range : runwayRanges)
    all.push_back(range.words);
  all.insert(all.end(), weather.begin(), weather.end());
  if (noWeather)
    all.push_back(*noWeather);
  all.insert(all.end(), clouds.begin(), clouds.end());
  add(temperatures);
  add(pressure);
  return all;
}

ElementValues mergedOver(const ElementValues& earlier, const ElementValues& later) {
  ElementValues merged = earlier;
  const auto over = [](auto& value, const auto& newer) {
    if (newer)
      value = newer;
  };
  if (later.wind)
    merged.sector = later.sector;
  over(merged.wind, later.wind);
  over(merged.sector, later.sector);
  over(merged.temperatures, later.temperatures);
  over(merged.pressure, later.pressure);
  if (later.cavok || later.visibility)
    merged.visibility = later.visibility;
  if (later.cavok || later.visibility || !later.runwayRanges.empty())
    merged.runwayRanges = later.runwayRanges;
  if (later.cavok || later.noWeather || !later.weather.empty()) {
    merged.weather = later.weather;
    merged.hidesWeather = later.hidesWeather;
    merged.noWeather = later.noWeather;
  }
  if (later.cavok || !later.clouds.empty()) {
    merged.clouds = later.clouds;
    merged.layer = later.layer;
    merged.vertical = later.vertical;
    merged.hidesCeiling = later.hidesCeiling;
    merged.unknownCeiling = later.unknownCeiling;
  }
  const bool endsCavok = later.visibility || !later.weather.empty() || !later.clouds.empty();
  if (earlier.cavok && !later.cavok && endsCavok) {
    // What it said of the others still holds.
    if (!later.visibility)
      merged.visibility = Visibility{tenKilometresAndMore, Bound::Above, *earlier.cavok};
    if (later.clouds.empty())
      merged.clouds = {*earlier.cavok};
  }
  if (later.cavok || endsCavok)
    merged.cavok = later.cavok;
  return merged;
}

QString joinedWords(QStringView text, const std::vector<Words>& groups) {
  QString joined;
  for (const Words& group : groups)
    joined += (joined.isEmpty() ? QString() : u" "_s) + group.in(text);
  return joined;
}

double inKnots(const Speed& speed, SpeedUnit unit) {
  constexpr double metresPerSecondAKnot = 1852.0 / 3600;
  constexpr double kilometresPerHourAKnot = 1.852;
  if (unit == SpeedUnit::MetresPerSecond)
    return speed.value / metresPerSecondAKnot;
  return unit == SpeedUnit::KilometresPerHour ? speed.value / kilometresPerHourAKnot : speed.value;
}

} // namespace soran
