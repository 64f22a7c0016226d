// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/code_phrases.h"
#include "reports/code_walk.h"
#include "reports/weather_words.h"

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

void tellTrendLayer(ReportWalk& walk, QStringView group) {
  for (const TrendCloud& cloud : trendClouds) {
    if (!group.startsWith(cloud.word))
      continue;
    const QStringView amount = cloud.phrase.chopped(QStringView(u"雲 ").size());
    if (mid1(group, 4, 3) == u"///")
      walk.tell(u"雲低高度不明な", amount.sliced(QStringView(u"フィートに").size()));
    else
      walk.tell(Plain{heightAt(group, 4)}, amount);
    walk.tell(cloudWord(group), u" ");
  }
}

void tellTrendTime(ReportWalk& walk, QStringView time, QStringView ending) {
  const PrintedHour local = walk.ToLocal(time.first(2));
  walk.tell(local.hour, u"時", time.last(2), u"分(", local.zone, ending);
}

void tellTrendGroupByCode(ReportWalk& walk, QStringView group) {
  if (hasShape(group, {u"TL####"}))
    tellTrendTime(walk, group.last(4), u")までに、");
  else if (hasShape(group, {u"FM####"}))
    tellTrendTime(walk, group.last(4), u")以降、");
  else if (hasShape(group, {u"AT####"}))
    tellTrendTime(walk, group.last(4), u")に、");
  else if (const auto wind = windGroup(group))
    walk.tell(u"風が ", windByCode(*wind), u" ");
  else if (isCloudLayer(group))
    tellTrendLayer(walk, group);
  else if (group == u"9999")
    walk.tell(u"地上視程 10キロメートル以上 ");
  else if (hasShape(group, {u"####"}))
    walk.tell(u"地上視程 ", Plain{leadingNumber(group)}, u"メートル ");
  else if (hasShape(group, {u"VV###"}))
    walk.tell(u"鉛直視程 ", Plain{heightAt(group, 3)}, u"フィート ");
  else if (const auto phrase = walk.dictionaries.phrase(group))
    walk.tell(*phrase, u" ");
  else if (isWeatherGroup(group)) {
    walk.tell(group, u" / ");
    tellPairs(walk, group);
    walk.tell(u" ");
  }
}

/// The runways of a wind shear, WS R34L, WS RWY34L or WS ALL RWY (ICAO Annex 3, appendix 3, 4.8.1.4), and how
/// many groups tell it; nothing where it is none.
std::optional<std::pair<QString, size_t>> windShear(const CodeWalk& code) {
  if (code.peek() != u"WS")
    return std::nullopt;
  if (code.peek(1) == u"ALL" && code.peek(2) == u"RWY")
    return std::pair(QStringLiteral("すべての滑走路"), size_t(3));
  const QStringView runway = code.peek(1);
  if (!runway.startsWith(u'R'))
    return std::nullopt;
  return std::pair(QStringLiteral("滑走路") + runway.sliced(runway.startsWith(u"RWY") ? 3 : 1), size_t(2));
}

} // namespace

void tellSupplementByCode(CodeWalk& code) {
  constexpr QStringView recent = u"RE";
  ReportWalk& walk = code.walk;
  bool isFirst = true;
  const auto begin = [&] {
    walk.field(isFirst ? u"補足記事　　 ： " : u"　　　　　　　　");
    isFirst = false;
  };
  for (; !code.atEnd() && !endsObservation(code.peek()); code.take()) {
    const QStringView group = code.peek();
    if (const auto shear = windShear(code)) {
      begin();
      walk.tell(shear->first, u"にウィンドシァー警報");
      code.take(shear->second - 1);
    } else if (group.startsWith(recent) && walk.dictionaries.phrase(group)) {
      begin();
      walk.tell(*walk.dictionaries.phrase(group));
    } else if (group.startsWith(recent) && isWeatherGroup(group.sliced(recent.size()))) {
      begin();
      walk.tell(group, u" / 直近に");
      tellPairs(walk, group.sliced(recent.size()));
    }
  }
}

void tellTrendByCode(CodeWalk& code) {
  constexpr QStringView first = u"着陸予報　　 ： ";
  constexpr QStringView further = u"　　　　　　　　";
  bool isFirst = true;
  while (!code.atEnd() && code.peek() != u"RMK") {
    const QStringView word = code.peek();
    code.take();
    if (word == u"NOSIG")
      code.walk.field(u"補足記事　　 ： ", u"顕著な天候変化なし");
    if (word != u"BECMG" && word != u"TEMPO")
      continue;
    code.walk.field(isFirst ? first : further);
    isFirst = false;
    for (; !code.atEnd() && !endsObservation(code.peek()); code.take())
      tellTrendGroupByCode(code.walk, code.peek());
    code.walk.tell(word == u"BECMG" ? u"に序々に変化" : u"に一時的に変化");
  }
}

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
