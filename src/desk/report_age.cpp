// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desk/report_age.h"

#include "base/report_rules.h"

#include <algorithm>

namespace soran {

namespace {

constexpr qint64 toleranceMinutes = 15;
constexpr qint64 minutesOfDay = qint64(24) * 60;

bool holdsOneBetween(std::span<const QDateTime> times, const QDateTime& from, const QDateTime& to) {
  return std::ranges::any_of(times, [&](const QDateTime& time) { return time >= from && time <= to; });
}

} // namespace

int reportingInterval(std::span<const QDateTime> times) {
  constexpr qint64 halfHour = qint64(30) * 60;
  for (const QDateTime& time : times) {
    const auto follows = [&](const QDateTime& other) {
      return isRoutine(other) && std::abs(time.secsTo(other) - halfHour) <= qint64(5) * 60;
    };
    if (isRoutine(time) && std::ranges::any_of(times, follows))
      return 30;
  }
  return 60;
}

Freshness freshnessOf(std::span<const QDateTime> times, const QDateTime& watchedSince, const QDateTime& now) {
  if (times.empty())
    return Freshness::Unknown;
  const qint64 longest = reportingInterval(times) + toleranceMinutes;
  const QDateTime newest = *std::ranges::max_element(times);
  const qint64 age = newest.secsTo(now) / 60;
  if (age <= longest)
    return Freshness::Current;
  // The report that is missed now, a day ago.
  const QDateTime from = now.addSecs(-(minutesOfDay + longest) * 60);
  const QDateTime to = now.addSecs(-minutesOfDay * 60);
  const bool known = watchedSince.isValid() && watchedSince <= from && age < minutesOfDay;
  return known && !holdsOneBetween(times, from, to) ? Freshness::Closed : Freshness::Overdue;
}

} // namespace soran
