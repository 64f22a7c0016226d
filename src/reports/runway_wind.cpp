// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/runway_wind.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace soran {

namespace {

constexpr int fullCircle = 360;

double radians(int degrees) {
  return degrees * (2 * std::numbers::pi / fullCircle);
}

double headwindOn(const RunwayEnd& end, int direction, double knots) {
  return knots * std::cos(radians(direction - end.bearing));
}

/// Positive from the right.
double crosswindOn(const RunwayEnd& end, int direction, double knots) {
  return knots * std::sin(radians(direction - end.bearing));
}

std::optional<double> strongestKnots(const Wind& wind) {
  const std::optional<Speed>& strongest = wind.gust ? wind.gust : wind.speed;
  return strongest ? std::optional(comparedKnots(*strongest, wind.unit)) : std::nullopt;
}

/// Takes the wind from one more direction in.
void takeCrosswind(RunwayWind& wind, double fromRight, bool isFirst) {
  using Side = RunwayWind::Side;
  constexpr double nothing = 1e-6;
  const Side side = std::abs(fromRight) < nothing ? Side::Either : fromRight < 0 ? Side::Left : Side::Right;
  wind.side = isFirst || wind.side == side ? side : Side::Either;
  wind.crosswind = std::max(wind.crosswind, std::abs(fromRight));
}

} // namespace

const std::vector<RunwayEnd>& Runways::of(const StationCode& code) {
  const auto [place, isNew] = read_.try_emplace(code.text());
  const QByteArray key = '\n' + code.text().toLatin1() + '\t';
  for (qsizetype at = isNew ? lines_.indexOf(key) : -1; at >= 0 && lines_.mid(at, key.size()) == key;
       at = lines_.indexOf('\n', at + 1)) {
    const qsizetype start = at + key.size();
    const QByteArray line = lines_.mid(start, lines_.indexOf('\n', start) - start);
    const qsizetype tab = line.indexOf('\t');
    place->second.push_back(
        {QString::fromLatin1(line.first(std::max<qsizetype>(tab, 0))), line.sliced(tab + 1).toInt()});
  }
  return place->second;
}

int wholeKnots(double knots) {
  constexpr double noise = 1e-6; // of sines
  return int(std::ceil(knots - noise));
}

double comparedKnots(const Speed& speed, SpeedUnit unit) {
  return inKnots({speed.value + (speed.bound == Bound::Above ? 1 : 0)}, unit);
}

std::optional<RunwayWind> runwayWind(const ElementValues& values, std::span<const RunwayEnd> ends) {
  const std::optional<double> knots = values.wind ? strongestKnots(*values.wind) : std::nullopt;
  if (ends.empty() || knots.value_or(0) == 0)
    return std::nullopt;
  if (values.wind->isVariable)
    return RunwayWind{.crosswind = *knots};
  const std::optional<int> direction = values.wind->direction;
  if (!direction)
    return std::nullopt;
  const auto headwind = [&](const RunwayEnd& end) {
    // To a knot's thousandth, so that parallel runways are equal.
    return std::round(headwindOn(end, *direction, *knots) * 1000);
  };
  const RunwayEnd& best = *std::ranges::max_element(ends, {}, headwind);
  RunwayWind wind{.runway = best.designator, .headwind = headwindOn(best, *direction, *knots)};
  takeCrosswind(wind, crosswindOn(best, *direction, *knots), true);
  if (!values.sector)
    return wind;
  const int span = (values.sector->to - values.sector->from + fullCircle) % fullCircle;
  for (int i = 0; i <= span; ++i)
    takeCrosswind(wind, crosswindOn(best, values.sector->from + i, *knots), false);
  return wind;
}

} // namespace soran
