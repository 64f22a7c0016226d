// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/limits.h"

#include "reports/weather_words.h"

#include <algorithm>
#include <cmath>

namespace soran {

namespace {

struct ConditionKeys {
  SettingKey<SettingType::YesNo> enabled;
  SettingKey<SettingType::YesNo> testsVertical;
  SettingKey<SettingType::Integer> ceiling;
  SettingKey<SettingType::Integer> visibility;
};

constexpr ConditionKeys conditionKeys[] = {
    {key::条件1有効, key::鉛直視程1有効, key::雲高1, key::視程1},
    {key::条件2有効, key::鉛直視程2有効, key::雲高2, key::視程2},
    {key::条件3有効, key::鉛直視程3有効, key::雲高3, key::視程3},
};

/// Puts what a row tells over the limits of its condition.
void takeOver(ConditionLimits& limits, const AirportLimits& row) {
  const auto over = [](std::optional<int>& limit, const std::optional<int>& own) {
    if (own)
      limit = own;
  };
  over(limits.visibility, row.visibility);
  over(limits.runwayRange, row.runwayRange);
  over(limits.ceiling, row.ceiling);
  over(limits.wind, row.wind);
  over(limits.gust, row.gust);
  over(limits.crosswind, row.crosswind);
  if (!row.weather.isEmpty())
    limits.weather = row.weather.split(u' ', Qt::SkipEmptyParts);
}

bool setsSomething(const AirportLimits& row) {
  return !(row == AirportLimits{.code = row.code, .condition = row.condition});
}

ConditionLimits settingsOf(const SettingsRecord& settings, size_t condition) {
  const ConditionKeys& keys = conditionKeys[condition];
  return {.ceiling = settings[keys.ceiling],
          .testsVertical = settings[keys.testsVertical] == true,
          .visibility = settings[keys.visibility]};
}

/// Compares the values of one report with the limits of one condition after the other.
class Comparison {
 public:
  Comparison(const ElementValues& values, QStringView text, std::span<const RunwayEnd> runways)
      : values_(values), text_(text), range_(values.leastRunwayRange()) {
    if (const std::optional<RunwayWind> wind = runwayWind(values, runways))
      crosswind_ = wind->crosswind;
  }

  void take(int condition, const ConditionLimits& limits) {
    condition_ = condition;
    takeSight(limits);
    takeWind(limits);
    takeWeather(limits.weather);
  }
  std::vector<Crossing> crossed;

 private:
  void takeSight(const ConditionLimits& limits);
  void takeWind(const ConditionLimits& limits);
  void takeWeather(const QStringList& words);
  void below(LimitedElement element, int value, std::optional<int> limit, const Words& words) {
    if (limit && value < *limit)
      crossed.push_back({condition_, element, value, *limit, words});
  }
  void above(LimitedElement element, std::optional<double> knots, std::optional<int> limit) {
    if (limit && knots && wholeKnots(*knots) > *limit)
      crossed.push_back({condition_, element, wholeKnots(*knots), *limit, values_.wind->words});
  }

  const ElementValues& values_;
  QStringView text_;
  const RunwayRange* range_;
  std::optional<double> crosswind_ = {};
  int condition_ = 0;
};

void Comparison::takeSight(const ConditionLimits& limits) {
  using Element = LimitedElement;
  if (values_.visibility)
    below(Element::Visibility, values_.visibility->metres, limits.visibility, values_.visibility->words);
  if (range_)
    below(Element::RunwayRange, range_->metres, limits.runwayRange ? limits.runwayRange : limits.visibility,
          range_->words);
  // Where vertical visibilities do not count, a layer above one still does.
  const Ceiling* layer = values_.layer ? &*values_.layer : nullptr;
  if (const Ceiling* ceiling = limits.testsVertical ? values_.ceiling() : layer)
    below(Element::Ceiling, ceiling->feet, limits.ceiling, ceiling->words);
}

void Comparison::takeWind(const ConditionLimits& limits) {
  if (!values_.wind)
    return;
  const auto knots = [unit = values_.wind->unit](const std::optional<Speed>& speed) {
    return speed ? std::optional(comparedKnots(*speed, unit)) : std::nullopt;
  };
  above(LimitedElement::Wind, knots(values_.wind->speed), limits.wind);
  above(LimitedElement::Gust, knots(values_.wind->gust), limits.gust);
  above(LimitedElement::Crosswind, crosswind_, limits.crosswind);
}

void Comparison::takeWeather(const QStringList& words) {
  for (const Words& group : values_.weather) {
    const auto isHeld = [view = group.in(text_)](const QString& word) { return holdsWeather(view, word); };
    if (std::ranges::any_of(words, isHeld))
      crossed.push_back({.condition = condition_, .element = LimitedElement::Weather, .words = group});
  }
}

} // namespace

Limits Limits::of(const SettingsRecord& settings) {
  return of(settings, {}, {}, {});
}

Limits Limits::of(const SettingsRecord& settings, std::span<const AirportLimits> rows,
                  const StationCode& code, std::vector<RunwayEnd> runways) {
  Limits limits{.runways = std::move(runways)};
  for (size_t i = 0; i < limits.conditions.size(); ++i) {
    ConditionLimits merged = settingsOf(settings, i);
    bool inForce = settings[key::計器気象状態を強調] == true && settings[conditionKeys[i].enabled] == true;
    for (const QStringView whose : {QStringView(allAirports), QStringView(code.text())}) {
      for (const AirportLimits& row : rows) {
        if (row.code != whose || row.condition != int(i) + 1 || !setsSomething(row))
          continue;
        takeOver(merged, row);
        inForce = true;
      }
    }
    if (inForce)
      limits.conditions[i] = std::move(merged);
  }
  return limits;
}

std::vector<Crossing> crossings(const ElementValues& values, QStringView text, const Limits& limits) {
  Comparison comparison(values, text, limits.runways);
  int number = 0;
  for (const std::optional<ConditionLimits>& condition : limits.conditions) {
    ++number;
    if (condition)
      comparison.take(number, *condition);
  }
  return std::move(comparison.crossed);
}

bool isWorse(const Crossing& one, const Crossing& other) {
  return one.condition != other.condition ? one.condition > other.condition : one.share() > other.share();
}

const Crossing* worstOf(const std::vector<Crossing>& crossings) {
  const Crossing* worst = nullptr;
  for (const Crossing& crossing : crossings) {
    if (!worst || isWorse(crossing, *worst))
      worst = &crossing;
  }
  return worst;
}

} // namespace soran
