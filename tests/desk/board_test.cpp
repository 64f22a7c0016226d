// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desk/board.h"

#include "base/text.h"
#include "base/utc.h"
#include "desk/verdict.h"

#include <gtest/gtest.h>

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

QDateTime at(int hour, int minute) {
  return inUtc(QDate(2026, 11, 24), QTime(hour, minute));
}

const Limits limits = Limits::of(SettingsRecord::standard(u"9"_s));

const std::vector<RunwayEnd> runways = {{u"34L"_s, 330}, {u"16R"_s, 150}};

BoardRow rowOf(const QString& code, const QString& metar, const QString& before = {}) {
  BoardRow row{.code = StationCode(code), .name = u"東京国際"_s};
  row.metar = code + u" 240500Z " + metar;
  row.time = at(5, 0);
  row.values = readElements(row.metar, observationIn(row.metar));
  const QString former = code + u" 240430Z " + before;
  row.before = readElements(former, observationIn(former));
  row.freshness = Freshness::Current;
  row.runwayWind = runwayWind(row.values, runways);
  row.findings = observationVerdict(row.metar, limits).findings;
  return row;
}

QString cell(const BoardRow& row, BoardColumn column) {
  return cellOf(row, column, at(5, 12));
}

QStringList codesOf(const std::vector<BoardRow>& rows) {
  QStringList codes;
  for (const BoardRow& row : rows)
    codes.append(row.code.text());
  return codes;
}

const QString good = u"36010KT 9999 FEW030 12/02 Q1018"_s;

} // namespace

TEST(Board, ShowsTheGroupsOfTheReport) {
  const BoardRow row =
      rowOf(u"RJTT"_s, u"33015G28KT 0700 R34L/0550VP1800D +TSRA BR BKN002 OVC010CB 12/11 Q1013 BECMG 9999"_s,
            u"33010KT 3000 BR SCT010 12/11 A3000"_s);
  const std::pair<BoardColumn, QString> cells[] = {
      {BoardColumn::State, u"L3"_s},
      {BoardColumn::Report, u"METAR 0500Z"_s},
      {BoardColumn::Age, u"12m"_s},
      {BoardColumn::Wind, u"33015G28KT"_s},
      {BoardColumn::Runway, u"34L H28 X0"_s},
      {BoardColumn::Visibility, u"0700 R34L/0550VP1800D"_s},
      {BoardColumn::Weather, u"+TSRA BR"_s},
      {BoardColumn::Ceiling, u"BKN002"_s},
      {BoardColumn::Temperatures, u"12/11"_s},
      {BoardColumn::Qnh, u"Q1013"_s},
      {BoardColumn::Changes, u"WIND↑ VIS↓ CIG↓ QNH↓"_s},
  };
  for (const auto& [column, text] : cells)
    EXPECT_EQ(cell(row, column), text) << headingOf(column).toStdString();
  EXPECT_EQ(cell(rowOf(u"RJTT"_s, u"30012KT 9999"_s), BoardColumn::Runway), u"34L H10 L6");
  EXPECT_EQ(cell(rowOf(u"RJTT"_s, u"VRB03KT 9999"_s), BoardColumn::Runway), u"VRB X3");
  // What is not reported is empty and no change.
  const BoardRow bare = rowOf(u"RJTT"_s, u"///// CAVOK"_s, good);
  EXPECT_EQ(cell(bare, BoardColumn::Temperatures), u"");
  EXPECT_EQ(cell(bare, BoardColumn::Qnh), u"");
  EXPECT_EQ(cell(bare, BoardColumn::Runway), u"");
  EXPECT_EQ(cell(bare, BoardColumn::Visibility), u"CAVOK");
  EXPECT_EQ(cell(bare, BoardColumn::Changes), u"");
  // No change where a figure says "at least", rounds to the same, or has no height.
  EXPECT_EQ(cell(rowOf(u"KJFK"_s, u"9999 BKN/// Q1013"_s, u"P6SM OVC010 A2994"_s), BoardColumn::Changes),
            u"");
}

