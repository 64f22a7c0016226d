// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runs/run_bench.h"

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

const QString probe = u"/data/version.dat"_s;
const QStringList lost = {u"NETWORK DISCONNECTED"_s, u"STANDBY DATA RELOAD"_s};

class WatchCycleTest : public ::testing::Test {
 protected:
  explicit WatchCycleTest(int buffer = 10) {
    world.prepare([buffer](Tables& tables) {
      setAutoList(tables, u"RJTT RJAA"_s);
      tables.settings().store(key::シーケンス表示, false);
      tables.settings().store(key::バッファ, buffer);
    });
    for (const QString& code : {u"RJTT"_s, u"RJAA"_s})
      world.report(code, u"05:00"_s, u"240500Z"_s, u"240500Z"_s);
  }
  void network(bool up) { world.server.setDelivery(u"/"_s, up ? Delivery{} : Delivery{.cutAt = 0}); }
  bool connected() const { return run.program.networkAvailable; }
  QStringList takenForms() { return run.desk.takeSeen().forms; }

  World world;
  RunBench run{world};
};

class SlowWatchCycleTest : public WatchCycleTest {
 protected:
  SlowWatchCycleTest() : WatchCycleTest(1) {}
};

} // namespace

TEST_F(WatchCycleTest, FirstTickRunsTheAutomaticDecode) {
  ASSERT_TRUE(run.begin());
  QString loading;
  run.onRequest = [&](const QString& name) {
    if (name == u"T/RJAA")
      loading = run.screen();
  };
  run.tick();
  EXPECT_EQ(loading, u"BEGUN\r\n\r\nAUTO DECODE SEQUENCE START\r\n"
                     "LOADING RJTT RJAA");
  EXPECT_TRUE(
      run.screen().startsWith(u"*** AUTO DECODE - WEATHER OBSERVATION AND FORECASTS ***\r\n\r\nRJTT  METAR"));
  EXPECT_TRUE(run.screen().endsWith(ready + crlf));
  EXPECT_EQ(run.logged(),
            (QStringList{u"AUTO DECODE SEQUENCE START"_s, u"RJTT METAR RECEIVED"_s, u"RJTT TAF   RECEIVED"_s,
                         u"RJAA METAR RECEIVED"_s, u"RJAA TAF   RECEIVED"_s}));
  EXPECT_EQ(run.asked(), (QStringList{probe, u"M/RJTT"_s, u"T/RJTT"_s, u"M/RJAA"_s, u"T/RJAA"_s}));
  EXPECT_EQ(run.program.currentInput, u"RJTT RJAA");
  EXPECT_EQ(run.program.lastCycleTime, u"14:20");
  EXPECT_EQ(run.program.console.status().panel1(), u"ネットワーク接続確立");
  EXPECT_FALSE(run.program.console.overlay());
  EXPECT_TRUE(run.cycle.watchEnabled());
  EXPECT_FALSE(run.cycle.overlayTimerEnabled());
}

TEST_F(WatchCycleTest, AServerThatWantsToBeLeftAloneIsThere) {
  ASSERT_TRUE(run.begin());
  run.tick();
  world.server.setAnswer(probe, {.status = 429});
  run.tick(20);
  EXPECT_TRUE(connected());
  EXPECT_FALSE(run.screen().contains(u"DISCONNECT"));
}

TEST_F(WatchCycleTest, PassesEveryTwentySecondsAndComparesEveryMinute) {
  ASSERT_TRUE(run.begin());
  run.tick();
  EXPECT_EQ(run.inet.requestTimeout(), 60);
  run.asked();
  run.tick(19);
  EXPECT_TRUE(run.asked().isEmpty());
  run.tick();
  EXPECT_EQ(run.asked(), QStringList{probe}); // 14:20:21, due at 14:21
  run.tick(40);
  EXPECT_EQ(run.asked(), (QStringList{probe, probe, u"M/RJTT"_s, u"T/RJTT"_s, u"M/RJAA"_s, u"T/RJAA"_s}));
  EXPECT_EQ(run.program.lastCycleTime, u"14:21");
  // A key that is pressed again and again holds the pass off.
  for (int i = 0; i < 10; ++i) {
    run.tick(19);
    run.act();
  }
  EXPECT_TRUE(run.asked().isEmpty());
}

