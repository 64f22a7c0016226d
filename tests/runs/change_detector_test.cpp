// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runs/change_detector.h"

#include "runs/run_bench.h"

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

class ChangeDetectorTest : public ::testing::Test {
 protected:
  ChangeDetectorTest() {
    world.prepare();
    world.report(u"RJTT"_s, u"05:00"_s, u"240500Z"_s, u"240500Z FINE"_s);
    EXPECT_TRUE(run.begin());
    run.list(u"RJTT"_s);
    forget();
  }
  void forget() {
    run.logged();
    run.asked();
    run.program.console.setPad(QString());
    run.program.cycleChanged = false;
  }
  const Station& station() { return run.program.stationTable.rows().front(); }

  World world;
  RunBench run{world};
};

} // namespace

TEST_F(ChangeDetectorTest, TellsWhichStationChangedAndHow) {
  const QByteArray page = "<html><body>ERROR</body></html>\n";
  const struct {
    const char* name;
    QString metarStamp;
    QString tafStamp;
    QString taf;
    QString typed; ///< stands in the pad before
    QString pad;
    QStringList log;
    bool changed;
    bool sameStamps = false;
  } cases[] = {
      {"nothing new", u"05:00"_s, u"05:00"_s, u"AMD"_s, {}, {}, {}, false},
      {"METAR on the half hour", u"05:30"_s, u"05:00"_s, {}, {}, u"RJTT "_s, {u"RJTT METAR CHANGED"_s}, true},
      {"METAR at 50", u"05:50"_s, u"05:00"_s, {}, {}, u"RJTT "_s, {u"RJTT METAR CHANGED"_s}, true},
      {"SPECI", u"05:15"_s, u"05:00"_s, {}, {}, u"RJTT(SPECI) "_s, {u"RJTT SPECI RECEIVED"_s}, true},
      {"ahead of its time", u"06:30"_s, u"05:00"_s, {}, {}, {}, {u"RJTT FUTURE REPORT 0630"_s}, true},
      {"TAF", u"05:00"_s, u"06:05"_s, {}, {}, u"RJTT "_s, {u"RJTT TAF   CHANGED"_s}, true},
      {"amended",
       u"05:00"_s,
       u"06:05"_s,
       u"TRD COR AMD"_s,
       {},
       u"RJTT(AMD) "_s,
       {u"RJTT TAF(AMD) RECEIVED"_s},
       true},
      {"corrected",
       u"05:00"_s,
       u"06:05"_s,
       u"TRD CORNER"_s,
       {},
       u"RJTT(COR) "_s,
       {u"RJTT TAF(COR) RECEIVED"_s},
       true},
      {"TRD", u"05:00"_s, u"06:05"_s, u"TRD"_s, {}, u"RJTT(TRD) "_s, {u"RJTT TAF(TRD) RECEIVED"_s}, true},
      {"both, one entry", u"05:30"_s, u"06:05"_s, u"AMD"_s, {}, u"RJTT "_s, {u"RJTT METAR CHANGED"_s}, true},
      {"behind typed text",
       u"05:15"_s,
       u"05:00"_s,
       {},
       u"RJA"_s,
       u"RJARJTT(SPECI) "_s,
       {u"RJTT SPECI RECEIVED"_s},
       true},
      {"named on the typed line", u"05:30"_s, u"06:05"_s, {}, u"RJTT R"_s, u"RJTT R"_s, {}, true},
      {"refused page", QString(), u"05:00"_s, {}, {}, u"RJTT "_s, {u"RJTT METAR CHANGED"_s}, true},
      {"cut transfer", u"cut"_s, u"05:00"_s, {}, {}, {}, {}, false, true},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    run.program.knownReports = {};
    world.report(u"RJTT"_s, u"05:00"_s, u"240500Z"_s, u"240500Z FINE"_s);
    world.server.setDelivery(stationsPath, {});
    checkForChanges(run.program);
    forget();
    run.program.console.setPad(c.typed);
    world.report(u"RJTT"_s, c.metarStamp, u"240500Z"_s);
    world.forecast(u"RJTT"_s, c.tafStamp, c.taf + u"\nTAF RJTT 240500Z"_s);
    if (c.metarStamp.isEmpty())
      world.server.setAnswer(stationsPath + u"RJTT.TXT", {.body = page, .status = 404});
    if (c.metarStamp == u"cut")
      world.server.setDelivery(stationsPath, {.cutAt = 10});
    const QString before = run.screen();
    checkForChanges(run.program);
    EXPECT_EQ(run.program.cycleChanged, c.changed);
    EXPECT_EQ(run.program.console.padlbl(), c.pad);
    EXPECT_EQ(run.logged(), c.log);
    EXPECT_EQ(run.asked(), (QStringList{u"M/RJTT"_s, u"T/RJTT"_s}));
    EXPECT_EQ(run.screen(), before);
    EXPECT_EQ(station().metarStamp.text(), c.sameStamps             ? u"05:00"_s
                                           : c.metarStamp.isEmpty() ? QString::fromLatin1(page.mid(11, 5))
                                                                    : c.metarStamp);
    EXPECT_EQ(station().tafStamp.text(), c.tafStamp);
    // The same once more is no change.
    forget();
    checkForChanges(run.program);
    EXPECT_FALSE(run.program.cycleChanged);
    EXPECT_EQ(run.logged(), QStringList(c.log.filter(u"FUTURE"_s)));
  }
}

