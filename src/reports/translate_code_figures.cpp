// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/code_walk.h"
#include "reports/group_scan.h"
#include "reports/group_shapes.h"
#include "reports/phrases.h"

#include <algorithm>

namespace soran {

namespace {

struct WeatherWord {
  QStringView code;
  QStringView word;
};

constexpr std::array<WeatherWord, 4> weatherWords{{
    {u"RA", u"雨"},
    {u"SN", u"雪"},
    {u"DZ", u"霧雨"},
    {u"TS", u"雷雨"},
}};

/// A beginning or an end of weather within the last hour.
struct WeatherTime {
  QStringView word;
  bool begins;
  QStringView time; ///< MM or HHMM
};

/// The times of RAE0455RAB23E50; empty where the group is none, or tells of other weather.
std::vector<WeatherTime> weatherTimes(QStringView group) {
  std::vector<WeatherTime> times;
  Scan scan(group);
  QStringView word;
  while (!scan.atEnd()) {
    for (const WeatherWord& entry : weatherWords) {
      if (scan.word(entry.code))
        word = entry.word;
    }
    const QStringView kind = scan.oneOf({u"B", u"E"});
    const QStringView time = scan.figures(2, 4);
    if (word.isEmpty() || kind.isEmpty() || time.size() % 2 != 0 || time.isEmpty())
      return {};
    times.push_back({word, kind == u"B", time});
  }
  return times;
}

/// The hour of the report's time as a number of its zone.
int hourOf(const ReportWalk& walk) {
  return leadingInteger(mid1(walk.time, 1, 2));
}
int minuteOf(const ReportWalk& walk) {
  return leadingInteger(mid1(walk.time, 4, 2));
}

QString timeText(const ReportWalk& walk, QStringView time) {
  QString text;
  if (time.size() == 2) {
    // A minute that the report's hour has not reached was in the hour before (FMH-1).
    const bool before = leadingInteger(time) > minuteOf(walk);
    writeAll(text, twoDigits((hourOf(walk) + (before ? 23 : 0)) % 24), u"時", time, u"分(",
             mid1(walk.time, 8, 1), u")");
  } else {
    const PrintedHour local = walk.ToLocal(time.first(2));
    writeAll(text, local.hour, u"時", time.last(2), u"分(", local.zone, u")");
  }
  return text;
}

/// Whether the report closes three hours and not six: those of 03, 09, 15 and 21 UTC (FMH-1).
bool closesThreeHours(const ReportWalk& walk) {
  constexpr int nearlyTheNext = 45;
  const bool utc = mid1(walk.time, 8, 1) == u"Z";
  const int hour = hourOf(walk) + (minuteOf(walk) >= nearlyTheNext ? 1 : 0) + 240 -
                   (utc ? 0 : walk.settings.zoneOffset().hours);
  return hour % 6 == 3;
}

void tellAmount(ReportWalk& walk, QStringView period, QStringView group) {
  QString amount;
  if (group.endsWith(u"0000"))
    write(amount, u"0.01インチ以下");
  else
    writeAll(amount, plainNumber(leadingNumber(group.last(4)) / 100), u"インチ");
  walk.line(period, amount);
}

void tellPressureChange(ReportWalk& walk, QStringView group) {
  // Characteristics from 5 on end lower than they began (WMO No. 306, code table 0200).
  const bool falls = group[1] >= u'5';
  walk.line(u"過去3時間の気圧変化 ", falls ? u"マイナス " : u"", Plain{leadingNumber(group.sliced(2, 2))},
            u".", group.last(1), u"ヘクトパスカル");
}

bool isAdditive(QStringView group) {
  return hasShape(group,
                  {u"P####", u"T0#######", u"T1#######", u"6####", u"7####", u"10###", u"11###", u"20###",
                   u"21###", u"5####", u"40###0###", u"40###1###", u"41###0###", u"41###1###"});
}

} // namespace

bool tellWeatherTimesByCode(CodeWalk& code) {
  const std::vector<WeatherTime> times = weatherTimes(code.peek());
  for (size_t i = 0; i < times.size(); ++i) {
    const QString time = timeText(code.walk, times[i].time);
    const bool ends =
        times[i].begins && i + 1 < times.size() && !times[i + 1].begins && times[i + 1].word == times[i].word;
    if (ends) {
      ++i;
      code.walk.line(time, u"から", times[i].word, u"を観測し、", timeText(code.walk, times[i].time),
                     u"に観測を終了");
    } else if (times[i].begins) {
      code.walk.line(time, u"から", times[i].word, u"を観測");
    } else {
      code.walk.line(time, u"に", times[i].word, u"の観測を終了");
    }
  }
  code.take(times.empty() ? 0 : 1);
  return !times.empty();
}

bool tellAdditiveDataByCode(CodeWalk& code) {
  const QStringView group = code.peek();
  if (!isAdditive(group) || !code.hasAdditiveData)
    return false;
  ReportWalk& walk = code.walk;
  switch (group.front().unicode()) {
  case u'P':
    tellAmount(walk, u"過去1時間あたりの降水量 ", group);
    break;
  case u'6':
    tellAmount(walk, closesThreeHours(walk) ? u"過去3時間の降水量 " : u"過去6時間の降水量 ", group);
    break;
  case u'7':
    tellAmount(walk, u"過去24時間の降水量 ", group);
    break;
  case u'T':
    walk.line(u"地上気温 ", TenthsPhrase(group, 2));
    walk.line(u"露点温度 ", TenthsPhrase(group, 6));
    break;
  case u'1':
    walk.line(u"過去6時間以内の最高気温 ", TenthsPhrase(group, 2));
    break;
  case u'2':
    walk.line(u"過去6時間以内の最低気温 ", TenthsPhrase(group, 2));
    break;
  case u'4':
    walk.line(u"過去24時間以内の最高気温 ", TenthsPhrase(group, 2));
    walk.line(u"過去24時間以内の最低気温 ", TenthsPhrase(group, 6));
    break;
  default:
    tellPressureChange(walk, group);
    break;
  }
  code.take();
  return true;
}

} // namespace soran
