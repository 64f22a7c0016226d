// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/limits.h"

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

} // namespace

Limits Limits::of(const SettingsRecord& settings) {
  Limits limits;
  if (settings[key::計器気象状態を強調] != true)
    return limits;
  for (size_t i = 0; i < limits.conditions.size(); ++i) {
    const ConditionKeys& keys = conditionKeys[i];
    if (settings[keys.enabled] == true)
      limits.conditions[i] = ConditionLimits{settings[keys.ceiling], settings[keys.testsVertical] == true,
                                             settings[keys.visibility]};
  }
  return limits;
}

std::vector<Crossing> crossings(const ElementValues& values, const Limits& limits) {
  std::vector<Crossing> crossed;
  int number = 0;
  const auto test = [&](LimitedElement element, int value, std::optional<int> limit, const Words& words) {
    if (limit && value < *limit)
      crossed.push_back({number, element, value, *limit, words});
  };
  const RunwayRange* range = values.leastRunwayRange();
  for (const std::optional<ConditionLimits>& condition : limits.conditions) {
    ++number;
    if (!condition)
      continue;
    if (values.visibility)
      test(LimitedElement::Visibility, values.visibility->metres, condition->visibility,
           values.visibility->words);
    if (range)
      test(LimitedElement::RunwayRange, range->metres, condition->visibility, range->words);
    // Where vertical visibilities do not count, a layer above one still does.
    const Ceiling* layer = values.layer ? &*values.layer : nullptr;
    if (const Ceiling* ceiling = condition->testsVertical ? values.ceiling() : layer)
      test(LimitedElement::Ceiling, ceiling->feet, condition->ceiling, ceiling->words);
  }
  return crossed;
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
