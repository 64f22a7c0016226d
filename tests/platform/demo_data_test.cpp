// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/demo_data.h"

#include "http/endpoint_server.h"
#include "platform/net_inet.h"
#include "platform/redating.h"
#include "support/printing.h"

#include <gtest/gtest.h>

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

QDateTime at(const char* iso) {
  return QDateTime::fromString(QString::fromLatin1(iso), Qt::ISODate);
}

const QByteArray heading = "utc_time\tstation\tkind\ttext\n";

const QByteArray day = heading +
                       "2026-08-21T23:05:00Z\tRJTT\tTAF\tTAF RJTT 212305Z 2200/2306 16008KT 9999 FEW020 "
                       "TEMPO 2204/2206 TS FEW020 FM221300 30006KT BECMG 2300/2303 07010KT TX31/2205Z\n"
                       "2026-08-22T05:00:00Z\tRJTT\tMETAR\tMETAR RJTT 220500Z 19008KT 9999 BECMG TL0620 NSW\n"
                       "2026-08-22T05:30:00Z\tRJTT\tMETAR\tMETAR RJTT 220530Z 18007KT 9999\n"
                       "2026-08-22T05:30:00Z\tRJTT\tSPECI\tSPECI RJTT 220530Z 18027KT 0800\n"
                       "2026-08-22T05:10:00Z\tRJAA\tSPECI\tSPECI RJAA 220510Z AUTO 00000KT\n"
                       "2026-08-22T08:37:00Z\tRJTT\tTAF\tTAF AMD RJTT 220837Z 2208/2312 14006KT\n"
                       "nonsense\n2026-08-22T99:37:00Z\tRJTT\tMETAR\tMETAR RJTT 229937Z\n";

} // namespace

TEST(Redating, MovesEveryGroupThatHoldsADay) {
  const struct {
    const char* name;
    QString report;
    QDate issued;
    int days;
    QString moved;
  } cases[] = {
      {"observation",
       u"RJTT 220500Z 19008KT 9999 32/25 Q1013 BECMG FM0620 TL0720"_s,
       {2026, 8, 22},
       3,
       u"RJTT 250500Z 19008KT 9999 32/25 Q1013 BECMG FM0620 TL0720"_s},
      {"forecast",
       u"TAF AMD RJTT 220837Z 2208/2312 14006KT FM221300 TEMPO 2222/2302 TX31/2205Z TNM02/2220Z"_s,
       {2026, 8, 22},
       1,
       u"TAF AMD RJTT 230837Z 2308/2412 14006KT FM231300 TEMPO 2322/2402 TX31/2305Z TNM02/2320Z"_s},
      {"over the end of the month",
       u"TAF RJTT 302305Z 3100/0106 BECMG 3123/0101 FM010300 2218/3124"_s,
       {2026, 8, 30},
       30,
       u"TAF RJTT 292305Z 3000/0106 BECMG 3023/0101 FM010300 2118/3024"_s},
      {"back into a leap February",
       u"TAF RJTT 010505Z 0106/0212"_s,
       {2028, 3, 1},
       -1,
       u"TAF RJTT 290505Z 2906/0112"_s},
      {"midnight as 24", u"TAF RJTT 221705Z 2218/2400"_s, {2026, 8, 22}, 9, u"TAF RJTT 311705Z 3118/0200"_s},
      {"numbers of other kinds",
       u"TAF RJOI 220500Z QNH2986INS COR 0528 9999 2000/99 0012/2312 LAST NO AMDS AFT 2214 NEXT 2221"_s,
       {2026, 8, 22},
       1,
       u"TAF RJOI 230500Z QNH2986INS COR 0528 9999 2000/99 0012/2412 LAST NO AMDS AFT 2314 NEXT 2321"_s},
  };
  for (const auto& c : cases)
    EXPECT_EQ(redated(c.report, c.issued, c.days), c.moved) << c.name;
  EXPECT_EQ(reissued(u"RJTT 221700Z 19008KT BECMG TL1820 FM1930"_s, at("2026-08-22T17:00:00Z"),
                     at("2026-08-23T01:00:00Z")),
            u"RJTT 230100Z 19008KT BECMG TL0220 FM0330"_s);
}

