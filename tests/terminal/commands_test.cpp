// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/harness.h"

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

const QString weather = u"240500Z 33010KT 9999 FEW020 10/02 Q1020"_s;
const QString outlook = u"240500Z 2406/2512 33010KT 9999 FEW020\n     BECMG 2409/2411 36010KT"_s;

QString metarBlock(const QString& code, const QString& label = u"  METAR 1400I"_s) {
  return crlf + code + label + crlf + u"      " + weather + u'\n';
}
QString tafBlock(const QString& code) {
  return crlf + code + u"  TAF   1400I" + crlf +
         u"      240500Z 2406/2512 33010KT 9999 FEW020\n      BECMG   2409/2411 36010KT\n" + crlf;
}
QString manualTitle(const QString& list) {
  return u"*** " + list + u" - WEATHER OBSERVATION AND FORECASTS ***" + crlf;
}
QString notFound(const QString& code) {
  return crlf + code + u"  NOT FOUND" + crlf;
}

class CommandsTest : public ::testing::Test {
 protected:
  CommandsTest() {
    world.prepare([](Tables& tables) {
      storeGroups(tables,
                  {{u"TTAA"_s, u"RJTT RJAA"_s}, {u"NORTH"_s, u"RJTT ZZZZ"_s}, {u"CLS2"_s, u"RJAA"_s}});
      storeDictionary(tables, table::気象略語, {{u"QQA"_s, u"一"_s}, {u"QQB"_s, u"先"_s}});
      storeDictionary(tables, table::日本語解析, {{u"QQB"_s, u"後"_s}, {u"QQC"_s, u"二"_s}});
    });
    for (const QString& code : {u"RJTT"_s, u"RJAA"_s, u"RJBB"_s, u"RJCC"_s, u"RJFF"_s})
      world.report(code, u"05:00"_s, weather, outlook);
    world.report(u"RJSN"_s, u"05:00"_s, weather);
  }
  /// One line in a run that has just begun; the run stays for further looks.
  void enter(const QString& line) {
    run.shown();
    run.logged();
    run.asked();
    run.type(line);
  }

  World world;
  ProgramRun run{world};
};

} // namespace

TEST_F(CommandsTest, APageGoesToThePaneOrToTheSystemsBrowser) {
  run.begin();
  const BrowserPane& pane = run.view.pane();
  const QString before = run.panel2();
  for (const bool inPane : {false, true}) {
    run.program.settings().store(key::ブラウザー, inPane);
    enter(u"HELP"_s);
    EXPECT_EQ(textsOf(run.desk.takeSeen().pages), QStringList{world.endpoints.home + u"/help/help.html"});
    EXPECT_EQ(pane.visible(), inPane);
    run.view.pane().pageState(BrowserPane::Loading::Failed);
    EXPECT_EQ(run.panel2(), inPane ? u"ページを表示できません"_s : before);
  }
  run.view.pane().close();
  EXPECT_EQ(run.panel2(), before);
}

