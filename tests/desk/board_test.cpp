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
  row.findings = metarFindings(row.metar, limits);
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
      {BoardColumn::Qnh, u"1013"_s},
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
}

TEST(Board, EveryStateHasAWordAndARank) {
  BoardRow silent{.code = StationCode(u"ROAH"_s)};
  BoardRow overdue = rowOf(u"RJCC"_s, good);
  overdue.freshness = Freshness::Overdue;
  BoardRow closed = rowOf(u"RJSN"_s, good);
  closed.freshness = Freshness::Closed;
  BoardRow expired = rowOf(u"RJOO"_s, good);
  expired.tafExpired = true;
  BoardRow forecast = rowOf(u"RJBB"_s, good);
  forecast.outlook.back() = Outlook{{.element = u"VIS"_s, .words = u"0500"_s, .level = 3}, at(9, 0)};
  const BoardRow low = rowOf(u"RJAA"_s, u"00000KT 4000 BR SCT010 12/11 Q1018"_s);
  BoardRow ringing = rowOf(u"RJFF"_s, u"00000KT 4000 BR SCT010 12/11 Q1018"_s);
  ringing.alarm.state = AlarmState::Ringing;
  const BoardRow worst = rowOf(u"RJTT"_s, u"00000KT 0300 FG VV001 12/11 Q1018"_s);
  std::vector<BoardRow> rows = {
      rowOf(u"RJGG"_s, good), closed, expired, overdue, silent, low, ringing, forecast, worst};
  sortWorstFirst(rows);
  EXPECT_EQ(codesOf(rows).join(u' '), u"RJTT RJBB RJFF RJAA RJCC ROAH RJOO RJGG RJSN");
  QStringList words;
  for (const BoardRow& row : rows)
    words.append(stateWord(row) + (alarmWord(row.alarm).isEmpty() ? QString() : u'/' + alarmWord(row.alarm)));
  EXPECT_EQ(words.join(u' '), u"L3 F3 L1/RING L1 OVERDUE NO DATA EXPIRED OK CLOSED");
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
            "L3 RJTT METAR 0500Z 12m 33015KT 34L H15 X0 0700    BR BKN002 1013\r\n"
            "OK RJAA METAR 0500Z 12m 36010KT 34L H9 R5  9999              1018");
}

TEST(Verdict, ReadsTheForecastAhead) {
  const QString text = u"TAF RJTT 240505Z 2406/2512 36010KT 9999 FEW030 BECMG 2409/2411 4000 BR "
                       "TEMPO 2412/2415 0700 FG BKN001"_s;
  const auto taf = readTaf(text, at(5, 12));
  ASSERT_TRUE(taf);
  const auto worst = [&](int hours) { return worstOutlook(*taf, text, at(8, 0), at(8 + hours, 0), limits); };
  EXPECT_FALSE(worst(1));
  ASSERT_TRUE(worst(3));
  EXPECT_EQ(worst(3)->worst.words, u"4000");
  EXPECT_EQ(worst(3)->begins, at(9, 0));
  EXPECT_EQ(worst(6)->worst.level, 3);
  EXPECT_EQ(worst(6)->begins, at(12, 0));
  const auto told = [&](const QDateTime& now) {
    QStringList words;
    for (const Finding& finding : tafFindings(text, now, limits))
      words.append(finding.element + u' ' + finding.words);
    return words.join(u", ");
  };
  EXPECT_EQ(told(at(8, 0)), u"VIS 0700, CIG BKN001");
  EXPECT_EQ(told(at(15, 0)), u"VIS 4000");
  EXPECT_TRUE(tafFindings(u"RJTT NIL"_s, at(5, 0), limits).empty());
}
