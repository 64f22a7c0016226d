// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/menus_fixture.h"

using namespace soran;

namespace {

/// What an entry shows and writes, each list in order, joined with blanks or bars.
struct Effect {
  const char* entry; ///< a menu, or a button by its number
  QString log;
  QString shown;
  QString forms;
  QString pages;
  QString texts; ///< of the dialogues
};

} // namespace

TEST_F(MenusTest, EveryEntryDoesWhatItSays) {
  ASSERT_TRUE(started);
  const QString home = world.server.baseAddress();
  const QString helpPage = home + u"/help/help.html";
  const QString yahooPage = u"http://yahoo/weather/jp/leisure/airport/"_s;
  const QString newest = u"DISPLAY ADOBE PDF INFORMATION|DISPLAY WEATHER CHART"_s;
  const QString saveCancelled = u"FILE SAVE COMMAND|CANCEL FILE SAVE COMMAND"_s;
  const QString printed = u"PRINT COMMAND|AUTO PRINT DATA SPOOL INTO *|PRINT COMPLETED"_s;
  const QString updated = u"SYSTEM UPDATE COMMAND|ALREADY INSTALLED LATEST VERSION"_s;
  const QString newestText =
      u"最新版の SORAN がインストールされています　　\r\n\r\n                Version 4.31"_s;
  const Effect effects[] = {
      {"menu_update", updated, {}, {}, {}, newestText},
      {"10", updated, {}, {}, {}, newestText},
      {"menu_print", printed, crlf + u"PRINT COMPLETED" + ready + crlf, {}, {}, {}},
      {"menu_popup_print", printed, crlf + u"PRINT COMPLETED" + ready + crlf, {}, {}, {}},
      {"2", printed, crlf + u"PRINT COMPLETED" + gapReady, {}, {}, {}},
      {"menu_save", saveCancelled, crlf + u"CANCEL FILE SAVE" + gapReady, {}, {}, {}},
      {"menu_popup_save", saveCancelled, crlf + u"CANCEL FILE SAVE" + gapReady, {}, {}, {}},
      {"1", saveCancelled, crlf + u"CANCEL FILE SAVE" + gapReady, {}, {}, {}},
      {"menu_company_edit", u"DISPLAY GROUP LIST"_s, {}, u"company"_s, {}, {}},
      {"menu_popup_company", u"DISPLAY GROUP LIST"_s, {}, u"company"_s, {}, {}},
      {"menu_chart", newest, echo, u"adobeinfo|chart"_s, {}, {}},
      {"menu_popup_wx", newest, echo, u"adobeinfo|chart"_s, {}, {}},
      {"menu_camera", u"DISPLAY NETWORK CAMERA"_s, echo, u"camera"_s, {}, {}},
      {"menu_popup_cam", u"DISPLAY NETWORK CAMERA"_s, echo, u"camera"_s, {}, {}},
      {"menu_yahoo", u"DISPLAY Yahoo! WEATHER"_s, {}, {}, yahooPage, {}},
      {"12", u"DISPLAY Yahoo! WEATHER"_s, {}, {}, yahooPage, {}},
      {"menu_suntime", u"DISPLAY SUNRISE/SUNSET GRAPH"_s, {}, u"suntime"_s, {}, {}},
      {"menu_popup_suntime", u"DISPLAY SUNRISE/SUNSET GRAPH"_s, {}, u"suntime"_s, {}, {}},
      {"menu_info_weather", {}, {}, u"weather"_s, {}, {}},
      {"menu_ais", u"DISPLAY AIS-JAPAN"_s, {}, {}, u"http://ais"_s, {}},
      {"menu_popup_ais", u"DISPLAY AIS-JAPAN"_s, {}, {}, u"http://ais"_s, {}},
      {"menu_map", u"DISPLAY MAP"_s, echo, u"map"_s, {}, {}},
      {"menu_airport", u"DISPLAY AIRPORT LIST"_s, echo, u"airport"_s, {}, {}},
      {"menu_limits", u"DISPLAY LIMITS OF AIRPORTS"_s, echo, u"limits"_s, {}, {}},
      {"menu_popup_ap", u"DISPLAY AIRPORT LIST"_s, echo, u"airport"_s, {}, {}},
      {"menu_autodecode", u"DISPLAY AUTO DECODE LIST"_s, echo, u"decodelist"_s, {}, {}},
      {"menu_popup_de", u"DISPLAY AUTO DECODE LIST"_s, echo, u"decodelist"_s, {}, {}},
      {"menu_option", u"DISPLAY SYSTEM SETUP MENU"_s, {}, u"opton"_s, {}, {}},
      {"menu_popup_config", u"DISPLAY SYSTEM SETUP MENU"_s, {}, u"opton"_s, {}, {}},
      {"9", u"DISPLAY SYSTEM SETUP MENU"_s, {}, u"opton"_s, {}, {}},
      {"menu_command", u"DISPLAY COMMAND LIST"_s, {}, u"command"_s, {}, {}},
      {"menu_popup_command", u"DISPLAY COMMAND LIST"_s, {}, u"command"_s, {}, {}},
      {"11", u"DISPLAY COMMAND LIST"_s, {}, u"command"_s, {}, {}},
      {"menu_info_version", u"DISPLAY SYSTEM VERSION INFORMATION"_s, {}, u"version"_s, {}, {}},
      {"menu_info_compornent", u"DISPLAY SYSTEM COMPORNENTS INFORMATION"_s, {}, u"compornent"_s, {}, {}},
      {"menu_info_log", u"DISPLAY RUNNING LOG"_s, echo, u"log"_s, {}, {}},
      {"menu_popup_log", u"DISPLAY RUNNING LOG"_s, echo, u"log"_s, {}, {}},
      {"menu_info_board", {}, {}, {}, {}, {}},
      {"menu_info_help", u"DISPLAY ONLINE HELP"_s, echo, {}, helpPage, {}},
      {"menu_popup_help", u"DISPLAY ONLINE HELP"_s, echo, {}, helpPage, {}},
      {"14", u"DISPLAY ONLINE HELP"_s, {}, {}, helpPage, {}},
      {"menu_info_homepage", u"DISPLAY SORAN HOMEPAGE"_s, {}, {}, home + u'/', {}},
      {"menu_popup_homepage", u"DISPLAY SORAN HOMEPAGE"_s, {}, {}, home + u'/', {}},
      {"13", u"DISPLAY SORAN HOMEPAGE"_s, {}, {}, home + u'/', {}},
      {"3", u"AUTO DECODE SEQUENCE TERMINATED"_s, {}, {}, {}, {}},
      {"5", u"SYNTAX ERROR"_s, crlf + u"INPUT AIRPORT" + crlf + gapReady, {}, {}, {}},
      {"7", u"SHOW SCROLL BAR COMMAND"_s, gapReady, {}, {}, {}},
      {"7", u"ERASE SCROLL BAR COMMAND"_s, gapReady, {}, {}, {}},
      {"8", u"TEXT BOLD COMMAND"_s, gapReady, {}, {}, {}},
      {"8", u"RELEASE TEXT BOLD COMMAND"_s, gapReady, {}, {}, {}},
      {"6", u"CLS COMMAND"_s, u' ' + gapReady, {}, {}, {}},
      {"17",
       {},
       crlf + u"AUTO DECODE SEQUENCE DISABLED" + crlf + gapReady,
       {},
       {},
       u"自動デコードが無効になっています　　\r\r有効にしますか？"_s},
  };
  for (const Effect& effect : effects) {
    SCOPED_TRACE(effect.entry);
    const QString entry = QString::fromUtf8(effect.entry);
    bool isButton = false;
    const int index = entry.toInt(&isButton);
    run.program.watchTicks = 7;
    EXPECT_TRUE(isButton ? menus().button(index) : menus().choose(entry));
    const Desk::Seen seen = run.desk.takeSeen();
    EXPECT_EQ(joined(run.logged()), effect.log);
    EXPECT_EQ(run.shown(), effect.shown);
    EXPECT_EQ(joined(seen.forms), effect.forms);
    EXPECT_EQ(joined(seen.pages), effect.pages);
    EXPECT_EQ(joined(textsOf(seen.dialogs)), effect.texts);
    run.terminal.pane().close();
  }
  for (const Form& form :
       {Form(form::Charts{}), Form(form::Cameras{}), Form(form::Commands{}), Form(form::Log{})})
    EXPECT_TRUE(run.terminal.forms().isOpen(form)) << nameOf(form).toStdString();
}

