// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/text.h"
#include "sun/sun_graph.h"
#include "sun/sun_time_model.h"
#include "support/printing.h"

#include <gtest/gtest.h>

using namespace soran;

namespace {

QList<Airport> airports() {
  const struct {
    QStringView code, name;
  } rows[] = {
      {u"RJEC", u"旭 川"}, {u"RJTT", u"　東京国際 "}, {u"RJCA", u"旭川"},   {u"KJFK", u"ニューヨーク"},
      {u"RJCO", u"札幌"},  {u"RJNS", u"静岡"},        {u"RJZZ", u"無座標"}, {u"RODN", u"嘉手納"},
      {u"RJSS", u"仙台"},  {u"RORS", u"---"},
  };
  QList<Airport> list;
  for (const auto& row : rows)
    list.append({row.code.toString(), row.name.toString()});
  return list;
}

} // namespace

TEST(SunTable, ListHoldsJapaneseFieldsThenNamedOnes) {
  const QStringList list = sunFieldList(airports());
  EXPECT_EQ(list.first(9).join(u' '),
            u"旭川 東京国際(東京) 旭川(JSDF) 札幌(丘珠) 静岡 無座標 嘉手納 仙台 ---");
  EXPECT_EQ(list.sliced(9, 3).join(u' '), u"--- 阿見 ダイコロ愛別");
  EXPECT_EQ(list.sliced(18, 3).join(u' '), u"弟子屈 --- 明石川崎(H)");
  EXPECT_EQ(list.last(), u"湯村温泉(H)");
  EXPECT_EQ(list.size(), 9 + 1 + 9 + 1 + 48);
  EXPECT_EQ(sunYearList(2026), (QList<int>{2023, 2024, 2025, 2026, 2027, 2028, 2029, 2030, 2031, 2032}));
  EXPECT_EQ(sunYearList(2026).at(sunCurrentYearIndex), 2026);
}

TEST(SunTable, LabelsFollowTheEntry) {
  const struct {
    QStringView entry, code, latitude, longitude, elevation, deltaH;
  } cases[] = {
      {u"東京国際(東京)", u"RJTT", u"35 33 12 N", u"139 46 52 E", u"21", u"-6"},
      {u"仙台", u"RJSS", u"38 08 23 N", u"140 55 01 E", u"5.6", u"+9"},
      {u"旭川", u"RJEC", u"43 40 15 N", u"142 26 51 E", u"690", u"-675"},
      {u"旭川(JSDF)", u"RJCA", u"43 47 40 N", u"142 21 54 E", u"377", u"-362"},
      {u"東京(H)", u"", u"35 38 10 N", u"139 50 22 E", u"16", u"-1"},
      {u"舞洲(H)", u"", u"34 40 22 N", u"135 24 09 E", u"15.4", u"0"},
      {u"奈良県(H)", u"", u"34 39 23 N", u"135 53 05 E", u"1487.9", u"-1473"},
      // The name ahead of the bracket gives the code, the whole entry the position.
      {u"静岡(H)", u"RJNS", u"35 01 28 N", u"138 24 31 E", u"34", u"-19"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.entry.toUtf8().toStdString());
    const SunTable table = sunTable(c.entry, 2010, airports());
    EXPECT_TRUE(table.valid);
    EXPECT_EQ(table.code, c.code);
    EXPECT_EQ(table.latitude, c.latitude);
    EXPECT_EQ(table.longitude, c.longitude);
    EXPECT_EQ(table.elevation, c.elevation);
    EXPECT_EQ(table.deltaH, c.deltaH);
  }
  // The code's position is missing, although the named table has one of the whole entry.
  const QList<Airport> lost{{QStringLiteral("RJZZ"), QStringLiteral("東京")}};
  EXPECT_FALSE(sunTable(u"東京(H)", 2010, lost).valid);
  for (const QStringView none : {u"---", u"無座標", u"ニューヨーク", u"知らない", u""}) {
    const SunTable table = sunTable(none, 2012, airports());
    EXPECT_FALSE(table.valid || table.leapYear) << none.toUtf8().toStdString();
    EXPECT_EQ(table.code + table.latitude + table.longitude + table.elevation + table.deltaH, u"");
    EXPECT_TRUE(table.days.isEmpty());
    EXPECT_TRUE(sunGraph(table).extremes.isEmpty());
  }
}

TEST(SunTable, EveryFourthYearIsALeapYear) {
  const SunTable common = sunTable(u"東京国際(東京)", 2010, airports());
  EXPECT_FALSE(common.leapYear);
  ASSERT_EQ(common.days.size(), 365);
  EXPECT_EQ(common.days.first(), (SunDay{QStringLiteral("0650"), QStringLiteral("1639")}));
  EXPECT_EQ(common.days.at(354), (SunDay{QStringLiteral("0646"), QStringLiteral("1632")}));
  const SunTable century = sunTable(u"東京国際(東京)", 2100, airports());
  EXPECT_TRUE(century.leapYear);
  ASSERT_EQ(century.days.size(), 366);
  EXPECT_EQ(century.days.at(59), (SunDay{QStringLiteral("0611"), QStringLiteral("1736")}));
}

