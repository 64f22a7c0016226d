// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "imagery/chart_issue.h"

#include "base/report_rules.h"
#include "base/text.h"

#include <QStringBuilder>
#include <algorithm>
#include <span>

namespace soran {

namespace {

/// An issue is asked for while the hour is below `before`.
struct Issue {
  QStringView time;
  int before;
  bool previousDay;
};

constexpr Issue sixHourly[] = {
    {u"1800", 6, true}, {u"0000", 12, false}, {u"0600", 18, false}, {u"1200", 24, false}};

constexpr Issue threeHourly[] = {{u"2100", 3, true},   {u"0000", 6, false},  {u"0300", 9, false},
                                 {u"0600", 12, false}, {u"0900", 15, false}, {u"1200", 18, false},
                                 {u"1500", 21, false}, {u"1800", 24, false}};

double chartHour(int clockHour, QStringView timeOffset) {
  const double hour = clockHour - 9 + leadingNumber(timeOffset);
  if (hour < 0)
    return hour + 24;
  return hour >= 24 ? hour - 24 : hour;
}

// Every year has a 29 February here: a wrong name costs one chart a year, and the names stay as they have
// always been asked for.
QString dayBefore(QDate date) {
  constexpr int leapYear = 4;
  int year = date.year();
  int month = date.month();
  int day = date.day() - 1;
  if (day == 0) {
    if (--month == 0) {
      month = 12;
      --year;
    }
    day = daysInMonth(leapYear, month);
  }
  return QString::number(year) % QString::number(month) % QString::number(day);
}

} // namespace

QString issueStamp(IssueCycle cycle, const QDateTime& now, QStringView timeOffset) {
  const std::span<const Issue> issues = cycle == IssueCycle::SixHourly ? std::span<const Issue>(sixHourly)
                                                                       : std::span<const Issue>(threeHourly);
  const double hour = chartHour(now.time().hour(), timeOffset);
  const auto later = std::ranges::find_if(issues, [hour](const Issue& issue) { return hour < issue.before; });
  const Issue& issue = later == issues.end() ? issues.back() : *later;
  const QDate date = now.date();
  return (issue.previousDay ? dayBefore(date) : date.toString(u"yyyyMMdd")) % issue.time;
}

} // namespace soran