TEST(DemoData, ServesTheLatestReportNotAfterNow) {
  SetClock clock(at("2026-11-24T14:20:00+09:00"));
  const DemoData data(day, clock);
  EXPECT_EQ(data.metarFile(u"RJTT"_s), "2026/11/24 05:00\nRJTT 240500Z 19008KT 9999 BECMG TL0620 NSW\n");
  EXPECT_EQ(data.metarFile(u"RJAA"_s), "2026/11/24 05:10\nRJAA 240510Z AUTO 00000KT\n");
  // Of yesterday's two forecasts the later one is in force until that of 08:37 comes round.
  EXPECT_EQ(data.tafFile(u"RJTT"_s), "2026/11/23 23:05\nTAF RJTT 232305Z 2400/2506 16008KT 9999 FEW020\n"
                                     "     TEMPO 2404/2406 TS FEW020\n     FM241300 30006KT\n"
                                     "     BECMG 2500/2503 07010KT TX31/2405Z\n");
  EXPECT_FALSE(data.metarFile(u"RJBB"_s) || data.tafFile(u"RJAA"_s) || data.metarFile(QString()));
  clock.advance(599);
  EXPECT_TRUE(data.metarFile(u"RJTT"_s)->startsWith("2026/11/24 05:00"));
  clock.advance(1);
  EXPECT_EQ(data.metarFile(u"RJTT"_s), "2026/11/24 05:30\nRJTT 240530Z 18027KT 0800\n");
  clock.advance(3 * 3600 + 7 * 60);
  EXPECT_EQ(data.tafFile(u"RJTT"_s), "2026/11/24 08:37\nTAF AMD RJTT 240837Z 2408/2512 14006KT\n");
}

TEST(DemoData, CycleFilesHoldTheLastDay) {
  SetClock clock(at("2026-11-01T05:20:00Z"));
  const DemoData data(day, clock);
  const QByteArray first = "2026/11/01 05:00\nRJTT 010500Z 19008KT 9999 BECMG TL0620 NSW\n\n"
                           "2026/11/01 05:10\nRJAA 010510Z AUTO 00000KT\n\n";
  EXPECT_EQ(data.cycleFile(5), first);
  EXPECT_EQ(data.cycleFile(6), "");
  clock.advance(-21 * 60);
  EXPECT_EQ(data.cycleFile(5), "2026/10/31 05:00\nRJTT 310500Z 19008KT 9999 BECMG TL0620 NSW\n\n"
                               "2026/10/31 05:10\nRJAA 310510Z AUTO 00000KT\n\n"
                               "2026/10/31 05:30\nRJTT 310530Z 18007KT 9999\n\n"
                               "2026/10/31 05:30\nRJTT 310530Z 18027KT 0800\n\n");
}

TEST(DemoData, ABrokenOffDayIsMadeUpFromTheHoursBefore) {
  QByteArray half = heading;
  for (int hour = 4; hour < 18; ++hour) {
    for (const QByteArray station : {"RJTT", "RJAA", "RJBB", "RJCC"}) {
      if (station == "RJAA" && hour > 12)
        continue;
      const QByteArray time = QByteArray::number(hour).rightJustified(2, '0');
      half += "2026-08-22T" + time + ":30:00Z\t" + station + "\tMETAR\tMETAR " + station + " 22" + time +
              "30Z 36010KT\n";
    }
  }
  SetClock clock(at("2026-11-24T03:45:00Z"));
  const DemoData data(half, clock);
  EXPECT_EQ(data.metarFile(u"RJTT"_s), "2026/11/24 03:30\nRJTT 240330Z 36010KT\n");
  // Closed at night on both sides of the mirror.
  EXPECT_FALSE(data.cycleFile(20).contains("RJAA"));
  for (int hour = 0; hour < 24; ++hour)
    EXPECT_EQ(data.cycleFile(hour).count("RJTT"), 1) << hour;
}

TEST(DemoData, ServesUnderTheReportPaths) {
  SetClock clock(at("2026-11-24T05:20:00Z"));
  const DemoData data(day, clock);
  EndpointServer server;
  ASSERT_TRUE(server.start());
  data.serveOn(server);
  Shutdown shutdown;
  NetInet inet(makeNetwork(), shutdown);
  const struct {
    QString path;
    QByteArray begin;
  } cases[] = {
      {u"observations/metar/stations/RJTT.TXT"_s, "2026/11/24 05:00\nRJTT"},
      {u"forecasts/taf/stations/RJTT.TXT"_s, "2026/11/23 23:05\nTAF RJTT"},
      {u"observations/metar/cycles/05Z.TXT"_s, "2026/11/24 05:00\nRJTT"},
      {u"observations/metar/stations/RJBB.TXT"_s, "<html>"},
      {u"observations/metar/stations/"_s, "<html>"},
      {u"forecasts/taf/stations/RJAA.TXT"_s, "<html>"},
      {u"observations/metar/cycles/24Z.TXT"_s, "<html>"},
      {u"observations/metar/cycles/-5Z.TXT"_s, "<html>"},
  };
  for (const auto& c : cases) {
    const Reply reply = inet.open(QUrl(server.baseAddress() + u"/pub/data/"_s + c.path));
    EXPECT_TRUE(reply.ok && reply.body.startsWith(c.begin)) << c.path.toStdString();
  }
}