TEST_F(MenusTest, APageThatAsksForAnAccountOrHasMovedAwayIsTold) {
  Endpoints& endpoints = run.program.services.endpoints;
  endpoints.others.clear();
  endpoints.images = readImageTable("[ais]\naddress=https://p.example/swim/\nkind=page\naccount=yes\n", {});
  menus().choose(u"menu_ais"_s, {});
  EXPECT_EQ(joined(run.desk.takeSeen().pages), u"https://p.example/swim/");
  EXPECT_EQ(run.program.console.log().rows()[1].message, u"AIS-JAPAN MOVED, ACCOUNT REQUIRED");
  menus().choose(u"menu_yahoo"_s, {});
  EXPECT_EQ(joined(run.desk.takeSeen().pages), QString());
  EXPECT_EQ(run.program.console.log().rows()[0].message, u"NO ADDRESS OF THIS PAGE");
}

TEST_F(MenusTest, AnEntryThatIsMissingIsTold) {
  for (const QString& name : {u"menu_nothing"_s, u"menu_listAP"_s, u"MENU_PRINT"_s, QString()})
    EXPECT_FALSE(menus().choose(name)) << name.toStdString();
  for (const int index : {0, 3, -1})
    EXPECT_FALSE(menus().choose(u"menu_listAP"_s, index)) << index;
  EXPECT_FALSE(menus().choose(u"menu_option"_s, 2));
  EXPECT_TRUE(menus().choose(u"menu_option"_s, 1));
  for (const int index : {4, 18, -1})
    EXPECT_FALSE(menus().button(index)) << index;
}

