// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/translate_report.h"

#include "base/report_rules.h"
#include "reports/code_phrases.h"
#include "reports/phrases.h"
#include "reports/report_walk.h"

#include <algorithm>

namespace soran {

namespace {

// Airfields of the defence forces and others that are not called airports.
constexpr std::array<QStringView, 38> airfields{
    u"RJCA", u"RJCJ", u"RJSH", u"RJSU", u"RJST", u"RJSM", u"RJSO", u"RJTA", u"RJTF", u"RJAH",
    u"RJTJ", u"RJAK", u"RJTK", u"RJTL", u"RJTC", u"RJTE", u"RJTU", u"RJTY", u"RJTR", u"RJAW",
    u"RJAM", u"RJOE", u"RJNG", u"RJNH", u"RJNA", u"RJNY", u"RJOY", u"RJBH", u"RJOF", u"RJOI",
    u"RJOZ", u"RJFA", u"RJFY", u"RJDM", u"RJFN", u"RJFZ", u"RORM", u"RODN",
};

bool isRoutine(QStringView time) {
  return MinuteOfHour{leadingNumber(mid1(time, 3, 2))}.isRoutine();
}

void tellHeader(ReportWalk& walk, QStringView code, QStringView time) {
  writeAll(walk.time, mid1(time, 1, 2), u"時", mid1(time, 3, 2), u"分(", time.last(time.isEmpty() ? 0 : 1),
           u") 発表");
  const QString name = nameOfStation(asciiUpper(trimBlanks(code)), walk.settings, walk.dictionaries);
  const bool airfield = std::ranges::find(airfields, code) != airfields.end();
  walk.tell(u"*** ", name, airfield ? u"飛行場 " : u"空港 ",
            isRoutine(time) ? u"定時飛行場実況通報 " : u"特別飛行場実況通報 ", walk.time, u" ***", crlf,
            crlf);
}

void tellAutomatic(ReportWalk& walk) {
  walk.groups.NextToken();
  if (walk.groups.token() == u"AUTO")
    walk.tell(u"観測形態　　 ： 自動観測装置による観測 (METAR AUTO)", crlf);
  else
    walk.groups.PushBack();
}

/// The wind and its variation; the group behind them becomes the current one.
void tellWind(ReportWalk& walk) {
  GroupReader& groups = walk.groups;
  walk.tell(u"風向/風速　　： ");
  groups.NextToken();
  if (groups.token() == u"CALM") {
    walk.tell(u"無風");
    groups.NextToken();
    return;
  }
  if (groups.token().contains(u"KT"))
    walk.tell(WindPhrase(groups.token()));
  groups.NextToken();
  const QStringView token = groups.token();
  if (token.contains(u'V') && !token.contains(u"CAVOK")) {
    walk.tell(u" / ", mid1(token, 1, 3), u"°から ", mid1(token, 5, 3), u"°の間で風向変動あり");
    groups.NextToken();
  }
}

void tellRunwayRanges(ReportWalk& walk) {
  GroupReader& groups = walk.groups;
  QStringView unread = groups.rest();
  groups.NextToken();
  while (groups.token().contains(u'R') && groups.token().contains(u'/')) {
    // A last group that is a runway range would be told without end.
    if (!groups.more())
      throw TextFailure();
    walk.field(walk.out.title(RepeatedField::Rvr), RvrPhrase(groups.token()));
    unread = groups.rest();
    groups.NextToken();
  }
  groups.setRest(unread);
}

/// Visibility, runway ranges, weather and cloud, up to the temperature group, which becomes the current one.
void tellSky(ReportWalk& walk) {
  constexpr QStringView visibility = u"地上視程　　 ： ";
  const QStringView token = walk.groups.token();
  if (token == u"SKC" || token == u"CAVOK") {
    walk.field(u"現在天気　　 ： ", token == u"SKC" ? u"快晴" : u"晴れ");
    walk.groups.NextToken();
    return;
  }
  if (token == u"9999") {
    walk.field(visibility, u"10キロメートル以上");
  } else if (token == u"10SM") {
    walk.field(visibility, u"10陸マイル (Statute Mile) 以上");
  } else if (token.contains(u"KM")) {
    walk.field(visibility, Plain{leadingNumber(token)}, u"キロメートル");
  } else {
    if (token.contains(u"SM"))
      walk.field(visibility, token.chopped(2), u" 陸マイル (Statute Mile)");
    else
      walk.field(visibility, Plain{leadingNumber(token)}, u"メートル");
    tellRunwayRanges(walk);
  }
  tellWeatherAndCloud(walk);
}

void tellDegrees(ReportWalk& walk, QStringView title, QStringView value) {
  if (value.startsWith(u'M'))
    walk.field(title, u"マイナス ", Plain{leadingNumber(mid1(value, 2, 2))}, u"℃");
  else
    walk.field(title, Plain{leadingNumber(mid1(value, 1, 2))}, u"℃");
}

void tellTemperature(ReportWalk& walk) {
  const QStringView token = walk.groups.token();
  const Position1 slash = find1(token, u"/");
  tellDegrees(walk, u"地上気温　　 ： ", token);
  tellDegrees(walk, u"露点温度　　 ： ", slash ? mid1(token, slash + 1) : QStringView());
}

void tellAltimeter(ReportWalk& walk) {
  walk.groups.NextToken();
  const QStringView token = walk.groups.token();
  if (token.startsWith(u'A'))
    walk.field(u"高度計規正値 ： ", mid1(token, 2, 2), u".", mid1(token, 4, 2), u"インチ水銀柱");
  else
    walk.field(u"地上気圧　　 ： ", Plain{leadingNumber(mid1(token, 2))}, u".0ヘクトパスカル");
}

void tellBody(ReportWalk& walk) {
  tellAutomatic(walk);
  tellWind(walk);
  tellSky(walk);
  tellTemperature(walk);
  tellAltimeter(walk);
  tellTrend(walk);
  tellRemarks(walk);
  tellClosing(walk);
}

} // namespace

QString TranslateReport(const StationCode& code, QStringView time, QStringView body,
                        const SettingsRecord& settings, const Dictionaries& dictionaries) {
  // Titles and sentences take about six times the room of their groups.
  constexpr qsizetype growth = 6;
  constexpr qsizetype header = 100;
  QString oneLine = body.toString();
  oneLine.replace(u'\n', u' ');
  // A report whose line end is missing reads as with one.
  if (!oneLine.endsWith(u' '))
    oneLine += u' ';
  try {
    ReportWalk walk(oneLine, settings, dictionaries);
    walk.out.text.reserve(header + growth * body.size());
    tellHeader(walk, code.text(), time);
    if (readsByCode(settings))
      tellBodyByCode(walk);
    else
      tellBody(walk);
    walk.tell(crlf);
    return walk.out.text;
  } catch (const TextFailure&) {
    return untranslatable.toString();
  }
}

} // namespace soran