TEST(SunGraph, PointsAndExtremesFollowTheYear) {
  const struct {
    int year;
    double firstSunset;
    SunExtreme extremes[4];
  } cases[] = {
      {2010,
       4665,
       {{QStringLiteral("0424"), QStringLiteral(" 6月11日 "), 6376.602739726028, 5165},
        {QStringLiteral("0650"), QStringLiteral(" 1月1日 "), 660, 2045},
        {QStringLiteral("1628"), QStringLiteral(" 12月2日 "), 12554.794520547945, 5085},
        {QStringLiteral("1901"), QStringLiteral(" 6月25日 "), 6873.698630136986, 1825}}},
      {2024,
       4685,
       {{QStringLiteral("0424"), QStringLiteral(" 6月11日 "), 6396.393442622951, 5165},
        {QStringLiteral("0650"), QStringLiteral(" 1月1日 "), 660, 2045},
        {QStringLiteral("1628"), QStringLiteral(" 12月1日 "), 12522.295081967213, 5085},
        {QStringLiteral("1901"), QStringLiteral(" 6月24日 "), 6856.7213114754095, 1825}}},
  };
  for (const auto& c : cases) {
    const SunTable table = sunTable(u"東京国際(東京)", c.year, airports());
    const SunGraph graph = sunGraph(table);
    ASSERT_EQ(graph.sunrise.size(), table.days.size());
    ASSERT_EQ(graph.sunset.size(), table.days.size());
    EXPECT_EQ(graph.sunrise.first(), (SunPoint{660, 2045}));
    EXPECT_EQ(graph.sunset.first(), (SunPoint{660, c.firstSunset}));
    ASSERT_EQ(graph.extremes.size(), 4);
    for (int i = 0; i < 4; ++i) {
      EXPECT_EQ(graph.extremes[i].time, c.extremes[i].time);
      EXPECT_EQ(graph.extremes[i].date, c.extremes[i].date);
      EXPECT_DOUBLE_EQ(graph.extremes[i].x, c.extremes[i].x);
      EXPECT_DOUBLE_EQ(graph.extremes[i].y, c.extremes[i].y);
    }
  }
}

TEST(SunTimeModel, SelectionDecidesMessagePrintingAndMarks) {
  SunTimeModel model(airports(), QDate(2010, 12, 21));
  EXPECT_FALSE(model.printEnabled());
  EXPECT_EQ(model.todayCell(), (SunTimeModel::Cell{21, 34}));
  const struct {
    QStringView field;
    int year;
    SunTimeModel::Outcome outcome;
    bool todayLine;
  } cases[] = {
      {u"東京国際(東京)", 2010, SunTimeModel::Outcome::Shown, true},
      {u"東京国際(東京)", 2011, SunTimeModel::Outcome::Shown, false},
      {u"---", 2010, SunTimeModel::Outcome::Cleared, false},
      {u"無座標", 2010, SunTimeModel::Outcome::NoPosition, false},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(model.select(c.field.toString(), c.year), c.outcome);
    EXPECT_EQ(model.printEnabled(), c.outcome == SunTimeModel::Outcome::Shown);
    EXPECT_EQ(model.todayLineShown(), c.todayLine);
  }
}

TEST(SunTimeModel, GraphIsDrawnAnewOnceAfterEachTurn) {
  SunTimeModel model(airports(), QDate(2010, 12, 21));
  model.select(QStringLiteral("仙台"), 2010);
  EXPECT_TRUE(model.showTab(SunTimeModel::Tab::Graph));
  EXPECT_FALSE(model.monthFramesShown());
  EXPECT_FALSE(model.showTab(SunTimeModel::Tab::Graph));
  model.showTab(SunTimeModel::Tab::Table);
  EXPECT_TRUE(model.monthFramesShown());
  EXPECT_TRUE(model.showTab(SunTimeModel::Tab::Graph));
}

TEST(SunTimeModel, PrintedPageHoldsTitleHeadersAndEveryDay) {
  SunTimeModel model(airports(), QDate(2010, 12, 21));
  model.select(QStringLiteral("東京(H)"), 2010);
  EXPECT_EQ(model.printPage().first().text,
            u"2010年  空港別 常用日出没時刻    【東京(H)】     35 38 10 N   139 50 22 E    ELV=16    "
            u"EH=MSL+15    ⊿H=-1");
  model.select(QStringLiteral("東京国際(東京)"), 2010);
  const QList<SunPrintText> page = model.printPage();
  EXPECT_TRUE(page.first().text.contains(u"【RJTT  東京国際(東京)】"));
  EXPECT_EQ(page.size(), 1 + 12 + 1 + 31 + 2 * 365);
  EXPECT_TRUE(page.contains(SunPrintText{440 * 34 + 430, 850, QStringLiteral("12月"), 9, false}));
  EXPECT_TRUE(page.contains(SunPrintText{440 * 34 + 200, 330 * 21 + 920, QStringLiteral("0646"), 9, false}));
  EXPECT_TRUE(page.contains(SunPrintText{440 * 35 + 200, 330 * 21 + 920, QStringLiteral("1632"), 9, false}));
  EXPECT_TRUE(page.contains(SunPrintText{200, 330 * 31 + 920, QStringLiteral("31"), 9, false}));
}