TEST_F(CommandsTest, ShowsTheReportsOfTypedCodes) {
  world.report(u"RJBE"_s, u"05:15"_s, weather, u"240500Z 33010KT"_s);
  world.report(u"RJCM"_s, u"05:50"_s, weather);
  world.forecast(u"RJCM"_s, u"05:00"_s, u"TAF RJCM 240500Z 2406/2512 CORONA AMD"_s);
  world.report(u"RJNN"_s, u"05:00"_s, weather, outlook);
  world.server.setDelivery(stationsPath + u"RJNN", {.cutAt = 20});
  world.report(u"RJOT"_s, u"05:00"_s, weather, outlook);
  world.server.setDelivery(forecastsPath + u"RJOT", {.cutAt = 20});
  const QString refusedTaf = u"  TAF   \r\n      NO FORECAST\r\n"_s;
  const struct {
    QString line;
    QString blocks;
    QStringList log;
    QStringList asked;
    QString list = {};
  } cases[] = {
      {u"RJTT"_s,
       metarBlock(u"RJTT"_s) + tafBlock(u"RJTT"_s),
       {u"RJTT METAR RECEIVED"_s, u"RJTT TAF   RECEIVED"_s},
       {u"M/RJTT"_s, u"T/RJTT"_s}},
      {u" rjAa "_s,
       metarBlock(u"RJAA"_s) + tafBlock(u"RJAA"_s),
       {u"RJAA METAR RECEIVED"_s, u"RJAA TAF   RECEIVED"_s},
       {u"M/RJAA"_s, u"T/RJAA"_s},
       u"RJAA"_s},
      {u"ZZZZ"_s, notFound(u"ZZZZ"_s), {u"NOT FOUND ZZZZ"_s}, {u"M/ZZZZ"_s}},
      {u"RJSN"_s,
       metarBlock(u"RJSN"_s) + crlf + u"RJSN" + refusedTaf,
       {u"RJSN METAR RECEIVED"_s, u"RJSN TAF   RECEIVED"_s},
       {u"M/RJSN"_s, u"T/RJSN"_s}},
      // A transfer that is cut never leaves the text of another station, not even of the one before it.
      {u"RJTT RJNN RJOT"_s,
       metarBlock(u"RJTT"_s) + tafBlock(u"RJTT"_s) + notFound(u"RJNN"_s) + metarBlock(u"RJOT"_s) + crlf +
           u"RJOT" + refusedTaf,
       {u"RJTT METAR RECEIVED"_s, u"RJTT TAF   RECEIVED"_s, u"NOT FOUND RJNN"_s, u"RJOT METAR RECEIVED"_s,
        u"RJOT TAF   RECEIVED"_s},
       {u"M/RJTT"_s, u"T/RJTT"_s, u"M/RJNN"_s, u"M/RJOT"_s, u"T/RJOT"_s}},
      {u"RJBE"_s,
       metarBlock(u"RJBE"_s, u"  SPECI 1415I"_s) + u"\r\nRJBE  TAF   1415I\r\n"
                                                   u"      240500Z 33010KT\n\r\n",
       {u"RJBE SPECI RECEIVED"_s, u"RJBE TAF   RECEIVED"_s},
       {u"M/RJBE"_s, u"T/RJBE"_s}},
      {u"RJCM"_s,
       metarBlock(u"RJCM"_s, u"  METAR 1450I"_s) +
           u"\r\nRJCM  TAF   1400I\r\n      240500Z 2406/2512 COR  ONA AMD  \r\n",
       {u"RJCM METAR RECEIVED"_s, u"RJCM TAF(AMD) RECEIVED"_s},
       {u"M/RJCM"_s, u"T/RJCM"_s}},
  };
  ASSERT_TRUE(run.begin());
  for (const auto& c : cases) {
    SCOPED_TRACE(c.line.toStdString());
    enter(c.line);
    const QString list = c.list.isEmpty() ? c.line : c.list;
    EXPECT_EQ(run.screen(), manualTitle(list) + c.blocks + ready);
    EXPECT_EQ(run.logged(), QStringList{u"MANUAL DECODE"_s} + c.log);
    EXPECT_EQ(run.asked(), c.asked);
    EXPECT_EQ(run.program.currentInput, list);
    EXPECT_EQ(run.program.console.inputlbl(), QString());
    EXPECT_EQ(run.program.console.padlbl(), QString());
    EXPECT_EQ(run.panel2(), u"自動デコード作動　　最終更新  14:20(I)");
    EXPECT_EQ(run.program.console.screen().caret(), run.screen().size());
    EXPECT_FALSE(run.program.console.busy());
  }
}

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

