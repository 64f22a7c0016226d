// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/actions.h"
#include "terminal/commands_fixture.h"

using namespace soran;

TEST_F(CommandsTest, AsksForEachStationOfALongList) {
  ASSERT_TRUE(run.begin());
  enter(u"RJTT RJAA RJBB RJCC RJFF"_s);
  EXPECT_EQ(run.asked().size(), 10);
  QStringList codes;
  for (int i = 0; i < 100; ++i)
    codes.append(u"Z"_s + QChar(u'A' + i / 26) + QChar(u'A' + i % 26) + u'Z');
  enter(codes.join(u' '));
  EXPECT_EQ(run.asked().size(), 100);
  EXPECT_EQ(run.screen().count(u"  NOT FOUND"), 100);
  EXPECT_EQ(run.screen().count(ready), 1);
  EXPECT_LE(run.program.inputHistory.size(), 200);
}

TEST_F(CommandsTest, RunsGroupsByNameAndReloadsThemAsAList) {
  const QString both =
      metarBlock(u"RJTT"_s) + tafBlock(u"RJTT"_s) + metarBlock(u"RJAA"_s) + tafBlock(u"RJAA"_s);
  ASSERT_TRUE(run.begin());
  QString loading;
  run.onRequest = [&](const QString&) { loading = run.screen(); };
  enter(u"ttaa"_s);
  EXPECT_TRUE(loading.endsWith(u"\r\n\r\nCOMPANY ROUTINE ROUTE\r\nLOADING RJTT RJAA"_s));
  EXPECT_EQ(run.screen(),
            u"*** RJTT - RJAA COMPANY ROUTINE ROUTE OBSERVATION AND FORECASTS ***\r\n" + both + ready);
  EXPECT_EQ(run.logged(),
            (QStringList{u"GROUP TTAA DECODE SEQUENCE START"_s, u"RJTT METAR RECEIVED"_s,
                         u"RJTT TAF   RECEIVED"_s, u"RJAA METAR RECEIVED"_s, u"RJAA TAF   RECEIVED"_s}));
  enter(u"RL"_s);
  EXPECT_EQ(run.screen(), manualTitle(u"RJTT RJAA"_s) + both + ready);
  EXPECT_EQ(run.logged(), QStringList{u"DATA RELOAD"_s});
  EXPECT_EQ(run.asked().size(), 4);

  enter(u"NORTH"_s);
  EXPECT_TRUE(loading.endsWith(u"\r\nGROUP FORMAT\r\nLOADING RJTT ZZZZ"_s));
  EXPECT_EQ(run.screen(), u"*** NORTH - GROUP FORMAT OBSERVATION AND FORECASTS ***\r\n" +
                              metarBlock(u"RJTT"_s) + tafBlock(u"RJTT"_s) + notFound(u"ZZZZ"_s) + ready);
  EXPECT_EQ(run.logged().first(), u"FORMAT NORTH DECODE SEQUENCE START");

  storeGroups(run.program.tables, {{u"CLS"_s, u"RJAA"_s}, {u"AIS"_s, u"RJAA"_s}});
  enter(u"CLS"_s);
  EXPECT_EQ(run.asked(), (QStringList{u"M/RJAA"_s, u"T/RJAA"_s}));
  enter(u"AIS"_s);
  EXPECT_TRUE(run.asked().isEmpty());
}