TEST_F(SlowWatchCycleTest, PassesAndComparesMoreSeldomOverASlowLine) {
  ASSERT_TRUE(run.begin());
  run.tick();
  EXPECT_EQ(run.inet.requestTimeout(), 150);
  run.asked();
  run.tick(109);
  EXPECT_TRUE(run.asked().isEmpty());
  run.tick(1 + 4 * 110);
  EXPECT_EQ(run.asked(), QStringList(5, probe));
  run.tick(110); // 14:31:01
  EXPECT_EQ(run.asked().size(), 5);
  EXPECT_EQ(run.program.lastCycleTime, u"14:31");
}

TEST_F(WatchCycleTest, FallsDueByTheClockAlone) {
  const struct {
    QString last;
    const char* now;
    bool due;
  } cases[] = {
      {{}, "00:00:30", false},         {{}, "00:00:59", true}, // at 00:01 by the tick itself
      {u"14:20"_s, "14:20:58", false}, {u"14:20"_s, "14:20:59", true}, {u"14:59"_s, "14:59:58", false},
      {u"14:59"_s, "14:59:59", true},  {u"23:59"_s, "23:59:10", true}, // due at midnight, which is always due
      {u"23:58"_s, "23:58:10", false}, {u"00:00"_s, "23:59:10", true}, {u"14:20"_s, "03:00:00", false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.now);
    RunBench fresh(world);
    ASSERT_TRUE(fresh.begin());
    fresh.program.lastCycleTime = c.last;
    world.clock =
        SetClock(QDateTime::fromString(u"2026-11-24T%1+09:00"_s.arg(QLatin1String(c.now)), Qt::ISODate));
    fresh.tick();
    EXPECT_EQ(fresh.asked().contains(u"M/RJTT"), c.due);
    EXPECT_TRUE(fresh.cycle.watchEnabled());
    fresh.close();
  }
}

TEST_F(WatchCycleTest, AnnouncesAChangeBySoundToastAndPaper) {
  ASSERT_TRUE(run.begin());
  run.program.settings().store(key::印刷更新時印刷, true);
  run.tick();
  run.tick(60);
  EXPECT_EQ(run.program.lastCycleTime, u"14:21");
  run.logged();
  run.asked();
  run.desk.takeSeen();
  const QString before = run.screen();
  run.tick(60);
  EXPECT_EQ(run.screen(), before); // nothing new, no run
  EXPECT_TRUE(run.logged().isEmpty());
  EXPECT_EQ(run.program.lastCycleTime, u"14:22");
  run.asked();

  world.report(u"RJAA"_s, u"05:15"_s, u"240515Z NEW"_s);
  run.desk.printers.names = {u"OFFICE"_s};
  run.program.settings().store(key::プリンター, u"OFFICE"_s);
  run.tick(60);
  EXPECT_EQ(run.asked(), (QStringList{probe, probe, probe, u"M/RJTT"_s, u"T/RJTT"_s, u"M/RJAA"_s, u"T/RJAA"_s,
                                      u"M/RJTT"_s, u"T/RJTT"_s, u"M/RJAA"_s, u"T/RJAA"_s}));
  EXPECT_EQ(run.logged(),
            (QStringList{u"RJAA SPECI RECEIVED"_s, u"RING ARARM"_s, u"DISPLAY DATA CHANGED MESSAGE"_s,
                         u"PRINT COMMAND"_s, u"AUTO PRINT COMPLETED TO OFFICE"_s}));
  const Desk::Seen seen = run.desk.takeSeen();
  EXPECT_EQ(seen.sounds, QStringList{u"ring.wav"_s});
  EXPECT_EQ(seen.forms, QStringList{u"datachange"_s});
  // The paper shows the screen as it was before the run.
  ASSERT_EQ(seen.prints.size(), 1);
  EXPECT_EQ(seen.prints[0].text, u"*** WEATHER OBSERVATION AND FORECASTS ***   SORAN 4.31   2026/11/24   "
                                 "14:23:01\r\n" +
                                     before);
  EXPECT_TRUE(run.screen().contains(u"RJAA  SPECI 1415I\r\n      240515Z NEW\n"));
  EXPECT_TRUE(run.screen().endsWith(u"\r\nAUTO PRINT COMPLETED 14:23:01\r\n"_s + ready + crlf));
  EXPECT_EQ(run.program.console.padlbl(), QString());

  // Switched off, each is left out, and a missing sound file too.
  run.program.settings().store(key::印刷更新時印刷, false);
  run.program.settings().store(key::更新終了時メッセージ, false);
  QFile::remove(world.path(u"sound/ring.wav"_s));
  world.report(u"RJAA"_s, u"05:20"_s, u"240520Z"_s);
  run.tick(60);
  EXPECT_EQ(run.logged(), QStringList{u"RJAA SPECI RECEIVED"_s});
}

