// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "sun/sun_graph.h"

#include "base/report_rules.h"
#include "base/text.h"

namespace soran {

namespace {

constexpr double minuteHeight = 20;

// The label of an earliest time stands below its point.
constexpr double earliestDrop = 200;

struct Mark {
  int day = -1; ///< day of the year from 0
  int minutes = 0;
};

QString dateText(int year, int dayIndex) {
  int month = 1;
  for (; dayIndex >= daysInMonth(year, month); ++month)
    dayIndex -= daysInMonth(year, month);
  return QStringLiteral(" %1月%2日 ").arg(month).arg(dayIndex + 1);
}

void drawCurve(const SunTable& table, QString SunDay::*time, double (*yOf)(int), QList<SunPoint>& points,
               QList<SunExtreme>& extremes) {
  Mark earliest;
  Mark latest;
  points.reserve(table.days.size());
  for (int day = 0; day < table.days.size(); ++day) {
    const QStringView text = table.days[day].*time;
    const int minutes = leadingInteger(mid1(text, 1, 2)) * 60 + leadingInteger(mid1(text, 3, 2));
    points.append({sunGraphX(day, table.leapYear), yOf(minutes)});
    if (earliest.day < 0 || minutes < earliest.minutes)
      earliest = {day, minutes};
    if (latest.day < 0 || minutes > latest.minutes)
      latest = {day, minutes};
  }
  const auto label = [&](const Mark& mark, double drop) {
    const SunPoint& point = points[mark.day];
    extremes.append({table.days[mark.day].*time, dateText(table.year, mark.day), point.x, point.y + drop});
  };
  label(earliest, earliestDrop);
  label(latest, 0);
}

} // namespace

double sunGraphX(int dayIndex, bool leapYear) {
  constexpr double width = sunGraphRight - sunGraphLeft;
  return sunGraphLeft + (width / (leapYear ? 366 : 365)) * dayIndex;
}

double sunriseY(int minutes) {
  constexpr int origin = 3 * 60;
  return sunGraphBottom - minuteHeight * (minutes - origin);
}

double sunsetY(int minutes) {
  constexpr int origin = 15 * 60;
  return sunGraphBottom - minuteHeight * (minutes - origin);
}

SunGraph sunGraph(const SunTable& table) {
  SunGraph graph;
  if (!table.valid)
    return graph;
  drawCurve(table, &SunDay::sunrise, sunriseY, graph.sunrise, graph.extremes);
  drawCurve(table, &SunDay::sunset, sunsetY, graph.sunset, graph.extremes);
  return graph;
}

} // namespace soran