TEST_F(CommandsTest, AnswersEachCommandOnce) {
  const QString prompt = crlf + ready;
  const QString syntax = u"\r\nSYNTAX ERROR\r\n"_s + ready;
  const struct {
    QString line;
    QString shown;
    QStringList log;
    QStringList seen = {}; ///< dialogues, forms and pages
    QString kept = {};     ///< the typed line afterwards
  } cases[] = {
      {u"RL"_s, u"\r\nINPUT AIRPORT CODE\r\n"_s + ready, {}},
      {u"COUNTER"_s, prompt, {u"DISPLAY ACCESS COUNTER"_s}, {u"/index2.htm"_s}},
      {u"help"_s, prompt, {u"DISPLAY ONLINE HELP"_s}, {u"/help/help.html"_s}},
      {u"LOG"_s, prompt, {u"DISPLAY RUNNING LOG"_s}, {u"log"_s}},
      {u"DE"_s, prompt, {u"DISPLAY AUTO DECODE LIST"_s}, {u"decodelist"_s}},
      {u"GP"_s, prompt, {u"DISPLAY GROUP LIST"_s}, {u"company"_s}},
      {u"AP"_s, prompt, {u"DISPLAY AIRPORT LIST"_s}, {u"airport"_s}},
      {u"CAM"_s, prompt, {u"DISPLAY NETWORK CAMERA"_s}, {u"camera"_s}},
      {u"QQA"_s, u"\r\nQQA : 一\r\n"_s + ready, {u"SEARCH WORD QQA"_s}},
      {u"qqb"_s, u"\r\nQQB : 先\r\n"_s + ready, {u"SEARCH WORD QQB"_s}},
      {u"QQC"_s, u"\r\nQQC : 二\r\n"_s + ready, {u"SEARCH WORD QQC"_s}},
      {u"FOO"_s, syntax, {u"SYNTAX ERROR"_s}},
      {u"RJ01"_s, syntax, {u"SYNTAX ERROR"_s}},
      {u"RJTT  RJAA"_s, syntax, {u"SYNTAX ERROR"_s}},
      {u"RJTT RJA"_s, syntax, {u"SYNTAX ERROR"_s}},
      {u"RJTTRJAA"_s, syntax, {u"SYNTAX ERROR"_s}},
      {u"SQ"_s, syntax, {u"SYNTAX ERROR"_s}},
      {u"ＲＪＴＴ"_s, syntax, {u"SYNTAX ERROR"_s}},
      {u"RESET"_s,
       u"\r\n\r\nDATABASE RESET SEQUENCE COMPLETED\r\n"_s + ready,
       {u"DATABASE RESET SEQUENCE"_s},
       {u"データベース リセット シーケンスを設定しました　　\r\n\r\nSORAN を再起動してください"_s}},
      {u"CLS"_s, u" "_s + ready, {u"CLS COMMAND"_s}, {}, u"CLS"_s},
      {u"RJTT"_s, syntax, {u"SYNTAX ERROR"_s}}, // CLSRJTT
      {u"   "_s, QString(), {}, {}, u"   "_s},
      {QString(), QString(), {}, {}, u"   "_s},
      {u"LOG"_s, prompt, {u"DISPLAY RUNNING LOG"_s}, {u"log"_s}},
      {u"AIS"_s, QString(), {u"DISPLAY AIS-JAPAN"_s}, {QString()}, u"AIS"_s},
  };
  ASSERT_TRUE(run.begin());
  for (const auto& c : cases) {
    SCOPED_TRACE(c.line.toStdString());
    enter(c.line);
    EXPECT_EQ(run.shown(), c.shown);
    EXPECT_EQ(run.logged(), c.log);
    EXPECT_EQ(run.program.console.inputlbl(), c.kept);
    const Headless::Seen seen = run.desk.takeSeen();
    QStringList texts = textsOf(seen.dialogs) + textsOf(seen.forms) + textsOf(seen.pages);
    for (QString& text : texts)
      text.remove(world.server.baseAddress());
    EXPECT_EQ(texts, c.seen);
    EXPECT_TRUE(run.asked().isEmpty());
  }
  EXPECT_EQ(run.program.settings()[key::DBバージョン].value_or(-1), 0);
  run.keys(u"\b\b\b\b\b\b"_s);
  EXPECT_EQ(run.program.console.inputlbl(), QString());
  run.type(u"exit"_s);
  EXPECT_TRUE(run.view.ended());
}

