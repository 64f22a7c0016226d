// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/cloud_amount.h"
#include "reports/report_walk.h"

#include <algorithm>

namespace soran {

QStringView cloudWord(QStringView group) {
  if (group.contains(u"TCU"))
    return u"塔状積雲";
  return group.contains(u"CB") ? QStringView(u"積乱雲") : QStringView(u"雲");
}

namespace {

// Cloud amounts of ICAO Annex 3.
constexpr std::array<CloudAmount, 4> cloudAmounts{{
    {u"FEW", u"フィートに少量の", u"雲低高度不明な少量の"},
    {u"SCT", u"フィートに散在した", u"雲低高度不明な散在した"},
    {u"BKN", u"フィートに多量の", u"雲低高度不明な多量の"},
    {u"OVC", u"フィートに全天を覆う", u"雲低高度不明な全天を覆う"},
}};

bool isTemperature(QStringView group) {
  return group.contains(u'/') && !group.contains(u"///");
}

} // namespace

bool holdsCloudAmount(QStringView group) {
  return std::ranges::any_of(cloudAmounts, [group](const CloudAmount& c) { return group.contains(c.word); });
}

namespace {} // namespace

void tellPairs(ReportWalk& walk, QStringView group) {
  if (group.isEmpty()) {
    walk.tell(u"解析不能");
    return;
  }
  QStringView sign;
  if (group.startsWith(u'-')) {
    sign = u"弱い(-)";
    group = group.sliced(1);
  }
  if (group.startsWith(u'+')) {
    sign = u"強い(+)";
    group = group.sliced(1);
  }
  walk.tell(sign);
  for (qsizetype index = 0; index < group.size(); index += 2) {
    const QStringView pair = group.mid(index, 2);
    if (const auto meaning = walk.dictionaries.shortMeaning(pair))
      walk.tell(u" ", *meaning, u"(", pair, u")");
    else
      walk.tell(u" 記号該当なし(", pair, u")");
  }
}

namespace {

void tellWeather(ReportWalk& walk, QStringView group) {
  if (const auto phrase = walk.dictionaries.phrase(group)) {
    if (walk.out.holds(RepeatedField::Weather))
      walk.tell(u"  ", *phrase);
    else
      walk.field(walk.out.title(RepeatedField::Weather), *phrase);
  } else if (!group.startsWith(u"VV") && !holdsCloudAmount(group) && !group.contains(u'/')) {
    walk.field(walk.out.title(RepeatedField::Weather), group, u" / ");
    tellPairs(walk, group);
  }
}

void tellCloud(ReportWalk& walk, QStringView group) {
  if (!holdsCloudAmount(group))
    return;
  const QStringView cloud = cloudWord(group);
  const QStringView title = walk.out.title(RepeatedField::Cloud);
  const bool unknown = mid1(group, 4, 3) == u"///";
  for (const CloudAmount& amount : cloudAmounts) {
    if (!group.contains(amount.word))
      continue;
    if (unknown)
      walk.field(title, amount.unknownHeight, cloud);
    else
      walk.field(title, Plain{heightAt(group, 4)}, amount.atHeight, cloud);
  }
}

} // namespace

void tellWeatherGroup(ReportWalk& walk, QStringView group) {
  tellWeather(walk, group);
  tellCloud(walk, group);
}

void tellWeatherAndCloud(ReportWalk& walk) {
  while (!isTemperature(walk.groups.token())) {
    // The last group would come again and again: there is no temperature group.
    if (walk.groups.wouldRepeat())
      throw TextFailure();
    walk.groups.NextToken();
    const QStringView group = walk.groups.token();
    tellWeatherGroup(walk, group);
    if (group.contains(u"VV"))
      walk.field(u"鉛直視程　　 ： ", Plain{heightAt(group, 3)}, u" フィート");
  }
}

} // namespace soran
