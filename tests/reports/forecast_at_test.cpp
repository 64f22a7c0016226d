// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/forecast_at.h"

#include "base/utc.h"
#include "reports/sample_tables.h"
#include "support/printing.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace soran;

namespace {

const QDateTime now = inUtc({2026, 8, 31}, {14, 30}).addSecs(40);

TEST(ForecastAt, TheNextTimeOfDay) {
  const struct {
    QStringView text;
    bool local;
    QString offset, time;
  } cases[] = {
      {u"1430Z", true, u"+9"_s, u"31 1430"_s}, {u"1429Z", true, u"+9"_s, u"01 1429"_s},
      {u"1430", false, u"+9"_s, u"31 1430"_s}, {u"2330", true, u"+9"_s, u"31 1430"_s},
      {u"2329", true, u"+9"_s, u"01 1429"_s},  {u"0000", true, u"+9"_s, u"31 1500"_s},
      {u"0930", true, u"-5"_s, u"31 1430"_s},  {u"2359", true, u"-5"_s, u"01 0459"_s},
      {u"0000", true, u"±0"_s, u"01 0000"_s},
  };
  for (const auto& c : cases) {
    const auto next = nextTime(c.text, now, zoned(c.local, c.offset));
    ASSERT_TRUE(next);
    EXPECT_EQ(next->toString(u"dd HHmm"_s), c.time)
        << c.text.toUtf8().toStdString() << c.offset.toStdString();
  }
  for (const QStringView text :
       {u"", u"Z", u"2400", u"1260Z", u"143", u"14300", u"-130", u"1430z", u"14 0", u"１４３０"})
    EXPECT_FALSE(nextTime(text, now, zoned(true, u"+9"_s))) << text.toUtf8().toStdString();
}

TEST(ForecastAt, TakesWhatTouchesTheHourOnEitherSide) {
  const QString taf =
      u"TAF RJTT 310505Z 3106/0112 16008KT 9999 FEW030 TEMPO 3108/3109 RA TEMPO 3109/3110 DZ TEMPO "
      "3111/3112 SN TEMPO 3112/3113 GR BECMG 3104/3110 20010KT"_s;
  const auto kindsAt = [&](int hour) {
    const StationForecast forecast =
        forecastAt({}, taf, inUtc({2026, 8, 31}, {hour, 0}), inUtc({2026, 8, 31}, {6, 0}), {});
    QStringList groups;
    for (const ForecastSlice& slice : forecast.tafSlices)
      groups += slice.values.allWords().front().in(taf).toString();
    return groups;
  };
  EXPECT_EQ(kindsAt(10), (QStringList{u"20010KT"_s, u"16008KT"_s, u"DZ"_s, u"20010KT"_s, u"SN"_s}));
  EXPECT_EQ(kindsAt(11), (QStringList{u"20010KT"_s, u"SN"_s, u"GR"_s}));
  EXPECT_EQ(kindsAt(4), QStringList{u"20010KT"_s});
  EXPECT_EQ(kindsAt(2), QStringList());
}

TEST(ForecastAt, TellsTheWorstOfBothReports) {
  const QString metar =
      u"2026/08/31 14:00\nRJTT 311400Z 16008KT 9999 BKN030 24/18 Q1012 TEMPO 0700 FG RMK A2990\n"_s;
  const QString taf = u"2026/08/31 11:05\nTAF RJTT 311105Z 3112/0118 16008KT 9999 FEW030\n     TEMPO "
                      u"3115/3118 1500 BR BKN001\n"
                      "     BECMG 9999/0100 RA\n"_s;
  const SettingsRecord settings = zoned(true, u"+9"_s);
  const Limits limits = Limits::of(settings);
  const QString body =
      u"METAR  31 2300I ： RJTT 311400Z 16008KT 9999 BKN030 24/18 Q1012 TEMPO 0700 FG RMK A2990\r\n"
      "      31 2300I - 01 0100I  卓越する状態 ： 16008KT 9999 BKN030 24/18 Q1012\r\n"
      "      31 2300I - 01 0100I  一時的 (TEMPO) ： 0700 FG\r\n"
      "TAF  31 2005I 発表 ： 有効 31 2100I - 02 0300I\r\n"
      "      31 2100I - 02 0300I  卓越する状態 ： 16008KT 9999 FEW030\r\n"
      "      01 0000I - 01 0300I  一時的 (TEMPO) ： 1500 BR BKN001\r\n"
      "      読み取れない部分 ： BECMG 9999/0100 RA\r\n"_s;
  const StationForecast both = forecastAt(metar, taf, inUtc({2026, 8, 31}, {15, 0}), now, limits);
  EXPECT_EQ(forecastText(both, settings),
            body + u"最も悪い予報 ： TAF 一時的 (TEMPO) 01 0000I - 01 0300I に 雲高 BKN001\r\n"
                   "      条件3 の制限値 200 ft を 100 ft 下回る\r\n");
  ASSERT_TRUE(both.worst);
  EXPECT_EQ(both.worst->report, ReportKind::Taf);
  EXPECT_EQ(both.worst->crossing.words.in(taf), u"BKN001");

  const StationForecast trend = forecastAt(metar, {}, inUtc({2026, 8, 31}, {15, 0}), now, limits);
  EXPECT_TRUE(forecastText(trend, zoned(false, u"+9"_s))
                  .endsWith(u"TAF  予報なし\r\n最も悪い予報 ： METAR 傾向予報 一時的 (TEMPO) 31 1400Z - 31 "
                            u"1600Z に 視程 0700\r\n"
                            "      条件3 の制限値 800 m を 100 m 下回る\r\n"));
}

TEST(ForecastAt, SaysWhatThereIsNotToSay) {
  const struct {
    QStringView metar, taf, line;
  } cases[] = {
      {u"", u"", u"METAR  通報なし\r\nTAF  予報なし\r\n最も悪い予報 ： この時刻の予報がありません\r\n"},
      {u"<html>", u"TAF RJTT 311105Z", u"METAR  読み取れません\r\nTAF  読み取れません\r\n"},
      {u"RJTT 311400Z 16008KT CAVOK", u"", u"      傾向予報なし\r\n"},
      {u"RJTT 311400Z 16008KT CAVOK NOSIG", u"", u"      傾向予報はこの時刻に及びません\r\n"},
      {u"", u"TAF AMD RJTT 311205Z 3112/0118 CNL=", u"TAF  31 1205Z 発表 ： 取り消し\r\n"},
      {u"", u"TAF RJTT 311205Z NIL=", u"TAF  31 1205Z 発表 ： 予報なし\r\n"},
      {u"", u"TAF RJTT 311205Z 3112/3115 16008KT 0300 FG", u"      この時刻は有効時間の外です\r\n"},
      {u"", u"TAF RJTT 311205Z 3112/3124 16008KT 9999 FEW030",
       u"最も悪い予報 ： 制限値を超えるものはありません\r\n"},
  };
  const SettingsRecord settings = zoned(false, u"+9"_s);
  for (const auto& c : cases) {
    const StationForecast forecast = forecastAt(c.metar.toString(), c.taf.toString(),
                                                inUtc({2026, 8, 31}, {23, 0}), now, Limits::of(settings));
    EXPECT_TRUE(forecastText(forecast, settings).contains(c.line))
        << forecastText(forecast, settings).toStdString();
  }
}

} // namespace
