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
      {"stamp going back", u"04:30"_s, u"05:00"_s, {}, {}, u"RJTT "_s, {u"RJTT METAR CHANGED"_s}, true},
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
    EXPECT_TRUE(run.logged().isEmpty());
  }
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