TEST_F(WatchCycleTest, AMinimisedWindowHasNoPlaceForTheNote) {
  ASSERT_TRUE(run.begin());
  run.tick();
  run.tick(60);
  run.program.minimised = true;
  run.logged();
  run.desk.takeSeen();
  world.report(u"RJAA"_s, u"05:15"_s, u"240515Z NEW"_s);
  run.tick(60);
  const Desk::Seen seen = run.desk.takeSeen();
  EXPECT_EQ(seen.sounds, QStringList{u"ring.wav"_s});
  EXPECT_EQ(seen.forms, QStringList());
  EXPECT_EQ(run.logged(),
            (QStringList{u"RJAA SPECI RECEIVED"_s, u"RING ARARM"_s, u"DISPLAY DATA CHANGED MESSAGE"_s}));
}

TEST_F(WatchCycleTest, AKeyDuringTheComparisonTakesTheAnnouncementAway) {
  ASSERT_TRUE(run.begin());
  run.tick();
  world.report(u"RJTT"_s, u"05:30"_s, u"240530Z"_s);
  run.logged();
  run.desk.takeSeen();
  run.onRequest = [&](const QString& name) {
    if (name == u"T/RJAA")
      run.act();
  };
  run.tick(60);
  EXPECT_EQ(run.logged(), QStringList{u"RJTT METAR CHANGED"_s});
  EXPECT_TRUE(run.screen().contains(u"240530Z"));
  EXPECT_TRUE(run.desk.takeSeen().sounds.isEmpty());
}

TEST_F(WatchCycleTest, ChangesRunASequenceAgainWithoutAnnouncement) {
  ASSERT_TRUE(run.begin());
  run.tick();
  run.sequence(u"RJTT"_s);
  run.logged();
  run.desk.takeSeen();
  world.report(u"RJAA"_s, u"05:30"_s, u"240530Z"_s);
  run.tick(60);
  EXPECT_TRUE(run.screen().startsWith(u"*** RJTT - SEQUENCE WEATHER OBSERVATION ***"));
  EXPECT_EQ(run.logged(), (QStringList{u"RJAA METAR CHANGED"_s, u"CALL SEQUENCE RJTT"_s}));
  EXPECT_TRUE(run.desk.takeSeen().sounds.isEmpty());
}

TEST_F(WatchCycleTest, WaitsForTheEndOfATypedRun) {
  ASSERT_TRUE(run.begin());
  run.onRequest = [&](const QString& name) {
    if (name == u"M/RJAA")
      run.tick(30);
  };
  run.list(u"RJTT RJAA"_s);
  EXPECT_EQ(run.asked(), (QStringList{u"M/RJTT"_s, u"T/RJTT"_s, u"M/RJAA"_s, u"T/RJAA"_s}));
  EXPECT_FALSE(run.screen().contains(u"NOT FOUND"));
  run.tick();
  EXPECT_EQ(run.asked().value(0), probe);
}

TEST_F(WatchCycleTest, KeepsTheTopInViewWhereAsked) {
  ASSERT_TRUE(run.begin());
  run.program.settings().store(key::先頭行, true);
  run.tick();
  EXPECT_EQ(run.program.console.screen().caret(), 0);
  run.list(u"RJTT"_s);
  EXPECT_EQ(run.program.console.screen().caret(), run.screen().size());
}