TEST_F(CommandsTest, EchoesKeysAndEndsOnEscape) {
  ASSERT_TRUE(run.begin());
  run.keys(u"\bRjx\b"_s);
  EXPECT_EQ(run.program.console.inputlbl(), u"Rj");
  EXPECT_EQ(run.program.console.padlbl(), u"Rj");
  run.program.watchTicks = 7;
  run.keys(u"t"_s);
  EXPECT_EQ(run.program.watchTicks, 0);
  EXPECT_EQ(run.shown(), QString());
  run.keys(u"\x1B"_s);
  EXPECT_TRUE(run.view.ended());
  run.keys(u"x\r"_s);
  EXPECT_EQ(run.program.console.inputlbl(), u"Rjt");
}

TEST_F(CommandsTest, RemembersTypedWordsUpToTwoHundredCharacters) {
  ASSERT_TRUE(run.begin());
  run.type(u"foo"_s);
  run.type(u"FOO"_s);
  run.type(u"A B"_s);
  EXPECT_EQ(run.program.inputHistory, u" FOO A B ");
  run.program.inputHistory = u" FIRST " + QString(187, u'x') + u' '; // 195 characters
  run.type(u"ABCD"_s);
  EXPECT_EQ(run.program.inputHistory.size(), 200);
  EXPECT_TRUE(run.program.inputHistory.startsWith(u" FIRST "));
  run.type(u"Q"_s);
  EXPECT_EQ(run.program.inputHistory, u' ' + QString(187, u'x') + u" ABCD Q ");
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

TEST_F(CommandsTest, WithoutNetworkSomeAlertAndOthersSayIt) {
  const QString gate = u"\r\nNO NETWORK CONNECTION\r\n"_s + ready;
  const QString alert = u"インターネットに接続できません　　"_s;
  const QStringList gateLog = {u"SYSTEM NO NETWORK CONNECTION"_s};
  const struct {
    QString line;
    QString shown;
    QStringList log;
    bool alerts;
    bool kept;
  } cases[] = {
      {u"UPDATE"_s, {}, {}, true, true},
      {u"RESET"_s, {}, {}, true, true},
      {u"COUNTER"_s, {}, {}, true, true},
      {u"HELP"_s, {}, {}, true, true},
      {u"ATO"_s, {}, {}, true, true},
      {u"RL"_s, {}, {}, true, true},
      {u"AIS"_s, {}, gateLog, true, true},
      {u"RJTT"_s, gate, gateLog, false, false},
      {u"FOO"_s, gate, gateLog, false, false},
      {u"SQ RJTT"_s, gate, gateLog, false, false},
      {u"DE"_s, {}, {}, true, true},
      {u"GP"_s, {}, {}, true, true},
      {u"WX"_s, {}, {}, true, true},
      {u"CAM"_s, {}, {}, true, true},
      {u"JP RJTT"_s, gate, gateLog, false, false},
      {u"AP"_s, crlf + ready, {u"DISPLAY AIRPORT LIST"_s}, false, false},
      {u"LOG"_s, crlf + ready, {u"DISPLAY RUNNING LOG"_s}, false, false},
      {u"QQA"_s, u"\r\nQQA : 一\r\n"_s + ready, {u"SEARCH WORD QQA"_s}, false, false},
  };
  ASSERT_TRUE(run.begin());
  run.program.networkAvailable = false;
  for (const auto& c : cases) {
    SCOPED_TRACE(c.line.toStdString());
    enter(c.line);
    EXPECT_EQ(run.shown(), c.shown);
    EXPECT_EQ(run.logged(), c.log);
    EXPECT_EQ(textsOf(run.desk.takeSeen().dialogs), c.alerts ? QStringList{alert} : QStringList());
    EXPECT_EQ(run.program.console.inputlbl(), c.kept ? c.line : QString());
    run.keys(QString(10, u'\b'));
    EXPECT_TRUE(run.asked().isEmpty());
  }
  enter(u"TTAA"_s); // a group asks all the same
  EXPECT_EQ(run.asked().size(), 4);
}

TEST_F(CommandsTest, KeepsEarlierRunsWhereTheScreenIsNotCleared) {
  ASSERT_TRUE(run.begin());
  run.program.settings().store(key::前画面クリアー, false);
  const QString first =
      manualTitle(u"RJSN"_s) + metarBlock(u"RJSN"_s) + u"\r\nRJSN  TAF   \r\n      NO FORECAST\r\n";
  run.type(u"RJSN"_s);
  EXPECT_EQ(run.screen(), first + ready);
  run.type(u"ZZZZ"_s);
  EXPECT_EQ(run.screen(), first + crlf + crlf + manualTitle(u"ZZZZ"_s) + notFound(u"ZZZZ"_s) + ready);
  run.type(u"CLS"_s);
  run.keys(u"\b\b\b"_s);
  run.type(u"ZZZZ"_s);
  EXPECT_EQ(run.screen(), manualTitle(u"ZZZZ"_s) + notFound(u"ZZZZ"_s) + ready);
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
    run.view.cycle().enableWatch(true);
    enter(c.line);
    EXPECT_EQ(run.view.cycle().watchEnabled(), !c.stops);
    EXPECT_EQ(run.logged().contains(terminated), c.stops);
  }
  run.view.pane().close();
  enter(u"RJTT"_s);
  EXPECT_EQ(run.panel2(), u"自動デコード停止");
  EXPECT_EQ(run.logged().mid(0, 2), (QStringList{terminated, u"MANUAL DECODE"_s}));
  enter(u"ATO"_s);
  EXPECT_TRUE(run.view.cycle().watchEnabled());
}

