// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/phrases.h"
#include "reports/report_walk.h"

namespace soran {

namespace {

struct WordLine {
  QStringView word;
  QStringView line;
};

constexpr std::array<WordLine, 2> stationTypes{{
    {u"AO1", u"降水測定機能のない自動観測装置による観測"},
    {u"AO2", u"降水測定機能のある自動観測装置による観測"},
}};

constexpr std::array<WordLine, 2> pressureTendencies{{
    {u"P/RR", u"地上気圧が急速に上昇中"},
    {u"P/FR", u"地上気圧が急速に下降中"},
}};

void tellWords(ReportWalk& walk, const std::array<WordLine, 2>& words) {
  for (const WordLine& entry : words) {
    if (walk.groups.token().contains(entry.word))
      walk.line(entry.line);
  }
}

void tellInches(ReportWalk& walk) {
  const QStringView group = walk.groups.token();
  if (group.startsWith(u'A') && group.size() == 5)
    walk.line(u"高度計規正値 ", mid1(group, 2, 2), u".", mid1(group, 4, 2), u"インチ水銀柱");
}

void tellSeaLevelPressure(ReportWalk& walk) {
  if (walk.groups.token().contains(u"SLP"))
    walk.line(u"海面水位圧力 ", SeaLevelPressureText(walk.groups.token()), u"ヘクトパスカル");
}

void tellWindShear(ReportWalk& walk) {
  if (!walk.groups.token().contains(u"WS"))
    return;
  walk.groups.NextToken();
  walk.line(u"滑走路", mid1(walk.groups.token(), 2), u"にウィンドシァー警報");
}

void tellCeiling(ReportWalk& walk) {
  if (walk.groups.token() != u"CIG")
    return;
  walk.groups.NextToken();
  const QStringView group = walk.groups.token();
  if (group.contains(u'V'))
    walk.line(u"雲底高度 ", Plain{heightAt(group, 1)}, u"フィートから", Plain{heightAt(group, 5)},
              u"フィートの間を変動");
  else
    walk.line(u"雲底高度 ", Plain{leadingNumber(group) * 100}, u"フィート");
}

} // namespace

void tellRemarks(ReportWalk& walk) {
  constexpr qsizetype wordAndBlank = 4;
  GroupReader& groups = walk.groups;
  const Position1 start = find1(groups.rest(), u"RMK");
  if (!start)
    return;
  groups.setRest(mid1(groups.rest(), start + wordAndBlank));
  bool cloudsOver = false;
  QStringView amount;
  while (groups.more()) {
    groups.NextToken();
    walk.label = walk.out.title(RepeatedField::Remarks);
    // Several may tell something of one group, and one that reads on leaves its last group to those behind
    // it.
    tellCloudRemark(walk, cloudsOver, amount);
    tellInches(walk);
    tellWords(walk, stationTypes);
    tellSeaLevelPressure(walk);
    tellPrecipitationTimes(walk);
    tellHourlyPrecipitation(walk);
    tellTenthsOfTemperature(walk);
    tellWords(walk, pressureTendencies);
    tellWindShear(walk);
    tellDirections(walk);
    tellCeiling(walk);
  }
}

void tellClosing(ReportWalk& walk) {
  const QStringView body = walk.body;
  if (body.contains(u"YELLOW SAND"))
    walk.line(u"黄砂を観測");
  // The runway's length is not known: what follows it comes along.
  if (const Position1 pos = find1(body, u"FOG ON"))
    walk.line(u"滑走路", mid1(body, pos + 6, pos.from1() + 5), u"上に霧を観測");
  if (const Position1 pos = find1(body, u"MAX WIND"))
    walk.line(u"最大風速 ", Plain{leadingNumber(mid1(body, pos + 8, pos.from1() + 7))}, u"ノット");
  if (body.contains(u'$'))
    walk.line(u"自動観測装置のメンテナンスが必要");
}

} // namespace soran
