// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/code_phrases.h"
#include "reports/code_walk.h"

#include <algorithm>

namespace soran {

namespace {

bool tellInches(CodeWalk& code) {
  if (!hasShape(code.peek(), {u"A####"}))
    return false;
  code.walk.line(u"高度計規正値 ", altimeterByCode(code.peek()));
  code.take();
  return true;
}

struct CodeWord {
  QStringView word;
  QStringView line;
};

constexpr std::array<CodeWord, 5> codeWords{{
    {u"AO1", u"降水測定機能のない自動観測装置による観測"},
    {u"AO2", u"降水測定機能のある自動観測装置による観測"},
    {u"P/RR", u"地上気圧が急速に上昇中"},
    {u"P/FR", u"地上気圧が急速に下降中"},
    {u"SLPNO", u"海面水位圧力の通報なし"},
}};

bool tellWords(CodeWalk& code) {
  const auto* const known = std::ranges::find_if(
      codeWords, [&code](const CodeWord& entry) { return code.peek().startsWith(entry.word); });
  if (known == codeWords.end())
    return false;
  code.walk.line(known->line);
  code.take();
  return true;
}

bool tellSeaLevelPressure(CodeWalk& code) {
  const QString pressure = seaLevelPressureByCode(code.peek());
  if (pressure.isEmpty())
    return false;
  code.walk.line(u"海面水位圧力 ", pressure, u"ヘクトパスカル");
  code.take();
  return true;
}

bool tellWindShear(CodeWalk& code) {
  QStringView runway = code.peek(1);
  if (code.peek() != u"WS" || !runway.startsWith(u'R'))
    return false;
  runway = runway.sliced(runway.startsWith(u"RWY") ? 3 : 1);
  code.walk.line(u"滑走路", runway, u"にウィンドシァー警報");
  code.take(2);
  return true;
}

bool tellCeiling(CodeWalk& code) {
  const QStringView height = code.peek(1);
  const bool varies = hasShape(height, {u"###V###"});
  if (code.peek() != u"CIG" || (!varies && !hasShape(height, {u"###"})))
    return false;
  if (varies)
    code.walk.line(u"雲底高度 ", Plain{heightAt(height, 1)}, u"フィートから", Plain{heightAt(height, 5)},
                   u"フィートの間を変動");
  else
    code.walk.line(u"雲底高度 ", Plain{heightAt(height, 1)}, u"フィート");
  code.take(2);
  return true;
}

// The first that fits takes the group.
constexpr std::array<RemarkByCode, 10> remarks{
    tellCloudTypeByCode,    tellInches,           tellWords,     tellSeaLevelPressure, tellWeatherTimesByCode,
    tellAdditiveDataByCode, tellPhenomenonByCode, tellWindShear, tellVisibilityByCode, tellCeiling,
};

void tellStrongestWind(ReportWalk& walk, QStringView group) {
  if (const auto wind = windGroup(group))
    walk.line(u"最大風速 ", windByCode(*wind));
  else if (hasShape(group, {u"##KT", u"###KT"}))
    walk.line(u"最大風速 ", Plain{leadingNumber(group)}, u"ノット");
}

/// What a station writes in words, in the remarks or ahead of them.
void tellWordsAnywhere(CodeWalk& code) {
  const auto beginsWith = [&code](QStringView first, QStringView second) {
    return code.peek() == first && code.peek(1) == second;
  };
  for (code.at = 0; !code.atEnd(); code.take()) {
    code.walk.label = code.walk.out.title(RepeatedField::Remarks);
    if (beginsWith(u"YELLOW", u"SAND"))
      code.walk.line(u"黄砂を観測");
    else if (beginsWith(u"FOG", u"ON") && !code.peek(2).isEmpty())
      code.walk.line(u"滑走路 ", code.peek(2), u" 上に霧を観測");
    else if (beginsWith(u"MAX", u"WIND"))
      tellStrongestWind(code.walk, code.peek(2));
    else if (code.peek() == u"$")
      code.walk.line(u"自動観測装置のメンテナンスが必要");
  }
}

} // namespace

void tellRemarksByCode(CodeWalk& code) {
  const auto start = std::ranges::find(code.groups, QStringView(u"RMK"));
  code.at = size_t(start - code.groups.begin());
  code.observedEnd = code.walk.out.text.size();
  while (!code.atEnd()) {
    code.walk.label = code.walk.out.title(RepeatedField::Remarks);
    if (std::ranges::none_of(remarks, [&code](RemarkByCode tell) { return tell(code); }))
      code.take();
  }
  tellWordsAnywhere(code);
}

} // namespace soran