TEST_F(ChangeDetectorTest, RefusesWhatIsNoReportOfTheStation) {
  const struct {
    QByteArray body;
    QString why;
  } cases[] = {
      {"2026/11/24 05:30\nRJAA 240530Z 36010KT\n", u"RJTT REFUSED: REPORT OF RJAA"_s},
      {"", u"RJTT REFUSED: NO REPORT"_s},
      {"down for maintenance\n", u"RJTT REFUSED: NO REPORT"_s},
      {"\xEF\xBB\xBF<html>RJTT</html>", u"RJTT REFUSED: NO REPORT"_s},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.body.toStdString());
    world.server.setFile(stationsPath + u"RJTT.TXT", c.body);
    forget();
    // A refused file is a change, once, and so is the good one behind it.
    const int connections = world.server.connections();
    checkForChanges(run.program);
    EXPECT_EQ(run.logged(), (QStringList{c.why, u"RJTT METAR CHANGED"_s}));
    // The TAF, which is asked next, must not come over the connection that brought this.
    EXPECT_EQ(world.server.connections(), connections + 1);
    EXPECT_TRUE(run.program.cycleChanged);
    checkForChanges(run.program);
    EXPECT_FALSE(run.program.cycleChanged);
    run.again();
    EXPECT_TRUE(run.screen().contains(u"RJTT  NOT FOUND\r\n"));
    EXPECT_FALSE(run.screen().contains(u"TAF"));
    world.report(u"RJTT"_s, u"05:00"_s, u"240500Z FINE"_s, u"240500Z FINE"_s);
    forget();
    checkForChanges(run.program);
    EXPECT_EQ(run.logged(), QStringList{u"RJTT METAR CHANGED"_s});
    run.list(u"RJTT"_s);
  }
}

