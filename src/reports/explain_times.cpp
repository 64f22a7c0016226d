// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/report_rules.h"
#include "reports/checked_text.h"
#include "reports/selected_group.h"

#include <algorithm>

namespace soran {

namespace {

/// A day of the month and an hour as they are told, with the text of their zone.
struct DayHour {
  QString day;
  QString hour;
  QString zone;
};

/// Moves a day and hour in UTC by the offset. The months are those of `today`, whatever day is told.
DayHour localDayHour(QStringView dayFigures, QStringView hourFigures, QDate today, ZoneOffset offset) {
  constexpr int hoursOfDay = 24;
  int day = leadingInteger(dayFigures);
  int hour = leadingInteger(hourFigures) + offset.hours;
  if (hour < 0) {
    hour += hoursOfDay;
    --day;
    if (day == 0)
      day = daysInMonth(today.year(), today.month() == 1 ? 12 : today.month() - 1);
  } else if (hour >= hoursOfDay) {
    hour -= hoursOfDay;
    ++day;
    if (day > daysInMonth(today.year(), today.month()))
      day = 1;
  }
  QString zone;
  writeAll(zone, ZoneLetter(offset), u" (UTC", Plain{static_cast<double>(offset.hours)}, u")");
  return {twoDigits(day), twoDigits(hour), zone};
}

bool isLocal(const SelectedGroup& selected) {
  return selected.settings[key::LOCAL使用] == true;
}

bool isSlash(QStringView screen, qsizetype index) {
  return index >= 0 && index < screen.size() && screen[index] == u'/';
}

} // namespace

bool explainReportTime(const SelectedGroup& selected, QString& tip) {
  const QStringView group = selected.group;
  if (!group.endsWith(u'Z') || group.size() != 7)
    return false;
  const QStringView day = group.first(2);
  const QStringView hour = group.sliced(2, 2);
  const QStringView minute = group.sliced(4, 2);
  if (!isLocal(selected)) {
    writeAll(tip, group, u" ： ", day, u"日 ", hour, u":", minute, u" UTC");
    return true;
  }
  const DayHour local = localDayHour(day, hour, selected.today, selected.settings.zoneOffset());
  writeAll(tip, group, u" ： ", local.day, u"日 ", local.hour, u":", minute, u" ", local.zone);
  return true;
}

bool explainValidity(const SelectedGroup& selected, QString& tip) {
  const QStringView group = selected.group;
  const bool beside = isSlash(selected.screen, selected.start - 1) || isSlash(selected.screen, selected.end);
  if (group.size() != 4 || !std::ranges::all_of(group, isAsciiDigit) || leadingNumber(group) == 0 || !beside)
    return false;
  const QStringView day = group.first(2);
  const QStringView hour = group.sliced(2);
  if (!isLocal(selected)) {
    writeAll(tip, group, u" ： ", day, u"日 ", hour, u":00Z");
    return true;
  }
  const DayHour local = localDayHour(day, hour, selected.today, selected.settings.zoneOffset());
  writeAll(tip, group, u" ： ", local.day, u"日 ", local.hour, u":00", local.zone);
  return true;
}

} // namespace soran