TEST(Board, EveryStateHasAWordAndARank) {
  BoardRow silent{.code = StationCode(u"ROAH"_s)};
  BoardRow overdue = rowOf(u"RJCC"_s, good);
  overdue.freshness = Freshness::Overdue;
  BoardRow closed = rowOf(u"RJSN"_s, good);
  closed.freshness = Freshness::Closed;
  BoardRow expired = rowOf(u"RJOO"_s, good);
  expired.taf = TafState::Expired;
  BoardRow cancelled = rowOf(u"RJSS"_s, good);
  cancelled.taf = TafState::Cancelled;
  BoardRow forecast = rowOf(u"RJBB"_s, good);
  forecast.outlook.back() = Outlook{{.element = u"VIS"_s, .words = u"0500"_s, .level = 3}, at(9, 0)};
  const BoardRow low = rowOf(u"RJAA"_s, u"00000KT 4000 BR SCT010 12/11 Q1018"_s);
  BoardRow ringing = rowOf(u"RJFF"_s, u"00000KT 4000 BR SCT010 12/11 Q1018"_s);
  ringing.alarm.state = AlarmState::Ringing;
  const BoardRow worst = rowOf(u"RJTT"_s, u"00000KT 0300 FG VV001 12/11 Q1018"_s);
  std::vector<BoardRow> rows = {rowOf(u"RJGG"_s, good),
                                closed,
                                expired,
                                overdue,
                                silent,
                                low,
                                ringing,
                                forecast,
                                worst,
                                rowOf(u"RJNK"_s, u"36010KT 9999 BKN/// 12/02 Q1018"_s),
                                rowOf(u"RJNT"_s, u"NIL"_s),
                                cancelled};
  sortWorstFirst(rows);
  EXPECT_EQ(codesOf(rows).join(u' '), u"RJTT RJBB RJFF RJAA RJCC ROAH RJNT RJOO RJSS RJGG RJSN RJNK");
  QStringList words;
  for (const BoardRow& row : rows)
    words.append(stateWord(row) + (alarmWord(row.alarm).isEmpty() ? QString() : u'/' + alarmWord(row.alarm)));
  EXPECT_EQ(words.join(u' '), u"L3 F3 L1/RING L1 OVERDUE NO DATA NO DATA EXPIRED TAF? OK CLOSED PART");
}

TEST(Board, FitsTheWidthOfTheTerminal) {
  std::vector<BoardRow> rows = {rowOf(u"RJTT"_s, u"33015KT 0700 BR BKN002 12/11 Q1013"_s, good),
                                rowOf(u"RJAA"_s, good)};
  for (const int columns : {200, 120, 80, 40, 10, 1}) {
    const QStringList lines = boardText(rows, columns, at(5, 12)).split(crlf.toString());
    ASSERT_EQ(lines.size(), 3);
    for (const QString& line : lines)
      EXPECT_LE(displayWidth(line), std::max(columns, 4)) << line.toStdString();
  }
  EXPECT_EQ(boardText(rows, 80, at(5, 12)).toStdString(),
            "ST AP   REPORT      AGE WIND    RWY        VIS/RVR WX CIG    QNH\r\n"
            "L3 RJTT METAR 0500Z 12m 33015KT 34L H15 X0 0700    BR BKN002 Q1013\r\n"
            "OK RJAA METAR 0500Z 12m 36010KT 34L H9 R5  9999              Q1018");
}

namespace {

/// "VIS 0700, CIG BKN001 (VIS CIG)": what a report says, and of which elements it has a value.
QString toldBy(const Verdict& verdict) {
  QStringList words;
  for (const Finding& finding : verdict.findings)
    words.append(finding.element + u' ' + finding.words);
  return words.join(u", ") + u" (" + verdict.told.join(u' ') + u')';
}

} // namespace

