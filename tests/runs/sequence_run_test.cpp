// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runs/cycle_files.h"

#include "runs/run_bench.h"

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

const QString title = u"*** RJTT - SEQUENCE WEATHER OBSERVATION ***\r\n"_s;

/// A run at 10:20 of Japan, 01:20 UTC: the window is 22, 23, 00 and 01.
class SequenceRunTest : public ::testing::Test {
 protected:
  SequenceRunTest() {
    world.clock = SetClock(QDateTime::fromString(u"2026-11-24T10:20:00+09:00"_s, Qt::ISODate));
    world.prepare();
  }
  void file(const QString& hour, const QByteArray& text) {
    writeWhole(world.path(u"data/" + hour + u".dat"), text);
  }

  World world;
  RunBench run{world};
};

} // namespace

TEST_F(SequenceRunTest, ShowsTheWindowOverMidnight) {
  ASSERT_TRUE(run.begin());
  file(u"22"_s, "RJTT 232200Z A\nRJAA 232200Z D\n");
  file(u"23"_s, "RJTT 232300Z B\n");
  file(u"00"_s, "RJAA 240000Z E\n");
  file(u"01"_s, "RJTT 240115Z C\n");
  world.report(u"RJTT"_s, u"01:18"_s, u"240118Z L"_s);
  world.report(u"RJAA"_s, u"00:00"_s, u"240000Z E"_s);
  run.program.console.setPanel(2, u"元"_s);
  QString during;
  run.onRequest = [&](const QString&) { during = run.panel2(); };
  run.sequence(u"RJTT RJAA"_s);
  EXPECT_EQ(run.screen(), title +
                              u"\r\nRJTT  METAR 0700I\r\n      232200Z A\r\n\r\nRJTT  METAR 0800I\r\n"
                              "      232300Z B\r\n\r\nRJTT  NO DATA AT 0900I\r\n\r\nRJTT  SPECI 1015I\r\n"
                              "      240115Z C\r\n\r\nRJTT  SPECI 1018I (LATEST ISSUED)\r\n      240118Z L\n"
                              "\r\n*** RJAA - SEQUENCE WEATHER OBSERVATION ***\r\n"
                              "\r\nRJAA  METAR 0700I (LATEST ISSUED)\r\n      232200Z D\r\n"
                              "\r\nRJAA  NO DATA AT 0800I\r\n"
                              "\r\nRJAA  METAR 0900I (LATEST ISSUED)\r\n      240000Z E\r\n"_s +
                              ready);
  EXPECT_EQ(run.logged(), QStringList{u"CALL SEQUENCE RJTT RJAA"_s});
  EXPECT_EQ(run.asked(), (QStringList{u"M/RJTT"_s, u"M/RJAA"_s}));
  EXPECT_EQ(run.program.currentInput, u"SQ RJTT RJAA");
  EXPECT_EQ(during, u"データ シーケンス取得中");
  EXPECT_EQ(run.panel2(), u"元");
  EXPECT_FALSE(run.cycle.retryEnabled());
}

TEST_F(SequenceRunTest, RetriesUntilTheFilesHaveCome) {
  world.report(u"RJTT"_s, u"01:00"_s, u"240100Z L"_s);
  for (const QString& hour : {u"22"_s, u"23"_s, u"00"_s, u"01"_s})
    world.server.setFile(cyclesPath + hour + u"Z.TXT", QString(u"RJTT 24" + hour + u"00Z X\n").toUtf8());
  ASSERT_TRUE(run.begin());
  run.cycle.enableWatch(false);
  run.program.console.setPanel(2, u"元"_s);
  run.sequence(u"RJTT"_s);
  EXPECT_EQ(run.screen().count(u"  LOADING SEQUENCE DATA AT "), 4);
  EXPECT_EQ(run.panel2(), u"データ シーケンス取得中");
  EXPECT_TRUE(run.cycle.retryEnabled());
  run.asked();
  run.tick(2);
  EXPECT_TRUE(run.asked().isEmpty());
  run.tick(1);
  EXPECT_EQ(run.asked(), QStringList{u"M/RJTT"_s});
  EXPECT_TRUE(run.screen().endsWith(ready + crlf));
  run.tick(8 * 3);
  EXPECT_EQ(run.asked(), QStringList(8, u"M/RJTT"_s));
  // After the tenth retry the files are fetched even with the cycle stopped.
  run.tick(3);
  EXPECT_EQ(run.asked(), (QStringList{u"M/RJTT"_s, u"C/22"_s, u"C/23"_s, u"C/00"_s, u"C/01"_s, u"C/01"_s}));
  run.tick(3);
  EXPECT_FALSE(run.screen().contains(u"LOADING"));
  EXPECT_TRUE(run.screen().contains(u"RJTT  METAR 0900I\r\n      240000Z X\r\n"));
  EXPECT_EQ(run.panel2(), u"元");
  EXPECT_FALSE(run.cycle.retryEnabled());
}

TEST_F(SequenceRunTest, AnotherRunEndsTheRetries) {
  world.report(u"RJTT"_s, u"01:00"_s, u"240100Z L"_s);
  ASSERT_TRUE(run.begin());
  for (const bool japanese : {true, false}) {
    run.sequence(u"RJTT"_s);
    EXPECT_TRUE(run.cycle.retryEnabled());
    if (japanese)
      run.japanese(u"RJTT"_s);
    else
      run.list(u"RJTT"_s);
    EXPECT_FALSE(run.cycle.retryEnabled());
  }
}