TEST_F(CommandsTest, StopsTheCycleWhereTheSettingSaysSo) {
  ASSERT_TRUE(run.begin());
  run.program.settings().store(key::マニュアル入力時停止, true);
  const QString terminated = u"AUTO DECODE SEQUENCE TERMINATED"_s;
  const struct {
    QString line;
    bool stops;
  } cases[] = {{u"RJTT"_s, true}, {u"DE"_s, true},      {u"GP"_s, true},      {u"AP"_s, true},
               {u"CAM"_s, false}, {u"TTAA"_s, true},    {u"SQ RJTT"_s, true}, {u"RL"_s, false},
               {u"LOG"_s, false}, {u"HELP"_s, false},   {u"FOO"_s, false},    {u"PRINT"_s, false},
               {u"QQA"_s, false}, {u"COUNTER"_s, false}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.line.toStdString());
    run.terminal.cycle().enableWatch(true);
    enter(c.line);
    EXPECT_EQ(run.terminal.cycle().watchEnabled(), !c.stops);
    EXPECT_EQ(run.logged().contains(terminated), c.stops);
  }
  run.terminal.pane().close();
  enter(u"RJTT"_s);
  EXPECT_EQ(run.panel2(), u"自動デコード停止");
  EXPECT_EQ(run.logged().mid(0, 2), (QStringList{terminated, u"MANUAL DECODE"_s}));
  enter(u"ATO"_s);
  EXPECT_TRUE(run.terminal.cycle().watchEnabled());
}

TEST_F(CommandsTest, StartsTheAutomaticDecode) {
  ASSERT_TRUE(run.begin());
  storeAutoList(run.program.tables, {{u"RJTT"_s, u"羽田"_s}, {u"RJAA"_s, u"成田"_s}});
  run.program.settings().store(key::自動デコード有効, false);
  run.terminal.cycle().enableWatch(false);
  enter(u"ATO"_s);
  EXPECT_EQ(run.shown(), u"\r\nAUTO DECODE SEQUENCE DISABLED\r\n"_s + ready);
  EXPECT_EQ(textsOf(run.desk.takeSeen().dialogs),
            QStringList{u"自動デコードが無効になっています　　\r\r有効にしますか？"_s});
  EXPECT_TRUE(run.logged().isEmpty());
  EXPECT_FALSE(run.terminal.cycle().watchEnabled());
  EXPECT_EQ(run.program.settings()[key::自動デコード有効], false);

  run.keys(u"\b\b\b"_s);
  run.desk.dialogs.answers = {true};
  QString loading;
  run.onRequest = [&](const QString&) { loading = run.screen(); };
  enter(u"ATO"_s);
  EXPECT_EQ(loading, u"SYSTEM INITIALIZED\r\n\r\nAUTO DECODE SEQUENCE START\r\nLOADING RJTT RJAA");
  EXPECT_EQ(run.screen(), u"*** AUTO DECODE - WEATHER OBSERVATION AND FORECASTS ***\r\n" +
                              metarBlock(u"RJTT"_s) + tafBlock(u"RJTT"_s) + metarBlock(u"RJAA"_s) +
                              tafBlock(u"RJAA"_s) + ready);
  EXPECT_EQ(run.logged().mid(0, 3), (QStringList{u"SYSTEM INITIALIZED"_s, u"AUTO DECODE SEQUENCE START"_s,
                                                 u"RJTT METAR RECEIVED"_s}));
  EXPECT_EQ(run.program.settings()[key::自動デコード有効], true);
  EXPECT_TRUE(run.terminal.cycle().watchEnabled());
  EXPECT_EQ(run.program.currentInput, u"RJTT RJAA");

  // From the toolbar no key has ended a group run's mode before.
  run.type(u"TTAA"_s);
  action::startAutomatic(run.terminal);
  EXPECT_TRUE(run.screen().startsWith(u"*** AUTO DECODE - "));

  storeAutoList(run.program.tables, {});
  enter(u"ATO"_s);
  EXPECT_EQ(run.shown(), u"\r\nNO AIRPORT FOUND IN AUTO DECODE LIST\r\n"_s + ready);
  EXPECT_EQ(run.logged(), QStringList{u"NO AIRPORT FOUND IN AUTO DECODE LIST"_s});
}