TEST(Verdict, ReadsTheForecastAhead) {
  const QString text = u"TAF RJTT 240505Z 2406/2512 36010KT 9999 FEW030 BECMG 2409/2411 4000 BR "
                       "TEMPO 2412/2415 0700 FG BKN001 TEMPO 2413/2415 0100 FG"_s;
  const QString metar = u"RJTT 240500Z 36010KT 9999 FEW030 12/02 Q1018 TEMPO TL0630 3000"_s;
  const auto taf = readTaf(text, at(5, 12));
  const auto trend = readMetar(metar, at(5, 12));
  ASSERT_TRUE(taf && trend);
  const Forecast forecasts[] = {{metar, trend->slices}, {text, taf->slices}};
  const auto worst = [&](int from, int hours) {
    const auto outlook = worstOutlook(forecasts, at(from, 0), at(from + hours, 0), limits);
    return outlook ? outlook->worst.words + outlook->begins.toString(u"/HH"_s) : QString();
  };
  EXPECT_EQ(worst(8, 1), u"");
  EXPECT_EQ(worst(8, 3), u"4000/09");
  // The worst of the highest limit, be it of another element or later than the first one beyond it.
  EXPECT_EQ(worst(8, 5), u"BKN001/12");
  EXPECT_EQ(worst(8, 6), u"0100/13");
  EXPECT_EQ(worst(6, 1), u"3000/06");
  EXPECT_EQ(toldBy(tafVerdict(text, at(8, 0), limits)),
            u"VIS 0100, CIG BKN001 (VIS RVR CIG WIND GUST XWIND WX)");
  EXPECT_EQ(toldBy(tafVerdict(text, at(15, 0), limits)), u"VIS 4000 (VIS RVR CIG WIND GUST XWIND WX)");
  EXPECT_EQ(toldBy(metarVerdict(metar, at(5, 12), limits)),
            u"TREND VIS 3000 (VIS RVR CIG WIND GUST XWIND WX TREND VIS TREND RVR TREND CIG TREND WIND "
            "TREND GUST TREND XWIND TREND WX)");
}

TEST(Verdict, KnowsWhatAReportDoesNotTell) {
  const std::pair<QString, QString> observations[] = {
      {u"CAVOK"_s, u" (VIS RVR CIG WX)"_s},
      {u"1500 FEW010"_s, u"VIS 1500 (VIS RVR CIG WX)"_s},
      {u"1400 BKN///"_s, u"VIS 1400 (VIS WX)"_s},
      {u"9999 FEW020 BKN///"_s, u" (VIS RVR CIG WX)"_s},
      {u"9999 FEW005 BKN///"_s, u" (VIS RVR WX)"_s},
      {u"9999 FEW014 //////TCU"_s, u" (VIS RVR CIG WX)"_s},
      {u"9999 // FEW014"_s, u" (VIS RVR CIG)"_s},
      {u"//// // RA SCT010"_s, u" (CIG WX)"_s},
      {u"36010KT"_s, u" (WIND GUST XWIND)"_s},
      {u"///10KT"_s, u" (WIND GUST)"_s},
      {u"360//KT"_s, u" ()"_s},
      // What was meant for an element and is none may be any of them.
      {u"9999 FEW014 OVCOO1"_s, u" ()"_s},
      {u"07OO FEW014"_s, u" ()"_s},
      {u"9999 FEW014 ///015"_s, u" (VIS RVR WX)"_s},
      {u"//// SCT010"_s, u" (CIG)"_s},
      {u"//// ////// R34/0400"_s, u"RVR R34/0400 (RVR)"_s},
      {u"NIL"_s, u" ()"_s},
  };
  for (const auto& [groups, expected] : observations)
    EXPECT_EQ(toldBy(observationVerdict(QString(u"RJTT 240500Z /////KT " + groups), limits)), expected);
  const std::pair<QString, TafState> tafs[] = {
      {u"TAF RJTT 240505Z NIL"_s, TafState::Missing},
      {u"TAF AMD RJTT 240505Z 2406/2512 CNL"_s, TafState::Cancelled},
      {u"TAF RJTT 240505Z 2406/25"_s, TafState::Unread},
      {u"TAF RJTT 240505Z 2406/2512 36010KT 9999 FEW030 TEMPO 2499/2412 0400"_s, TafState::Unread},
      {u"TAF RJTT 240505Z 2406/2512 36010KT 9999 FEW030 TEMPO 2408/2412 07OO FG VVOO1"_s, TafState::Unread},
      {u"TAF RJTT 222305Z 2300/2406 36010KT 0400"_s, TafState::Expired},
      {u""_s, TafState::None},
  };
  for (const auto& [text, state] : tafs) {
    EXPECT_EQ(toldBy(tafVerdict(text, at(8, 0), limits)), u" ()") << text.toStdString();
    EXPECT_EQ(boardRow(StationCode(u"RJTT"_s), {.taf = text}, limits, at(8, 0)).taf, state);
  }
}
