// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/phrases.h"
#include "reports/report_walk.h"

#include <span>

namespace soran {

namespace {

struct Precipitation {
  QStringView code;
  QStringView word;
  bool counts; ///< whether the code alone makes a group one of this kind
};

// Beginning and end of precipitation as of FMH-1.
constexpr std::array<Precipitation, 4> beginnings{{
    {u"RAB", u"雨", true},
    {u"SNB", u"雪", true},
    {u"DZB", u"霧雨", true},
    {u"TSB", u"雷雨", false},
}};
constexpr std::array<Precipitation, 4> endings{{
    {u"RAE", u"雨", true},
    {u"SNE", u"雪", true},
    {u"DZE", u"霧雨", true},
    {u"TSE", u"雷雨", true},
}};

/// The word of the last code that a group holds; empty where no code that counts is in it.
QStringView precipitationWord(QStringView group, std::span<const Precipitation> codes) {
  QStringView word;
  bool counts = false;
  for (const Precipitation& entry : codes) {
    if (!group.contains(entry.code))
      continue;
    word = entry.word;
    counts |= entry.counts;
  }
  return counts ? word : QStringView();
}

/// HHMM at a position, in the zone of the display.
QString clockAt(const ReportWalk& walk, Position1 pos) {
  const QStringView group = walk.groups.token();
  const PrintedHour local = walk.ToLocal(mid1(group, pos, 2));
  QString text;
  writeAll(text, local.hour, u"時", mid1(group, pos + 2, 2), u"分(", local.zone, u")");
  return text;
}

/// MM at a position, in the hour and the zone of the report.
QString minuteAt(const ReportWalk& walk, Position1 pos) {
  QString text;
  writeAll(text, mid1(walk.time, 1, 2), u"時", mid1(walk.groups.token(), pos, 2), u"分(",
           mid1(walk.time, 8, 1), u")");
  return text;
}

void tellBeginning(ReportWalk& walk) {
  const QStringView group = walk.groups.token();
  const QStringView word = precipitationWord(group, beginnings);
  if (word.isEmpty())
    return;
  switch (group.size()) {
  case 5: // RAB30
    walk.line(minuteAt(walk, 4), u"から", word, u"を観測");
    break;
  case 7: // RAB0530
    walk.line(clockAt(walk, 4), u"から", word, u"を観測");
    break;
  case 8: // RAB30E45
    walk.line(minuteAt(walk, 4), u"から", word, u"を観測し、", minuteAt(walk, 7), u"に観測を終了");
    break;
  case 12: // RAB0530E0610
    walk.line(clockAt(walk, 4), u"から", word, u"を観測し、", clockAt(walk, 9), u"に観測を終了");
    break;
  default:
    break;
  }
}

void tellEnding(ReportWalk& walk) {
  const QStringView group = walk.groups.token();
  const QStringView word = precipitationWord(group, endings);
  if (word.isEmpty())
    return;
  if (group.size() == 7)
    walk.line(clockAt(walk, 4), u"に", word, u"の観測を終了");
  else if (group.size() == 5)
    walk.line(minuteAt(walk, 4), u"に", word, u"の観測を終了");
}

/// Inches with two decimals from the figures behind the first character.
float inches(QStringView group) {
  return static_cast<float>(leadingNumber(mid1(group, 2, 2)) + leadingNumber(mid1(group, 4)) / 100);
}

QString inchesText(float amount) {
  constexpr int singlePrecision = 7;
  return plainNumber(static_cast<double>(amount), singlePrecision);
}

/// A group of five figures behind the temperature: extremes and pressure change. False for any other group.
bool tellFiveFigures(ReportWalk& walk) {
  const QStringView group = walk.groups.token();
  switch (at1(group, 1).unicode()) {
  case u'1':
    walk.line(u"過去6時間以内の最高気温 ", TenthsPhrase(group, 2));
    return true;
  case u'2':
    walk.line(u"過去6時間以内の最低気温 ", TenthsPhrase(group, 2));
    return true;
  case u'5':
    walk.line(u"過去3時間の気圧変化 ", Plain{leadingNumber(mid1(group, 3, 2))}, u".", mid1(group, 5, 1),
              u"ヘクトパスカル");
    return true;
  default:
    return false;
  }
}

} // namespace

void tellPrecipitationTimes(ReportWalk& walk) {
  tellBeginning(walk);
  tellEnding(walk);
}

void tellHourlyPrecipitation(ReportWalk& walk) {
  GroupReader& groups = walk.groups;
  if (!groups.token().startsWith(u'P') || groups.token().size() != 5)
    return;
  const float hourly = inches(groups.token());
  if (hourly == 0)
    walk.line(u"過去1時間あたりの降水量 0.01インチ以下");
  else
    walk.line(u"過去1時間あたりの降水量 ", inchesText(hourly), u"インチ");
  while (!groups.wouldRepeat()) {
    groups.NextToken();
    const QStringView group = groups.token();
    const QStringView hours = mid1(group, 1, 1);
    if (leadingNumber(hours) == 0 || group.size() != 5)
      return;
    walk.line(u"過去", hours, u"時間の降水量 ", inchesText(inches(group)), u"インチ");
  }
}

void tellTenthsOfTemperature(ReportWalk& walk) {
  GroupReader& groups = walk.groups;
  if (!groups.token().contains(u'T') || groups.token().size() < 9)
    return;
  walk.line(u"地上気温 ", TenthsPhrase(groups.token(), 2));
  walk.line(u"露点温度 ", TenthsPhrase(groups.token(), 6));
  while (!groups.wouldRepeat()) {
    groups.NextToken();
    if (groups.token().size() != 5)
      groups.PushBack();
    else if (tellFiveFigures(walk))
      continue;
    groups.NextToken();
    if (groups.token().size() != 9) {
      groups.PushBack();
      return;
    }
    if (!groups.token().startsWith(u'4'))
      return;
    walk.line(u"過去6時間以内の最高気温 ", TenthsPhrase(groups.token(), 2));
    walk.line(u"過去6時間以内の最低気温 ", TenthsPhrase(groups.token(), 6));
  }
}

} // namespace soran