TEST_F(ChangeDetectorTest, PassesOverWhatIsOlderThanTheLatestKnown) {
  const auto serve = [this](const QString& day, const QString& time) {
    for (const QString& path : {stationsPath, forecastsPath})
      world.server.setFile(
          path + u"RJTT.TXT",
          (u"2026/11/" + day + u' ' + time + u"\nRJTT 240000Z AT" + day + time + u'\n').toUtf8());
  };
  const auto record = [this] { return contents(world.path(u"data/sequence.dat"_s)); };
  const QStringList older{u"RJTT OLDER REPORT 0430"_s, u"RJTT OLDER REPORT 0430"_s};
  const QByteArray recorded = record();
  for (const QString& day : {u"24"_s, u"23"_s}) {
    SCOPED_TRACE(day.toStdString());
    serve(day, u"04:30"_s);
    forget();
    checkForChanges(run.program);
    EXPECT_EQ(run.logged(), older);
    EXPECT_FALSE(run.program.cycleChanged);
    EXPECT_EQ(station().metarStamp.text(), u"05:00");
    EXPECT_EQ(station().tafStamp.text(), u"05:00");
    // Shown to the one who asks for it; the watch goes on from the latest.
    run.list(u"RJTT"_s);
    EXPECT_TRUE(run.screen().contains(u"AT" + day + u"04:30"));
    EXPECT_EQ(run.logged().filter(u"OLDER"_s), older);
    EXPECT_EQ(station().metarStamp.text(), u"05:00");
    EXPECT_EQ(record(), recorded);
  }
  // Another station's change runs the list anew: this one keeps its latest.
  serve(u"24"_s, u"05:10"_s);
  run.list(u"RJTT RJAA"_s);
  serve(u"24"_s, u"04:30"_s);
  world.report(u"RJAA"_s, u"05:15"_s, u"240515Z"_s);
  run.program.runMemory.automatic = false;
  const QByteArray before = record();
  run.tick(60);
  EXPECT_TRUE(run.screen().contains(u"RJAA  SPECI 1415I"));
  EXPECT_TRUE(run.screen().contains(u"AT2405:10"));
  EXPECT_FALSE(run.screen().contains(u"04:30"));
  EXPECT_FALSE(record().mid(before.size()).contains("RJTT"));
  // Within the day the clock of the stamps is compared with the date.
  serve(u"25"_s, u"00:00"_s);
  world.clock.advance(19 * 60 * 60);
  forget();
  checkForChanges(run.program);
  EXPECT_EQ(run.logged(), QStringList{u"RJTT METAR CHANGED"_s});
}

TEST_F(ChangeDetectorTest, ShowsAReportAheadOfItsTimeAndAnnouncesNothing) {
  world.report(u"RJTT"_s, u"09:00"_s, u"240900Z AHEAD"_s);
  run.tick(60);
  EXPECT_TRUE(run.screen().contains(u"AHEAD"));
  EXPECT_TRUE(run.logged().contains(u"RJTT FUTURE REPORT 0900"));
  EXPECT_TRUE(run.desk.takeSeen().sounds.isEmpty());
  // It holds back nothing that comes in its time.
  world.report(u"RJTT"_s, u"05:30"_s, u"240530Z"_s);
  checkForChanges(run.program);
  EXPECT_EQ(run.logged(), QStringList{u"RJTT METAR CHANGED"_s});
}

TEST_F(ChangeDetectorTest, LooksAtNothingWhereItIsSwitchedOff) {
  run.program.settings().store(key::自動デコード有効, false);
  run.program.cycleChanged = true;
  checkForChanges(run.program);
  EXPECT_TRUE(run.program.cycleChanged);
  EXPECT_TRUE(run.asked().isEmpty());
  run.program.settings().store(key::自動デコード有効, true);
  run.program.stationTable.rebuild(u"");
  checkForChanges(run.program);
  EXPECT_TRUE(run.program.cycleChanged);
}

TEST_F(ChangeDetectorTest, BearsATableThatIsRebuiltDuringItsWaits) {
  world.report(u"RJTT"_s, u"05:30"_s, u"240530Z"_s);
  run.list(u"RJTT RJAA RJBB"_s);
  forget();
  run.onRequest = [&](const QString& name) {
    if (name == u"M/RJAA") {
      run.onRequest = [](const QString&) {};
      QTimer::singleShot(0, &run.program.console, [&] { run.list(u"RJTT"_s); });
    }
  };
  world.server.setDelivery(stationsPath + u"RJAA", {.delay = 30});
  checkForChanges(run.program);
  EXPECT_EQ(run.program.stationTable.stationCount(), 1);
  EXPECT_EQ(station().metarStamp.text(), u"05:30");
}

TEST_F(ChangeDetectorTest, StoresStampsAtAFullLoadOnly) {
  EXPECT_EQ(station().metarStamp.text(), u"05:00");
  EXPECT_EQ(station().tafStamp.text(), u"05:00");
  world.report(u"RJTT"_s, u"05:30"_s, u"240530Z"_s);
  run.again();
  EXPECT_EQ(station().metarStamp.text(), u"05:00");
  EXPECT_TRUE(run.screen().contains(u"RJTT  METAR 1430I"));
  run.list(u"RJTT"_s);
  EXPECT_EQ(station().metarStamp.text(), u"05:30");
}