TEST_F(MenusTest, AnAirportOfTheListShowsItsSequence) {
  struct Case {
    bool stopsCycle;
    bool watching;
  };
  for (const Case& c : {Case{false, true}, Case{false, false}, Case{true, true}}) {
    run.program.settings().store(key::マニュアル入力時停止, c.stopsCycle);
    run.program.console.setPanel(2, u"before"_s);
    run.program.runMemory.group = u"NORTH"_s;
    run.program.runMemory.automatic = true;
    run.terminal.cycle().enableWatch(c.watching);
    bool watchedDuringRun = false;
    run.onRequest = [&](const QString&) { watchedDuringRun |= run.terminal.cycle().watchEnabled(); };
    run.program.settings().store(key::シーケンス表示, false);
    run.program.watchTicks = 5;
    run.logged();
    ASSERT_TRUE(menus().choose(u"menu_listAP"_s, 2));
    const QString terminated = c.stopsCycle ? u"AUTO DECODE SEQUENCE TERMINATED|"_s : QString();
    EXPECT_EQ(joined(run.logged()), terminated + u"RJAA MANUAL DECODE" +
                                        (run.screen().contains(u"*** RJAA") ? u"|CALL SEQUENCE RJAA" : u""));
    EXPECT_TRUE(run.screen().endsWith(gapReady)) << run.screen().toStdString();
    EXPECT_EQ(run.panel2(), u"before"_s);
    EXPECT_FALSE(watchedDuringRun);
    EXPECT_TRUE(run.terminal.cycle().watchEnabled());
    EXPECT_TRUE(run.program.runMemory.group.isEmpty());
    EXPECT_FALSE(run.program.runMemory.automatic || run.program.console.sequencePending());
    EXPECT_EQ(run.program.watchTicks, 0);
  }
}

