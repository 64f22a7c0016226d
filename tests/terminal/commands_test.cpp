// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/commands_fixture.h"

using namespace soran;

TEST_F(CommandsTest, APageGoesToThePaneOrToTheSystemsBrowser) {
  run.begin();
  const BrowserPane& pane = run.terminal.pane();
  const QString before = run.panel2();
  for (const bool inPane : {false, true}) {
    run.program.settings().store(key::ブラウザー, inPane);
    enter(u"HELP"_s);
    EXPECT_EQ(run.desk.takeSeen().pages, QStringList{world.endpoints.home + u"/help/help.html"});
    EXPECT_EQ(pane.visible(), inPane);
    run.terminal.pane().pageState(BrowserPane::Loading::Failed);
    EXPECT_EQ(run.panel2(), inPane ? u"ページを表示できません"_s : before);
  }
  run.terminal.pane().close();
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
           u"\r\nRJCM  TAF   1400I\r\n      240500Z 2406/2512 COR  ONA AMD  \n\r\n",
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

TEST_F(CommandsTest, AnswersEachCommandOnce) {
  const QString prompt = crlf + ready;
  const QString syntax = u"\r\nSYNTAX ERROR\r\n"_s + ready;
  const QString printed = u"\r\n\r\nCANCEL PRINT"_s + ready;
  const QStringList printLog = {u"PRINT COMMAND"_s, u"CANCEL PRINT COMMAND"_s, u"PRINT COMMAND"_s};
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
      {u"LIMITS"_s, prompt, {u"DISPLAY LIMITS OF AIRPORTS"_s}, {u"limits"_s}},
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
      {u"SS RJTT ZZZZ"_s,
       u"\r\n\r\nRJTT  SUNRISE 06:24  SUNSET 16:30   ELV 21  ⊿H -6\r\nZZZZ  NOT FOUND POSITION DATA\r\n"_s +
           ready,
       {u"SUNRISE/SUNSET CALCULATION COMMAND"_s}},
      {u"SS RJT"_s, syntax, {u"SUNRISE/SUNSET CALCULATION COMMAND"_s, u"SYNTAX ERROR"_s}},
      {u"RESET"_s,
       u"\r\n\r\nDATABASE RESET SEQUENCE COMPLETED\r\n"_s + ready,
       {u"DATABASE RESET SEQUENCE"_s},
       {u"データベース リセット シーケンスを設定しました　　\r\n\r\nSORAN を再起動してください"_s}},
      {u"PRINT"_s, printed, printLog, {u"printerselect"_s}},
      {u"/p"_s, printed, printLog, {u"printerselect"_s}},
      {u"CLS"_s, u" "_s + ready, {u"CLS COMMAND"_s}, {}, u"CLS"_s},
      {u"RJTT"_s, syntax, {u"SYNTAX ERROR"_s}}, // CLSRJTT
      {u"   "_s, QString(), {}, {}, u"   "_s},
      {QString(), QString(), {}, {}, u"   "_s},
      {u"LOG"_s, prompt, {u"DISPLAY RUNNING LOG"_s}, {u"log"_s}},
      {u"AIS"_s, QString(), {u"DISPLAY AIS-JAPAN"_s}, {u"http://ais"_s}, u"AIS"_s},
  };
  run.program.services.endpoints.others = {{u"ais"_s, u"http://ais"_s}};
  ASSERT_TRUE(run.begin());
  for (const auto& c : cases) {
    SCOPED_TRACE(c.line.toStdString());
    enter(c.line);
    EXPECT_EQ(run.shown(), c.shown);
    EXPECT_EQ(run.logged(), c.log);
    EXPECT_EQ(run.program.console.inputlbl(), c.kept);
    const Desk::Seen seen = run.desk.takeSeen();
    QStringList texts = textsOf(seen.dialogs) + seen.forms + seen.pages;
    for (QString& text : texts)
      text.remove(world.server.baseAddress());
    EXPECT_EQ(texts, c.seen);
    EXPECT_TRUE(run.asked().isEmpty());
  }
  EXPECT_EQ(run.program.settings()[key::DBバージョン].value_or(-1), 0);
  EXPECT_TRUE(run.program.console.recentCodes.contains(u" RJTT ZZZZ "));
  EXPECT_TRUE(run.program.inputHistory.contains(u" RJTT ZZZZ "));
  run.keys(u"\b\b\b\b\b\b"_s);
  EXPECT_EQ(run.program.console.inputlbl(), QString());
  run.type(u"exit"_s);
  EXPECT_TRUE(run.terminal.ended());
}