TEST_F(WatchCycleTest, FollowsTheStateOfTheConnection) {
  const QString disconnect = u"\r\nDISCONNECT NETWORK\r\n"_s;
  const QString reconnect = u"\r\nRECONNECT NETWORK\r\n"_s;
  const struct {
    const char* name;
    bool up;
    bool minimised;
    QString shown;
    QStringList log;
    QStringList forms;
    QString panel1;
  } passes[] = {
      {"lost", false, false, disconnect, lost, {u"message"_s}, u"ネットワーク未接続"_s},
      {"still lost", false, false, {}, lost, {}, u"ネットワーク未接続"_s},
      {"back", true, false, reconnect, {u"RECONNECT NETWORK"_s}, {}, u"ネットワーク接続確立"_s},
      {"good", true, false, {}, {}, {}, u"ネットワーク接続確立"_s},
      {"lost, minimised", false, true, disconnect, lost, {u"taskicon"_s}, u"ネットワーク未接続"_s},
      {"back, minimised",
       true,
       true,
       reconnect,
       {u"RECONNECT NETWORK"_s},
       {u"taskicon"_s},
       u"ネットワーク接続確立"_s},
  };
  ASSERT_TRUE(run.begin());
  run.tick();
  for (const auto& p : passes) {
    SCOPED_TRACE(p.name);
    // A second run has nothing new to tell in the minute of the first.
    run.program.lastCycleTime = u"14:59"_s;
    network(p.up);
    run.program.minimised = p.minimised;
    run.shown();
    run.logged();
    run.asked();
    takenForms();
    run.tick(20);
    EXPECT_EQ(run.shown(), p.shown);
    EXPECT_EQ(run.logged(), p.log);
    EXPECT_EQ(takenForms(), p.forms);
    EXPECT_EQ(run.asked(), QStringList{probe});
    EXPECT_EQ(run.program.console.status().panel1(), p.panel1);
    EXPECT_EQ(connected(), p.up);
    EXPECT_EQ(run.program.lastProbeGood, p.up);
    EXPECT_TRUE(run.cycle.watchEnabled());
    if (!p.up) {
      EXPECT_EQ(run.panel2(), u"再受信待機");
    }
  }
  // Without the alert setting the loss is told on the screen alone.
  run.program.minimised = false;
  run.program.settings().store(key::切断時メッセージ, false);
  network(false);
  run.tick(20);
  EXPECT_TRUE(takenForms().isEmpty());
}

TEST_F(WatchCycleTest, AFailureAtTheStartIsToldAsALoss) {
  world.endpoints.probe = world.server.baseAddress() + probe;
  for (const bool returns : {true, false}) {
    RunBench failed(world);
    ASSERT_TRUE(failed.begin());
    failed.program.networkAvailable = false;
    network(returns);
    failed.tick();
    EXPECT_EQ(failed.shown(), returns ? u"\r\nRECONNECT NETWORK\r\n"_s : u"\r\nDISCONNECT NETWORK\r\n"_s);
    EXPECT_EQ(failed.program.networkAvailable, returns);
    EXPECT_FALSE(failed.asked().contains(u"M/RJTT"));
    failed.close();
  }
}

TEST_F(WatchCycleTest, StopsWhereTheAutomaticDecodeIsOff) {
  ASSERT_TRUE(run.begin());
  run.tick();
  run.program.settings().store(key::自動デコード有効, false);
  run.program.settings().store(key::シーケンス表示, true);
  run.asked();
  run.tick(60);
  EXPECT_FALSE(run.cycle.watchEnabled());
  EXPECT_EQ(run.panel2(), u"自動デコード停止");
  EXPECT_TRUE(run.asked().contains(u"C/05"));
  EXPECT_EQ(run.program.lastCycleTime, u"14:20");
  run.tick(100);
  EXPECT_TRUE(run.asked().isEmpty());
  // A list typed by hand is not of the automatic mode; the watch goes on.
  run.list(u"RJTT"_s);
  run.cycle.enableWatch(true);
  run.tick(120);
  EXPECT_TRUE(run.cycle.watchEnabled());
}
