// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desk/report_age.h"

#include "base/utc.h"

#include <gtest/gtest.h>

using namespace soran;

namespace {

QDateTime at(int day, int hour, int minute) {
  return inUtc(QDate(2026, 11, day), QTime(hour, minute));
}

/// Hourly reports of a station that is closed from 13 to 22 UTC.
std::vector<QDateTime> daysOfAClosingStation() {
  std::vector<QDateTime> times;
  for (int hour = 0; hour <= 13; ++hour)
    times.push_back(at(23, hour, 0));
  times.push_back(at(23, 22, 0));
  times.push_back(at(23, 23, 0));
  for (int hour = 0; hour <= 13; ++hour)
    times.push_back(at(24, hour, 0));
  return times;
}

} // namespace

TEST(ReportAge, LearnsTheRhythmFromRoutineReportsAlone) {
  EXPECT_EQ(reportingInterval({}), 60);
  EXPECT_EQ(reportingInterval(std::vector{at(24, 5, 0), at(24, 6, 0)}), 60);
  EXPECT_EQ(reportingInterval(std::vector{at(24, 6, 0), at(24, 5, 30)}), 30);
  // A special report in between, and one that stands half an hour from another.
  EXPECT_EQ(reportingInterval(std::vector{at(24, 5, 0), at(24, 5, 27), at(24, 5, 42), at(24, 6, 0)}), 60);
}

TEST(ReportAge, TellsOverdueFromClosed) {
  const std::vector<QDateTime> halfHourly = {at(24, 4, 30), at(24, 5, 0)};
  const QDateTime longAgo = at(22, 0, 0);
  EXPECT_EQ(freshnessOf({}, longAgo, at(24, 5, 0)), Freshness::Unknown);
  EXPECT_EQ(freshnessOf(halfHourly, longAgo, at(24, 5, 45)), Freshness::Current);
  EXPECT_EQ(freshnessOf(halfHourly, longAgo, at(24, 5, 46)), Freshness::Closed);
  // Of yesterday nothing is known.
  EXPECT_EQ(freshnessOf(halfHourly, at(24, 4, 0), at(24, 5, 46)), Freshness::Overdue);

  const std::vector<QDateTime> closing = daysOfAClosingStation();
  const std::pair<QDateTime, Freshness> cases[] = {
      {at(24, 14, 15), Freshness::Current},
      {at(24, 14, 16), Freshness::Closed}, // at 14 there was none a day before either
      {at(24, 16, 0), Freshness::Closed},
      {at(24, 21, 59), Freshness::Closed},
      {at(24, 22, 0), Freshness::Overdue}, // it opens at 22
      {at(25, 16, 0), Freshness::Overdue}, // silent for more than a day
  };
  for (const auto& [now, expected] : cases)
    EXPECT_EQ(freshnessOf(closing, at(23, 0, 0), now), expected) << now.toString().toStdString();
  EXPECT_EQ(freshnessOf(closing, {}, at(24, 16, 0)), Freshness::Overdue);
}
