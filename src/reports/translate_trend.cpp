// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/report_walk.h"

namespace soran {

namespace {

struct TrendCloud {
  QStringView word;
  QStringView phrase;
};

constexpr std::array<TrendCloud, 4> trendClouds{{
    {u"FEW", u"フィートに少量の雲 "},
    {u"SCT", u"フィートに散在する雲 "},
    {u"BKN", u"フィートに多量の雲 "},
    {u"OVC", u"フィートに全天を覆う雲 "},
}};

/// The time HHMM behind a word of two letters such as TL.
void tellTime(ReportWalk& walk, QStringView word, QStringView ending) {
  const QStringView group = walk.groups.token();
  const Position1 pos = find1(group, word);
  if (!pos)
    return;
  const PrintedHour local = walk.ToLocal(mid1(group, pos + 2, 2));
  walk.tell(local.hour, u"時", mid1(group, pos + 4, 2), u"分(", local.zone, ending);
}

void tellTrendGroup(ReportWalk& walk) {
  const QStringView group = walk.groups.token();
  tellTime(walk, u"TL", u")までに、");
  tellTime(walk, u"FM", u")以降、");
  if (const Position1 unit = find1(group, u"KT"))
    walk.tell(u"風が ", take1(group, unit - 5, 3), u"°方向から ",
              Plain{leadingNumber(take1(group, unit - 2, 2))}, u"ノット ");
  for (const TrendCloud& cloud : trendClouds) {
    if (group.contains(cloud.word))
      walk.tell(Plain{heightAt(group, 4)}, cloud.phrase);
  }
  if (group.size() == 4)
    walk.tell(u"地上視程 ", Plain{leadingNumber(group)}, u"メートル ");
}

void tellLandingForecast(ReportWalk& walk, QStringView word) {
  GroupReader& groups = walk.groups;
  walk.field(u"着陸予報　　 ： ");
  bool more = true;
  while (more && groups.token() != u"RMK") {
    groups.NextToken();
    more = groups.more();
    tellTrendGroup(walk);
  }
  walk.tell(u"に", word, u"に変化");
}

} // namespace

void tellTrend(ReportWalk& walk) {
  const QStringView rest = walk.groups.rest();
  if (rest.contains(u"NOSIG"))
    walk.field(u"補足記事　　 ： ", u"顕著な天候変化なし");
  QStringView word;
  if (rest.contains(u"BECMG"))
    word = u"序々";
  else if (rest.contains(u"TEMPO"))
    word = u"一時的";
  if (!word.isEmpty() && !rest.contains(u"FCST"))
    tellLandingForecast(walk, word);
  walk.groups.PushBack();
}

} // namespace soran