TEST_F(CommandsTest, EchoesKeysAndEndsOnEscape) {
  ASSERT_TRUE(run.begin());
  run.keys(u"\bRjx\b"_s);
  EXPECT_EQ(run.program.console.inputlbl(), u"Rj");
  EXPECT_EQ(run.program.console.padlbl(), u"Rj");
  run.program.watchTicks = 7;
  const int acts = run.program.userActs;
  run.keys(u"t"_s);
  EXPECT_EQ(run.program.watchTicks, 0);
  EXPECT_EQ(run.program.userActs, acts + 1);
  EXPECT_EQ(run.shown(), QString());
  run.keys(u"\x1B"_s);
  EXPECT_TRUE(run.terminal.ended());
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

TEST_F(CommandsTest, TellsTheForecastsForATime) {
  ASSERT_TRUE(run.begin());
  const QString title = u"*** ETA RJTT 24 1930I ***\r\n\r\n"_s;
  const QString taf = u"TAF  24 1400I 発表 ： 有効 24 1500I - 25 2100I\r\n"
                      "      24 1500I - 24 2000I  卓越する状態 ： 33010KT 9999 FEW020\r\n"
                      "      24 1800I - 24 2000I  変化の途中 (BECMG) ： 36010KT 9999 FEW020\r\n"
                      "      24 2000I - 25 2100I  卓越する状態 ： 36010KT 9999 FEW020\r\n"
                      "最も悪い予報 ： 制限値を超えるものはありません\r\n"_s;
  for (const QString& line : {u"ETA RJTT 1930"_s, u"ETA  RJTT 1030Z"_s}) {
    enter(line);
    EXPECT_TRUE(run.screen().endsWith(crlf + title + u"METAR  24 1400I ： RJTT " + weather +
                                      u"\r\n      傾向予報なし\r\n" + taf + ready))
        << run.screen().toStdString();
    EXPECT_EQ(run.logged(), QStringList{u"ETA COMMAND RJTT"_s});
    EXPECT_EQ(run.asked().size(), 2);
    EXPECT_EQ(run.program.console.inputlbl(), QString());
  }
  // A forecast is told where the METAR is missing.
  world.server.removeFile(stationsPath + u"RJTT.TXT");
  enter(u"ETA RJTT 1930"_s);
  EXPECT_TRUE(run.screen().endsWith(title + u"METAR  通報なし\r\n" + taf + ready))
      << run.screen().toStdString();
  enter(u"ETA ZZZZ 1930"_s);
  EXPECT_TRUE(run.screen().endsWith(u"*** ETA ZZZZ 24 1930I ***\r\n" + notFound(u"ZZZZ"_s) + ready));

  run.program.networkAvailable = false;
  enter(u"ETA RJTT 1930"_s);
  EXPECT_TRUE(run.screen().endsWith(u"\r\nNO NETWORK CONNECTION\r\n" + ready));
  for (const QString& line :
       {u"ETA RJTT"_s, u"ETA RJTT 2430"_s, u"ETA RJTTX 1930"_s, u"ETA RJTT 1930 Z"_s, u"ETA 1930 RJTT"_s}) {
    enter(line);
    EXPECT_TRUE(run.screen().endsWith(u"\r\nSYNTAX ERROR / ETA RJTT 1430 OR ETA RJTT 0530Z\r\n" + ready));
    EXPECT_EQ(run.logged(), QStringList{u"SYNTAX ERROR"_s});
  }
}

TEST_F(CommandsTest, ListsTheSigmetsAndTheLastKnownReports) {
  world.endpoints.sigmet = world.server.baseAddress() + u"/sigmet";
  run.program.services.endpoints.sigmet = world.endpoints.sigmet;
  run.begin();
  setAutoList(run.program.tables, u"RJTT RJCC"_s);
  const QString title = u"*** SIGMET - FUKUOKA FIR ***\r\n"_s;
  const struct {
    Answer answer;
    QString shown;
  } cases[] = {
      {{.body = "RJJJ SIGMET A1 VALID 240400/240800 RJTD-\nRJJJ FUKUOKA FIR SEV TURB WI N37 E139 - N37 E141 "
                "- N35 E141 - N35 E139=\n"},
       u"\r\nRJJJ SIGMET A1\r\n      IN FORCE 24 0400Z - 24 0800Z / 2 h 40 min LEFT\r\n      RJJJ FUKUOKA "
       u"FIR SEV TURB "
       "WI N37 E139 - N37 E141 - N35 E141 - N35 E139\r\n      OVER RJTT\r\n"_s},
      {{.status = 204}, u"\r\nNO SIGMET\r\n"_s},
      {{.body = "<html>gone</html>", .status = 404}, u"\r\nSIGMET NOT AVAILABLE\r\n"_s},
      {{.status = 500}, u"\r\nSIGMET NOT AVAILABLE\r\n"_s},
  };
  for (const auto& c : cases) {
    world.server.setAnswer(u"/sigmet"_s, c.answer);
    enter(u"SIGMET"_s);
    EXPECT_TRUE(run.screen().endsWith(title + c.shown + ready)) << run.screen().toStdString();
  }
  enter(u"RJTT"_s);
  run.program.networkAvailable = false;
  enter(u"LAST RJTT"_s);
  const QString screen = run.screen();
  const qsizetype at =
      screen.indexOf(u"*** LAST KNOWN - 20 min OLD - NO NETWORK ***\r\nRJTT  METAR 1400I\r\n");
  ASSERT_GE(at, 0) << screen.toStdString();
  EXPECT_TRUE(std::ranges::any_of(run.program.console.screen().runs(), [&](const AttributeRun& one) {
    return one.start <= at && at + 40 <= one.start + one.length && one.colour == red && one.bold;
  }));
  // As words of the dictionary, or codes, they are what they ever were.
  for (const QString& word : {u"LAST"_s, u"SIGMET"_s}) {
    enter(word);
    EXPECT_TRUE(run.screen().endsWith(u"\r\nNO NETWORK CONNECTION\r\n" + ready));
  }
}
