// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/weather_words.h"

#include "reports/colouring_words.h"

#include <algorithm>

namespace soran {

namespace {

constexpr qsizetype pairLength = 2;

bool hasSign(QStringView group) {
  return group.startsWith(u'+') || group.startsWith(u'-');
}

QStringView pairsOf(QStringView group) {
  return hasSign(group) ? group.sliced(1) : group;
}

bool isPairOfWeather(QStringView pair) {
  // Precipitation of an unknown kind, of automatic stations (WMO No. 306, code table 4678).
  return pair == u"UP" ||
         std::ranges::any_of(colouring::weatherWords, [pair](const colouring::WeatherWord& word) {
           return word.word == pair && word.emphasis == colouring::Emphasis::Own;
         });
}

bool hasPair(QStringView pairs, QStringView wanted) {
  for (; !pairs.isEmpty(); pairs = pairs.sliced(pairLength)) {
    if (pairs.startsWith(wanted))
      return true;
  }
  return false;
}

} // namespace

bool isWeatherGroup(QStringView group) {
  QStringView pairs = pairsOf(group);
  if (pairs.isEmpty() || pairs.size() % pairLength != 0 || pairs.startsWith(u"RE"))
    return false;
  for (; !pairs.isEmpty(); pairs = pairs.sliced(pairLength)) {
    if (!isPairOfWeather(pairs.first(pairLength)))
      return false;
  }
  return true;
}

bool holdsWeather(QStringView group, QStringView word) {
  if (!isWeatherGroup(group) || !isWeatherGroup(word) || (hasSign(word) && group.front() != word.front()))
    return false;
  const QStringView pairs = pairsOf(group);
  for (QStringView wanted = pairsOf(word); !wanted.isEmpty(); wanted = wanted.sliced(pairLength)) {
    if (!hasPair(pairs, wanted.first(pairLength)))
      return false;
  }
  return true;
}

} // namespace soran