TEST_F(CommandsTest, TellsTheClockInTheStatusLine) {
  const struct {
    const char* now;
    bool local;
    QString offset;
    QString text;
  } cases[] = {
      {"2026-11-24T14:20:00+09:00", true, u"+9"_s, u"14:20(I)"_s},
      {"2026-11-24T03:15:00+09:00", true, u"+9"_s, u"03:15(I)"_s},
      {"2026-11-24T03:15:00+09:00", false, u"+9"_s, u"06:15(Z)"_s},
      {"2026-11-24T14:05:00+09:00", false, u"+9"_s, u"05:05(Z)"_s},
      {"2026-11-24T03:15:00+09:00", true, u"-5"_s, u"13:15(R)"_s},
      {"2026-11-24T23:15:00+09:00", true, u"+12"_s, u"02:15(M)"_s},
  };
  ASSERT_TRUE(run.begin());
  for (const auto& c : cases) {
    world.clock = SetClock(QDateTime::fromString(QLatin1String(c.now), Qt::ISODate));
    run.program.settings().store(key::LOCAL使用, c.local);
    run.program.settings().store(key::時差, c.offset);
    run.type(u"ZZZZ"_s);
    EXPECT_EQ(run.panel2(), u"自動デコード作動　　最終更新  " + c.text);
  }
}

TEST_F(CommandsTest, TranslatesAListIntoJapanese) {
  const auto title = [](const QString& code) -> QString {
    return u"*** " + code + u" - JAPANESE TRANSLATION WEATHER OBSERVATION ***" + crlf;
  };
  ASSERT_TRUE(run.begin());
  world.server.setDelivery(stationsPath + u"RJAA", {.cutAt = 20});
  world.server.setFile(stationsPath + u"RJBB.TXT", "2026/11/24 05:00\nRJBB 240500Z");
  run.program.console.setPanel(2, u"元"_s);
  for (const QString& line : {u"JP RJTT RJAA RJBB"_s, u"RL"_s}) {
    QString during;
    run.onRequest = [&](const QString&) { during = run.panel2(); };
    enter(line);
    const QString screen = run.screen();
    EXPECT_TRUE(screen.startsWith(title(u"RJTT"_s) + u"\r\nRJTT  METAR 1400I\r\n"));
    EXPECT_TRUE(screen.endsWith(crlf + title(u"RJAA"_s) + notFound(u"RJAA"_s) + crlf + title(u"RJBB"_s) +
                                u"\r\nRJBB  METAR 1400I" + ready));
    EXPECT_EQ(run.asked(), (QStringList{u"M/RJTT"_s, u"M/RJAA"_s, u"M/RJBB"_s}));
    EXPECT_EQ(run.logged(),
              line == u"RL" ? (QStringList{u"CALL JAPANESE DECODE RJTT RJAA RJBB"_s, u"DATA RELOAD"_s})
                            : (QStringList{u"MANUAL DECODE"_s, u"CALL JAPANESE DECODE RJTT RJAA RJBB"_s}));
    EXPECT_EQ(run.program.currentInput, u"JP RJTT RJAA RJBB");
    EXPECT_EQ(during, u"日本語デコード中");
    EXPECT_EQ(run.panel2(), u"元");
  }
  EXPECT_FALSE(fileExists(world.path(u"data/sequence.dat"_s)));
  EXPECT_EQ(run.program.stationTable.stationCount(), 0);
}

TEST_F(CommandsTest, KeepsTheSequenceFlagOfARefusedList) {
  ASSERT_TRUE(run.begin());
  run.program.settings().store(key::シーケンス表示, false);
  run.type(u"RJTT"_s);
  const QString panel = run.panel2();
  enter(u"SQ RJ"_s);
  EXPECT_EQ(run.shown(), u"\r\nSYNTAX ERROR\r\n"_s + ready);
  EXPECT_EQ(run.panel2(), panel);
  enter(u"RJTT"_s);
  EXPECT_TRUE(run.screen().startsWith(u"*** RJTT - SEQUENCE WEATHER OBSERVATION ***\r\n"));
  EXPECT_EQ(run.program.currentInput, u"SQ RJTT");
  enter(u"RL"_s);
  EXPECT_EQ(run.logged(), (QStringList{u"CALL SEQUENCE RJTT"_s, u"DATA RELOAD"_s}));
  EXPECT_TRUE(run.asked().isEmpty());
}