TEST_F(SequenceRunTest, AFileOfTheDayBeforeIsNone) {
  world.report(u"RJTT"_s, u"01:00"_s, u"240100Z L"_s);
  world.server.setHandler(cyclesPath, [](const QUrl&) { return Answer{.body = "RJTT 240100Z X\n"}; });
  ASSERT_TRUE(run.begin());
  run.program.settings().store(key::シーケンス時間, 1);
  refreshCycleFiles(run.program);
  run.sequence(u"RJTT"_s);
  EXPECT_FALSE(run.screen().contains(u"LOADING"));
  world.clock.advance(22 * 60 * 60 + 39 * 60); // 23:59 UTC
  run.sequence(u"RJTT"_s);
  EXPECT_EQ(run.screen().count(u"LOADING"), 2);
  world.clock.advance(60 + 60);
  run.asked();
  run.sequence(u"RJTT"_s);
  EXPECT_EQ(run.screen().count(u"LOADING SEQUENCE DATA AT 0900I"), 1);
  refreshCycleFiles(run.program);
  EXPECT_EQ(run.asked(), (QStringList{u"M/RJTT"_s, u"C/23"_s, u"C/00"_s, u"C/00"_s}));
  run.sequence(u"RJTT"_s);
  EXPECT_FALSE(run.screen().contains(u"LOADING"));
}

TEST_F(SequenceRunTest, ShowsItsOwnRecord) {
  world.report(u"RJTT"_s, u"01:00"_s, u"240100Z 10010KT,9999 A"_s);
  world.report(u"RJAA"_s, u"01:15"_s, u"240115Z 20010KT\n     MORE"_s);
  ASSERT_TRUE(run.begin());
  run.program.settings().store(key::シーケンス表示, false);
  run.sequence(u"RJTT"_s);
  EXPECT_EQ(run.screen(), u"BEGUN\r\n"_s + crlf + u"NO SEQUENCE DATA" + crlf + ready);
  EXPECT_EQ(run.logged(), QStringList());
  run.list(u"RJTT RJAA RJTT"_s);
  world.report(u"RJTT"_s, u"01:10"_s, u"240110Z 30010KT"_s);
  run.list(u"RJTT"_s);
  run.logged();
  run.sequence(u"RJTT RJAA RJSN"_s);
  EXPECT_EQ(run.screen(),
            title +
                u"\r\nRJTT  METAR 1000I\r\n240100Z 10010KT\r\n\r\nRJTT  SPECI 1010I\r\n240110Z 30010KT\r\n"
                "\r\n*** RJAA - SEQUENCE WEATHER OBSERVATION ***\r\n"
                "\r\nRJAA  SPECI 1015I\r\n240115Z 20010KT\r\nMORE\r\n"
                "\r\n*** RJSN - SEQUENCE WEATHER OBSERVATION ***\r\n\r\nRJSN  NO SEQUENCE DATA\r\n"_s +
                ready);
  EXPECT_EQ(run.logged(), QStringList{u"CALL SEQUENCE RJTT RJAA RJSN"_s});
}

TEST_F(SequenceRunTest, RenewsCycleFilesOnceInTenMinutes) {
  QByteArray body = "RJTT 240000Z X\n";
  world.server.setHandler(cyclesPath, [&body](const QUrl&) { return std::optional(Answer{.body = body}); });
  ASSERT_TRUE(run.begin());
  const auto refresh = [&] {
    refreshCycleFiles(run.program);
    return run.asked();
  };
  const auto stored = [&](const QString& hour) {
    QFile f(world.path(u"data/" + hour + u".dat"));
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("none");
  };
  world.server.setDelivery(cyclesPath + u"23", {.cutAt = 3});
  EXPECT_EQ(refresh(), (QStringList{u"C/22"_s, u"C/23"_s, u"C/00"_s, u"C/01"_s, u"C/01"_s}));
  EXPECT_EQ(stored(u"22"_s), body + "\r\n");
  EXPECT_EQ(stored(u"23"_s), "none"); // a failed transfer stores nothing, least of all another hour's text
  EXPECT_TRUE(refresh().isEmpty());
  world.clock.advance(9 * 60);
  EXPECT_TRUE(refresh().isEmpty());
  world.clock.advance(60);
  world.server.setDelivery(cyclesPath + u"23", {});
  body = "<html>";
  EXPECT_EQ(refresh(), (QStringList{u"C/23"_s, u"C/01"_s}));
  EXPECT_EQ(stored(u"01"_s), "<html>\r\n");
  EXPECT_EQ(stored(u"22"_s), "RJTT 240000Z X\n\r\n");
  world.clock.advance(40 * 60); // 11:10
  EXPECT_EQ(refresh(), (QStringList{u"C/02"_s, u"C/02"_s}));
  run.program.settings().store(key::シーケンス表示, false);
  world.clock.advance(600);
  EXPECT_TRUE(refresh().isEmpty());
  run.program.settings().store(key::シーケンス表示, true);
  run.program.settings().store(key::シーケンス時間, -1);
  EXPECT_EQ(refresh(), QStringList{u"C/02"_s});
}
