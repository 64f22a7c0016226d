// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/code_phrases.h"
#include "reports/code_walk.h"

#include <algorithm>

namespace soran {

namespace {

struct KindWord {
  QStringView group;
  QStringView phrase;
};

constexpr std::array<KindWord, 3> kinds{{
    {u"AUTO", u"自動観測装置による観測 (METAR AUTO)"},
    {u"COR", u"訂正報 (COR)"},
    {u"NIL", u"通報なし (NIL)"},
}};

void tellKinds(CodeWalk& code) {
  const auto kind = [&code] { return std::ranges::find(kinds, code.peek(), &KindWord::group); };
  for (const auto* known = kind(); known != kinds.end(); known = kind()) {
    code.walk.tell(u"観測形態　　 ： ", known->phrase, crlf);
    code.take();
  }
}

void tellWind(CodeWalk& code) {
  code.walk.tell(u"風向/風速　　： ");
  if (code.peek() == u"CALM") {
    code.walk.tell(u"無風");
  } else if (const auto wind = windGroup(code.peek(), WindUnit::MayLack)) {
    code.walk.tell(windByCode(*wind));
  } else {
    code.walk.tell(notReported(u"風"));
    return;
  }
  code.take();
  const QStringView variation = code.peek();
  if (!hasShape(variation, {u"###V###"}))
    return;
  code.walk.tell(u" / ", variation.first(3), u"°から ", variation.last(3), u"°の間で風向変動あり");
  code.take();
}

void writeMiles(QString& text, QStringView whole, QStringView group) {
  constexpr QStringView unit = u"陸マイル (Statute Mile)";
  const QStringView miles = group.chopped(2);
  const bool outside = miles.startsWith(u'M') || miles.startsWith(u'P');
  if (group == u"10SM") {
    writeAll(text, miles, unit, u" 以上");
    return;
  }
  if (!whole.isEmpty())
    writeAll(text, whole, u" ");
  writeAll(text, outside ? miles.sliced(1) : miles, u" ", unit);
  if (outside)
    write(text, miles.startsWith(u'M') ? u" 未満" : u" を超える");
}

QString visibilityText(QStringView whole, QStringView group) {
  constexpr qsizetype metres = 4;
  QString text;
  if (group.startsWith(u"////"))
    return notReported(u"視程");
  if (group.endsWith(u"SM")) {
    writeMiles(text, whole, group);
    return text;
  }
  if (group.startsWith(u"9999"))
    write(text, u"10キロメートル以上");
  else
    writeAll(text, Plain{leadingNumber(group)}, group.endsWith(u"KM") ? u"キロメートル" : u"メートル");
  if (group.size() > metres)
    writeAll(text, u" (", group.sliced(metres), u")");
  return text;
}

void tellVisibility(CodeWalk& code) {
  constexpr QStringView title = u"地上視程　　 ： ";
  if (code.peek() == u"CAVOK") {
    code.walk.field(u"現在天気　　 ： ", u"晴れ");
    code.take();
    return;
  }
  if (hasShape(code.peek(), {u"#", u"##"}) && hasShape(code.peek(1), {u"#/#SM", u"#/##SM"})) {
    code.walk.field(title, visibilityText(code.peek(), code.peek(1)));
    code.take(2);
    return;
  }
  if (!isVisibility(code.peek()))
    code.walk.field(title, notReported(u"視程"));
  // A least visibility with its direction may follow.
  for (; isVisibility(code.peek()); code.take())
    code.walk.field(title, visibilityText({}, code.peek()));
}

void tellVerticalVisibility(ReportWalk& walk, QStringView group) {
  constexpr QStringView title = u"鉛直視程　　 ： ";
  if (hasShape(group, {u"VV###"}))
    walk.field(title, Plain{heightAt(group, 3)}, u" フィート");
  else
    walk.field(title, notReported(u"鉛直視程"));
}

void tellLayerOfUnknownAmount(ReportWalk& walk, QStringView group) {
  const QStringView title = walk.out.title(RepeatedField::Cloud);
  if (mid1(group, 4, 3) == u"///")
    walk.field(title, u"雲量と雲低高度不明な", cloudWord(group));
  else
    walk.field(title, Plain{heightAt(group, 4)}, u"フィートに雲量不明な", cloudWord(group));
}

void tellSkyGroup(ReportWalk& walk, QStringView group) {
  if (const auto range = runwayRangeGroup(group))
    walk.field(walk.out.title(RepeatedField::Rvr), runwayRangeByCode(*range));
  else if (hasShape(group, {u"VV###", u"VV///"}))
    tellVerticalVisibility(walk, group);
  else if (isCloudLayer(group) && group.startsWith(u'/') && !walk.dictionaries.phrase(group))
    tellLayerOfUnknownAmount(walk, group);
  // An amount without its height tells nothing that could be relied on.
  else if (isCloudLayer(group) || !holdsCloudAmount(group))
    tellWeatherGroup(walk, group);
}

void tellSky(CodeWalk& code) {
  const auto isSky = [](QStringView group) {
    return !isTemperatures(group) && !isAltimeter(group) && !endsObservation(group);
  };
  for (; !code.atEnd() && isSky(code.peek()); code.take())
    tellSkyGroup(code.walk, code.peek());
}

void tellTemperatures(CodeWalk& code) {
  TemperatureGroup group;
  if (isTemperatures(code.peek())) {
    group = temperatureGroup(code.peek());
    code.take();
  }
  code.walk.field(u"地上気温　　 ： ", degreesByCode(group.air, u"気温"));
  code.walk.field(u"露点温度　　 ： ", degreesByCode(group.dewPoint, u"露点温度"));
}

void tellPressure(ReportWalk& walk, QStringView group) {
  if (hasShape(group, {u"A####"}))
    walk.field(u"高度計規正値 ： ", altimeterByCode(group));
  else if (hasShape(group, {u"Q####"}))
    walk.field(u"地上気圧　　 ： ", Plain{leadingNumber(mid1(group, 2))}, u".0ヘクトパスカル");
  else
    walk.field(u"地上気圧　　 ： ", notReported(u"気圧"));
}

void tellAltimeter(CodeWalk& code) {
  if (!isAltimeter(code.peek())) {
    tellPressure(code.walk, {});
    return;
  }
  // Some stations give both units.
  for (; isAltimeter(code.peek()); code.take())
    tellPressure(code.walk, code.peek());
}

} // namespace

CodeWalk::CodeWalk(ReportWalk& shared) : walk(shared) {
  for (QStringView group : walk.body.split(u' ', Qt::SkipEmptyParts)) {
    if (group.endsWith(u'='))
      group.chop(1);
    if (!group.isEmpty())
      groups.push_back(group);
  }
  hasAdditiveData = std::ranges::any_of(groups, [](QStringView group) {
    return group.startsWith(u"AO1") || group.startsWith(u"AO2") ||
           hasShape(group, {u"SLP###", u"SLPNO", u"T0#######", u"T1#######", u"P####"});
  });
}

void tellBodyByCode(ReportWalk& walk) {
  CodeWalk code(walk);
  tellKinds(code);
  tellWind(code);
  tellVisibility(code);
  tellSky(code);
  tellTemperatures(code);
  tellAltimeter(code);
  tellSupplementByCode(code);
  tellTrendByCode(code);
  tellRemarksByCode(code);
}

} // namespace soran
