// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/layout.h"

#include "base/report_rules.h"
#include "reports/group_titles.h"
#include "support/printing.h"

#include <gtest/gtest.h>

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

SettingsRecord zone(const QString& offset, bool local = true) {
  SettingsRecord settings = SettingsRecord::standard(offset);
  settings.set(key::LOCAL使用, local);
  return settings;
}

} // namespace

TEST(Layout, TimeLabelFollowsTheStampAndTheZone) {
  const struct {
    QString response;
    QString offset;
    bool local;
    QString label;
  } cases[] = {
      {u"2026/11/24 05:00\n"_s, u"+9"_s, true, u"1400I"_s},
      {u"2026/11/24 18:30\n"_s, u"+9"_s, true, u"0330I"_s},
      {u"2026/11/24 03:10\n"_s, u"-5"_s, true, u"2210R"_s},
      {u"2026/11/24 03:10\n"_s, u"±0"_s, true, u"0310Z"_s},
      {u"2026/11/24 05:00\n"_s, u"+9"_s, false, u"0500Z"_s},
      {u"2026/11/24 05:00\n"_s, u"+13"_s, true, u"1800"_s},
      {QString(), u"+9"_s, true, u"09I"_s},
      {QString(), u"+9"_s, false, u"00Z"_s},
      {u"2026/11/24 xx:yy\n"_s, u"+9"_s, false, u"00yyZ"_s},
  };
  for (const auto& c : cases)
    EXPECT_EQ(layoutReport(c.response, ReportKind::Metar, zone(c.offset, c.local)).obsTime, c.label)
        << c.offset.toStdString();
}

TEST(Layout, StampIsTrimmedOfBlanksOnly) {
  EXPECT_EQ(Stamp::of(u"2026/11/24 05:00\nRJTT").text(), u"05:00");
  EXPECT_EQ(Stamp::of(u"2026/11/24  5:0 \n").text(), u"5:0");
  EXPECT_EQ(Stamp::of(u"2026/11/24 05").text(), u"05");
  EXPECT_EQ(Stamp::of(u"short").text(), u"");
}

TEST(Layout, BodyIsCutByPositionAndIndentedToSixBlanks) {
  const SettingsRecord utc = zone(u"+9"_s, false);
  const struct {
    ReportKind kind;
    QString response;
    QString body;
  } cases[] = {
      {ReportKind::Metar, u"2026/11/24 05:00\nRJTT 240500Z 33010KT 9999 FEW020 10/02 Q1020\n"_s,
       u"      240500Z 33010KT 9999 FEW020 10/02 Q1020\n"_s},
      {ReportKind::Taf,
       u"2026/11/24 05:00\nTAF RJTT 240500Z 2406/2512 33010KT\n     BECMG 2408/2409 36010KT\n"
       u"     TEMPO 2412/2415 4000 -RA BKN010\n"_s,
       u"      240500Z 2406/2512 33010KT\n      BECMG   2408/2409 36010KT\n"
       u"      TEMPO   2412/2415 4000 -RA BKN010\n"_s},
      {ReportKind::Taf, u"2026/11/24 05:00\nTAF AMD RJTT 240500Z\n"_s, u"      RJTT 240500Z\n"_s},
      {ReportKind::Metar, u"2026/11/24 05:00\nRJTT COR RECORD\n"_s, u"      COR   RECOR  D\n"_s},
      {ReportKind::Metar, u"2026/11/24 05:00\nRJTT"_s, u"      "_s},
      {ReportKind::Metar, QString(), u"      "_s},
  };
  for (const auto& c : cases)
    EXPECT_EQ(layoutReport(c.response, c.kind, utc).body, c.body);
}

TEST(Layout, RunsOfBlanksComeOutAsOneIndent) {
  const SettingsRecord utc = zone(u"+9"_s, false);
  const int expected[][2] = {{1, 1}, {3, 3}, {4, 5}, {5, 6}, {6, 6}, {7, 6}, {8, 6}, {9, 7}, {10, 8}};
  for (const auto& [in, out] : expected) {
    const QString body =
        layoutReport(QString(u"2026/11/24 05:00\nRJTTx"_s + QString(in, u' ') + u"y"), ReportKind::Metar, utc)
            .body;
    EXPECT_EQ(body.count(u' ') - body.indexOf(u'x'), out) << in;
  }
}

TEST(Layout, KindGoesByTheMinuteAlone) {
  for (const int minute : {0, 30, 50, 59})
    EXPECT_TRUE(MinuteOfHour{double(minute)}.isRoutine()) << minute;
  for (const int minute : {1, 15, 29, 31, 49})
    EXPECT_FALSE(MinuteOfHour{double(minute)}.isRoutine()) << minute;
}

TEST(Layout, HeadingOfASingleLine) {
  const LineHeading heading = lineHeading(StationCode(u"RJTT"_s), u"RJTT 241512Z SPECI", zone(u"+9"_s));
  EXPECT_EQ(heading.text, u"\r\nRJTT  SPECI 0012I");
  EXPECT_EQ(heading.time, u"0012I");
  EXPECT_EQ(lineHeading(StationCode(u"RJTT"_s), u"RJTT 240300Z", zone(u"-5"_s)).time, u"2200R");
  EXPECT_EQ(lineHeading(StationCode(u"RJTT"_s), u"RJ", zone(u"+9"_s)).text, u"\r\nRJTT  METAR 09I");
  EXPECT_EQ(lineHeading(StationCode(u"RJTT"_s), u"RJ", zone(u"+9"_s, false)).text, u"\r\nRJTT  METAR Z");
}

TEST(GroupTitles, CompanyRouteIsNamedByTheLastLettersOfTwoStations) {
  EXPECT_EQ(groupTitles(u"TTCT", u"RJTT RJCT RJAA").title,
            u"*** RJTT - RJCT COMPANY ROUTINE ROUTE OBSERVATION AND FORECASTS ***");
  EXPECT_EQ(groupTitles(u"TTCT", u"RJTT RJCT").log, u"GROUP TTCT DECODE SEQUENCE START");
  for (const QStringView other : {u"TTCC", u"KANTO", u"TTC"}) {
    EXPECT_EQ(groupTitles(other, u"RJTT RJCT").opening, u"GROUP FORMAT");
    EXPECT_EQ(groupTitles(other, u"RJTT RJCT").log, u"FORMAT "_s + other + u" DECODE SEQUENCE START");
  }
}