TEST_F(MenusTest, AGroupOfTheMenuRunsAndLeavesTheCycleByTheSetting) {
  const QString terminated = u"AUTO DECODE SEQUENCE TERMINATED"_s;
  for (const QString& name : {u"menu_company_data"_s, u"menu_popup_group_data"_s}) {
    for (const bool stops : {false, true}) {
      run.program.settings().store(key::マニュアル入力時停止, stops);
      run.terminal.cycle().enableWatch(stops);
      const int acts = run.program.userActs;
      run.logged();
      ASSERT_TRUE(menus().choose(name, 1));
      const QStringList log = run.logged();
      EXPECT_EQ(log.first(), u"GROUP TTAA DECODE SEQUENCE START"_s);
      EXPECT_EQ(log.count(terminated), stops ? 1 : 0);
      EXPECT_EQ(log.last() == terminated, stops);
      EXPECT_EQ(run.terminal.cycle().watchEnabled(), !stops);
      EXPECT_EQ(run.program.currentInput, u"RJTT RJAA"_s);
      EXPECT_TRUE(run.screen().contains(u"*** RJTT - RJAA COMPANY ROUTINE ROUTE"));
      EXPECT_TRUE(run.screen().endsWith(gapReady));
      EXPECT_GT(run.program.userActs, acts); // a pass that is under way will not announce
    }
  }
}

TEST_F(MenusTest, ReloadRepeatsTheGroupWithItsHeading) {
  menus().choose(u"menu_company_data"_s, 2);
  // A start of the automatic decode that was declined leaves the group.
  menus().button(17);
  run.asked();
  run.logged();
  run.program.watchTicks = 5;
  menus().button(5);
  EXPECT_EQ(run.asked(), (QStringList{u"M/RJAA"_s, u"T/RJAA"_s}));
  EXPECT_EQ(joined(run.logged()), u"DATA RELOAD COMMAND"_s);
  EXPECT_TRUE(run.screen().startsWith(u"*** NORTH - GROUP FORMAT")) << run.screen().toStdString();
  EXPECT_TRUE(run.screen().endsWith(gapReady));
  EXPECT_EQ(run.program.watchTicks, 0);
}

TEST_F(MenusTest, TheStartButtonRunsTheListBehindAYes) {
  storeAutoList(run.program.tables, {{u"RJTT"_s, u"東京"_s}});
  run.desk.dialogs.answers = {true};
  run.program.runMemory.group = u"NORTH"_s;
  ASSERT_TRUE(menus().button(17));
  const QStringList log = run.logged();
  EXPECT_EQ(log.mid(0, 2), (QStringList{u"SYSTEM INITIALIZED"_s, u"AUTO DECODE SEQUENCE START"_s}));
  EXPECT_TRUE(run.screen().startsWith(u"*** AUTO DECODE"));
  EXPECT_TRUE(run.screen().endsWith(gapReady));
  EXPECT_TRUE(run.terminal.cycle().watchEnabled());
  EXPECT_EQ(run.program.settings()[key::自動デコード有効], true);
}

TEST_F(MenusTest, APrinterThatWentMeanwhileIsTold) {
  run.desk.printers.names.clear();
  EXPECT_TRUE(menus().choose(u"menu_print"_s));
  EXPECT_TRUE(run.desk.takeSeen().dialogs.isEmpty());
  EXPECT_TRUE(menus().chooseShown(u"menu_print"_s));
  EXPECT_EQ(joined(textsOf(run.desk.takeSeen().dialogs)), u"利用可能なプリンターがありません　　"_s);
  EXPECT_EQ(joined(run.logged()), QString());
}

TEST_F(MenusTest, TheListKeepsItsAirportsAndTheGroupsFollowTheirTable) {
  storeAirports(run.program.tables, {});
  storeGroups(run.program.tables, {{u"NEW"_s, u"RJTT"_s}});
  EXPECT_EQ(item(u"menu_listAP"_s, 2)->caption, u"RJAA  成田"_s);
  EXPECT_EQ(item(u"menu_company_data"_s, 1)->caption, u"NEW"_s);
  EXPECT_FALSE(item(u"menu_popup_group_data"_s, 2));
  EXPECT_TRUE(enabled(u"menu_list"_s));
  EXPECT_TRUE(menus().choose(u"menu_company_data"_s)); // one alone needs no index
  // The first row of an emptied menu is hidden rather than missing.
  storeGroups(run.program.tables, {});
  EXPECT_TRUE(menus().choose(u"menu_company_data"_s, 1));
  EXPECT_FALSE(menus().choose(u"menu_company_data"_s, 2));
}