TEST_F(CommandsTest, StartsTheAutomaticDecode) {
  ASSERT_TRUE(run.begin());
  storeAutoList(run.program.tables, {{u"RJTT"_s, u"羽田"_s}, {u"RJAA"_s, u"成田"_s}});
  run.program.settings().store(key::自動デコード有効, false);
  run.view.cycle().enableWatch(false);
  enter(u"ATO"_s);
  EXPECT_EQ(run.shown(), u"\r\nAUTO DECODE SEQUENCE DISABLED\r\n"_s + ready);
  EXPECT_EQ(textsOf(run.desk.takeSeen().dialogs),
            QStringList{u"自動デコードが無効になっています　　\r\r有効にしますか？"_s});
  EXPECT_TRUE(run.logged().isEmpty());
  EXPECT_FALSE(run.view.cycle().watchEnabled());
  EXPECT_EQ(run.program.settings()[key::自動デコード有効], false);

  run.keys(u"\b\b\b"_s);
  run.desk.answers = {true};
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
  EXPECT_TRUE(run.view.cycle().watchEnabled());
  EXPECT_EQ(run.program.currentInput, u"RJTT RJAA");

  // From the toolbar no key has ended a group run's mode before.
  run.type(u"TTAA"_s);
  run.view.startAutomaticDecode();
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

TEST_F(CommandsTest, LogKeepsItsThousandNewestRows) {
  ASSERT_TRUE(run.begin());
  const auto& rows = run.program.console.log().rows();
  ASSERT_EQ(rows.size(), 3U);
  EXPECT_EQ(rows[0].message, u"SYSTEM  CONNECTED  KSD  DATABASE");
  EXPECT_EQ(rows[2].message, u"SYSTEM  LOAD");
  for (int i = 0; i < 998; ++i)
    run.program.console.addLogEntry(QString::number(i));
  EXPECT_EQ(rows.size(), 1000U);
  EXPECT_EQ(rows.front().message, u"997");
  EXPECT_EQ(rows.front().date + u' ' + rows.front().time, u"2026/11/24 14:20:00");
  EXPECT_EQ(rows.back().message, u"SYSTEM  LOGIN");
  const struct {
    QString message;
    Colour colour;
  } colours[] = {{u"MANUAL DECODE"_s, grey}, {u"RJTT METAR RECEIVED"_s, black}, {u"METAR HOMEPAGE"_s, grey},
                 {u"SPECI METAR"_s, 5},      {u"RJTT TAF(COR) RECEIVED"_s, 5},  {u"SPECI HOMEPAGE"_s, 5}};
  for (const auto& c : colours)
    EXPECT_EQ(RunningLog::colourOf({{}, {}, c.message}, 5), c.colour) << c.message.toStdString();
}
