// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runs/station_map.h"

#include "fakes/bare_program.h"

#include <gtest/gtest.h>

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

class StationMapTest : public ::testing::Test {
 protected:
  StationMapTest() {
    world.prepare([](Tables& tables) { setAutoList(tables, u"RJTT"_s); });
    bare.program.tables.openAllTables(world.path(u"soran.mdb"_s));
    bare.program.services.positions = [] { return QByteArray("KJFK\t40.6386\t-73.7622\nRJTT\t0\t0\n"); };
  }
  void metar(const QString& code, const QString& visibility) {
    const QDateTime time = bare.program.services.clock.now().toUTC().addSecs(-600);
    const QString text =
        code + time.toString(u" ddHHmm"_s) + u"Z 36003KT " + visibility + u" FEW030 12/11 Q1018";
    bare.program.knownReports.keep(StationCode(code), ReportKind::Metar, {.time = time, .text = text});
  }

  World world;
  BareProgram bare{world};
};

} // namespace

TEST_F(StationMapTest, PlacesTheAirportsTheWorstFirst) {
  metar(u"RJTT"_s, u"9999"_s);
  metar(u"KJFK"_s, u"0300"_s);
  const std::vector<MapStation> stations = mapStations(bare.program, {u"RJTT"_s, u"ZZZZ"_s, u"KJFK"_s});
  ASSERT_EQ(stations.size(), 3U);
  EXPECT_EQ(stations[0].row.code, StationCode(u"KJFK"_s));
  EXPECT_EQ(stations[0].row.level(), 3);
  EXPECT_NEAR(stations[0].position.value().longitude, -73.7622, 1e-4);
  EXPECT_EQ(stations[1].row.code, StationCode(u"ZZZZ"_s));
  EXPECT_FALSE(stations[1].position);
  // A Japanese field lies where AIP Japan has it.
  EXPECT_NEAR(stations[2].position.value().latitude, 35.5533, 1e-3);
}

TEST_F(StationMapTest, IsToldAsText) {
  metar(u"RJTT"_s, u"9999"_s);
  metar(u"KJFK"_s, u"0300"_s);
  const QStringList lines =
      mapScreenText(bare.program, {u"RJTT"_s, u"ZZZZ"_s, u"KJFK"_s}, 40).split(crlf.toString());
  ASSERT_EQ(lines.size(), 7);
  EXPECT_TRUE(lines[0].startsWith(u"*** MAP ")) << lines[0].toStdString();
  EXPECT_EQ(lines[2], u"ST         ALARM AP   POSITION     NAME");
  EXPECT_TRUE(lines[3].startsWith(u"L3               KJFK 4038N 07346W")) << lines[3].toStdString();
  EXPECT_EQ(lines[4], u"NO DATA          ZZZZ UNKNOWN");
  EXPECT_TRUE(lines[5].startsWith(u"OK               RJTT 3533N 13947E")) << lines[5].toStdString();
  for (const QString& line : lines)
    EXPECT_LE(displayWidth(line), 40) << line.toStdString();
  EXPECT_TRUE(mapScreenText(bare.program, {}, 40).contains(u"NO AIRPORT IN THE LIST"));
}
