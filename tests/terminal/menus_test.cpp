// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/menus.h"

#include "terminal/harness.h"

#include <algorithm>

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

const QString weather = u"240500Z 33010KT 9999 FEW020 10/02 Q1020"_s;
const QString gapReady = ready + crlf;
const QString echo = crlf + ready;

class MenusTest : public ::testing::Test {
 protected:
  MenusTest() {
    world.prepare([](Tables& tables) {
      storeAirports(tables, {{u"RJTT"_s, u"東京"_s}, {u"RJAA"_s, u"成田"_s}});
      storeGroups(tables, {{u"TTAA"_s, u"RJTT RJAA"_s}, {u"NORTH"_s, u"RJAA"_s}});
      tables.settings().store(key::自動デコード有効, false);
      tables.settings().store(key::印刷時ダイアログ, false);
    });
    run.program.services.endpoints.others = {{u"yahoo"_s, u"http://yahoo"_s}, {u"ais"_s, u"http://ais"_s}};
    for (const QString& code : {u"RJTT"_s, u"RJAA"_s})
      world.report(code, u"05:00"_s, weather);
    started = run.begin();
    run.desk.printers = {u"OFFICE"_s};
  }
  Menus& menus() { return run.view.menus(); }
  std::optional<MenuItem> item(const QString& name, int index = 0) {
    for (const MenuItem& each : menus().items()) {
      if (each.name == name && each.index == index)
        return each;
    }
    return std::nullopt;
  }
  bool enabled(const QString& name) {
    const auto found = item(name);
    return found && found->visible && found->enabled;
  }
  bool buttonWorks(int index) {
    for (const ToolButton& each : menus().buttons()) {
      if (each.index == index)
        return each.visible && each.enabled;
    }
    return false;
  }

  World world;
  ProgramRun run{world};
  bool started = false;
};

/// What an entry shows and writes, each list in order, joined with blanks or bars.
struct Effect {
  const char* entry; ///< a menu, or a button by its number
  QString log;
  QString shown;
  QString forms;
  QString pages;
  QString texts; ///< of the dialogues
};

QString joined(const QStringList& list) {
  return list.join(u'|');
}

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
      {"menu_airport", u"DISPLAY AIRPORT LIST"_s, echo, u"airport"_s, {}, {}},
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
    const Headless::Seen seen = run.desk.takeSeen();
    EXPECT_EQ(joined(run.logged()), effect.log);
    EXPECT_EQ(run.shown(), effect.shown);
    EXPECT_EQ(joined(textsOf(seen.forms)), effect.forms);
    EXPECT_EQ(joined(textsOf(seen.pages)), effect.pages);
    EXPECT_EQ(joined(textsOf(seen.dialogs)), effect.texts);
    run.view.pane().close();
  }
  EXPECT_EQ(run.view.openForms(), (QStringList{u"chart"_s, u"camera"_s, u"command"_s, u"log"_s}));
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
    run.program.console.flags.groupMode = run.program.console.flags.autoMode = true;
    run.view.cycle().enableWatch(c.watching);
    bool watchedDuringRun = false;
    run.onRequest = [&](const QString&) { watchedDuringRun |= run.view.cycle().watchEnabled(); };
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
    EXPECT_TRUE(run.view.cycle().watchEnabled());
    EXPECT_FALSE(run.program.console.flags.groupMode || run.program.console.flags.autoMode ||
                 run.program.console.flags.sequenceRequested);
    EXPECT_EQ(run.program.watchTicks, 0);
  }
}

TEST_F(MenusTest, AGroupOfTheMenuRunsAndLeavesTheCycleByTheSetting) {
  const QString terminated = u"AUTO DECODE SEQUENCE TERMINATED"_s;
  for (const QString& name : {u"menu_company_data"_s, u"menu_popup_group_data"_s}) {
    for (const bool stops : {false, true}) {
      run.program.settings().store(key::マニュアル入力時停止, stops);
      run.view.cycle().enableWatch(stops);
      run.program.console.flags.changeRun = true;
      run.logged();
      ASSERT_TRUE(menus().choose(name, 1));
      const QStringList log = run.logged();
      EXPECT_EQ(log.first(), u"GROUP TTAA DECODE SEQUENCE START"_s);
      EXPECT_EQ(log.count(terminated), stops ? 1 : 0);
      EXPECT_EQ(log.last() == terminated, stops);
      EXPECT_EQ(run.view.cycle().watchEnabled(), !stops);
      EXPECT_EQ(run.program.currentInput, u"RJTT RJAA"_s);
      EXPECT_TRUE(run.screen().contains(u"*** RJTT - RJAA COMPANY ROUTINE ROUTE"));
      EXPECT_TRUE(run.screen().endsWith(gapReady));
      EXPECT_FALSE(run.program.console.flags.changeRun);
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
  run.desk.answers = {true};
  run.program.console.flags.groupMode = true;
  ASSERT_TRUE(menus().button(17));
  const QStringList log = run.logged();
  EXPECT_EQ(log.mid(0, 2), (QStringList{u"SYSTEM INITIALIZED"_s, u"AUTO DECODE SEQUENCE START"_s}));
  EXPECT_TRUE(run.screen().startsWith(u"*** AUTO DECODE"));
  EXPECT_TRUE(run.screen().endsWith(gapReady));
  EXPECT_TRUE(run.view.cycle().watchEnabled());
  EXPECT_EQ(run.program.settings()[key::自動デコード有効], true);
}

TEST_F(MenusTest, EachEntryDependsOnItsConditions) {
  struct Case {
    const char* what;
    std::function<void(bool)> hold;
    QStringList entries;
    QList<int> buttons;
  };
  const Case cases[] = {
      {"network",
       [this](bool holds) { run.program.networkAvailable = holds; },
       {u"menu_list"_s, u"menu_company"_s, u"menu_company_edit"_s, u"menu_chart"_s, u"menu_camera"_s,
        u"menu_update"_s, u"menu_info_help"_s, u"menu_info_homepage"_s, u"menu_popup_group"_s,
        u"menu_popup_wx"_s, u"menu_popup_cam"_s, u"menu_popup_help"_s, u"menu_popup_homepage"_s},
       {17}},
      {"printer",
       [this](bool holds) { run.desk.printers = holds ? QStringList{u"OFFICE"_s} : QStringList(); },
       {u"menu_print"_s, u"menu_popup_print"_s},
       {}},
      {"pane",
       [this](bool holds) { holds ? run.view.pane().close() : run.view.pane().openPage(u"http://x"_s); },
       {u"menu_print"_s, u"menu_save"_s, u"menu_export"_s, u"menu_import"_s, u"menu_list"_s,
        u"menu_company"_s, u"menu_company_edit"_s, u"menu_info_weather"_s, u"menu_airport"_s,
        u"menu_autodecode"_s, u"menu_option"_s, u"menu_update"_s, u"menu_command"_s, u"menu_info_log"_s},
       {1, 11}},
      {"groups",
       [this](bool holds) {
         storeGroups(run.program.tables,
                     holds ? std::vector<EditedRow>{{u"A"_s, u"RJTT"_s}} : std::vector<EditedRow>{});
       },
       {u"menu_popup_group"_s},
       {}},
      {"popup", [this](bool holds) { run.program.settings().store(key::ポップアップ, holds); }, {}, {}},
      {"browser",
       [this](bool holds) { run.program.settings().store(key::ブラウザー, holds); },
       {},
       {12, 13, 14}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    QStringList lost;
    QList<int> lostButtons;
    for (const MenuItem& each : menus().items()) {
      if (each.index == 0 && !each.isSeparator() && each.visible && each.enabled)
        lost.append(each.name);
    }
    for (const ToolButton& each : menus().buttons()) {
      if (each.visible && each.enabled)
        lostButtons.append(each.index);
    }
    c.hold(false);
    lost.removeIf([this](const QString& name) { return enabled(name); });
    lostButtons.removeIf([this](int index) { return buttonWorks(index); });
    if (qstrcmp(c.what, "popup") == 0)
      EXPECT_TRUE(std::ranges::all_of(lost, [](const QString& n) { return n.startsWith(u"menu_popup"); }) &&
                  lost.contains(u"menu_popup_exit"_s));
    else
      EXPECT_EQ(lost, c.entries);
    EXPECT_TRUE(std::ranges::equal(lostButtons, c.buttons)); // Qt's own comparison trips over two empty lists

    // What is disabled or hidden exists, and does nothing.
    for (const QString& name : lost)
      EXPECT_TRUE(menus().choose(name));
    for (const int index : lostButtons)
      EXPECT_TRUE(menus().button(index));
    EXPECT_EQ(joined(run.logged()), QString());
    c.hold(true);
  }
}

TEST_F(MenusTest, PagesAndReloadTellThatThereIsNoNetwork) {
  run.program.networkAvailable = false;
  for (const int index : {12, 13, 14, 5}) {
    EXPECT_TRUE(menus().button(index));
    const Headless::Seen seen = run.desk.takeSeen();
    EXPECT_EQ(joined(textsOf(seen.dialogs)), u"インターネットに接続できません　　"_s);
    EXPECT_TRUE(seen.pages.isEmpty());
    EXPECT_EQ(joined(run.logged()), index == 5 ? u"SYSTEM NO NETWORK CONNECTION"_s : QString());
  }
  menus().choose(u"menu_yahoo"_s);
  menus().choose(u"menu_autodecode"_s);
  EXPECT_EQ(run.desk.takeSeen().dialogs.size(), 2);
  EXPECT_EQ(run.shown(), QString());
}

TEST_F(MenusTest, APrinterThatWentMeanwhileIsTold) {
  run.desk.printers.clear();
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

TEST_F(MenusTest, LeavingClosesThePaneFirst) {
  struct Case {
    QString menu;
    int button;
  };
  for (const Case& c : {Case{u"menu_exit"_s, 0}, Case{u"menu_popup_exit"_s, 0}, Case{QString(), 0}}) {
    run.program.console.setPanel(2, u"before"_s);
    run.view.pane().openPage(u"http://x"_s);
    run.view.pane().pageState(BrowserPane::Loading::Completed);
    EXPECT_EQ(item(u"menu_exit"_s)->caption, u"ブラウザーを閉じる"_s);
    EXPECT_EQ(menus().buttons().front().hover, u" ブラウザーを閉じる "_s);
    EXPECT_TRUE(c.menu.isEmpty() ? menus().button(c.button) : menus().choose(c.menu));
    EXPECT_FALSE(run.view.pane().visible() || run.view.ended());
    EXPECT_EQ(run.panel2(), u"before"_s);
    EXPECT_EQ(item(u"menu_exit"_s)->caption, u"SORAN を終了"_s);
  }
  run.view.pane().openPage(u"http://x"_s, BrowserPane::MenuRule::LeftAlone);
  EXPECT_TRUE(enabled(u"menu_option"_s));
  EXPECT_FALSE(buttonWorks(1));
  EXPECT_TRUE(menus().button(15));
  EXPECT_FALSE(run.view.pane().visible());
  menus().choose(u"menu_exit"_s);
  EXPECT_TRUE(run.view.ended());
  EXPECT_TRUE(menus().button(6)); // nothing happens any more
  EXPECT_NE(run.logged().value(0), u"CLS COMMAND"_s);
}

TEST_F(MenusTest, LeavingForTheDownloadEndsTheProgram) {
  run.desk.onForm = [this](const QString& name) {
    if (name == u"adobeinfo")
      run.view.answerAdobeNotice({.dontShowAgain = false, .banner = true});
  };
  run.type(u"WX"_s);
  EXPECT_TRUE(run.view.ended());
  const Headless::Seen seen = run.desk.takeSeen();
  EXPECT_EQ(joined(textsOf(seen.forms)), u"adobeinfo"_s);
  EXPECT_EQ(joined(textsOf(seen.pages)), adobe_notice::downloadPage.toString());
  EXPECT_EQ(joined(run.logged()), u"DISPLAY ADOBE PDF INFORMATION|SYSTEM UNLOAD"_s);
}

TEST_F(MenusTest, TheNoticeStaysAwayOnceItWasPutAway) {
  run.view.answerAdobeNotice({.dontShowAgain = true, .banner = false});
  run.type(u"WX"_s);
  EXPECT_EQ(joined(textsOf(run.desk.takeSeen().forms)), u"chart"_s);
}

TEST_F(MenusTest, FormsGoAndComeWithTheWindow) {
  for (const QString& name :
       {u"menu_info_log"_s, u"menu_command"_s, u"menu_info_version"_s, u"menu_camera"_s})
    menus().choose(name);
  run.view.formClosed(u"camera"_s);
  run.desk.takeSeen();
  run.view.setMinimised(true);
  EXPECT_EQ(joined(textsOf(run.desk.takeSeen().forms)), u"taskicon"_s);
  run.view.setMinimised(false);
  EXPECT_EQ(joined(textsOf(run.desk.takeSeen().forms)), u"log|command"_s);
}

TEST_F(MenusTest, TypedCommandsOpenTheSameForms) {
  struct Case {
    const char* line;
    QString log;
    QString shown;
    QString form;
    QString left; ///< what stays in the typed line
  };
  const Case cases[] = {
      {"ap", u"DISPLAY AIRPORT LIST"_s, echo, u"airport"_s, {}},
      {"DE", u"DISPLAY AUTO DECODE LIST"_s, echo, u"decodelist"_s, {}},
      {"GP", u"DISPLAY GROUP LIST"_s, echo, u"company"_s, {}},
      {"CAM", u"DISPLAY NETWORK CAMERA"_s, echo, u"camera"_s, {}},
      {"SS RJTT ZZZZ",
       u"SUNRISE/SUNSET CALCULATION COMMAND"_s,
       crlf + crlf + u"RJTT  SUNRISE 06:24  SUNSET 16:30   ELV 21  ⊿H -6" + crlf +
           u"ZZZZ  NOT FOUND POSITION DATA" + crlf + ready,
       {},
       {}},
      {"SS RJT",
       u"SUNRISE/SUNSET CALCULATION COMMAND|SYNTAX ERROR"_s,
       crlf + u"SYNTAX ERROR" + crlf + ready,
       {},
       {}},
      {"JAPANESE", {}, {}, u"weather"_s, u"JAPANESE"_s},
  };
  run.program.settings().store(key::マニュアル入力時停止, false);
  for (const Case& c : cases) {
    SCOPED_TRACE(c.line);
    run.type(QString::fromUtf8(c.line));
    EXPECT_EQ(joined(run.logged()), c.log);
    EXPECT_EQ(run.shown(), c.shown);
    EXPECT_EQ(joined(textsOf(run.desk.takeSeen().forms)), c.form);
    EXPECT_EQ(run.program.console.inputlbl(), c.left);
    EXPECT_EQ(run.program.console.padlbl(), QString());
  }
  EXPECT_TRUE(run.program.console.recentCodes.contains(u" RJTT ZZZZ "));
  EXPECT_TRUE(run.program.inputHistory.contains(u" RJTT ZZZZ "));
}

TEST_F(MenusTest, TheDictionaryFormOpensForTheTableAskedFor) {
  QList<DictionaryMode> modes;
  run.desk.onForm = [&](const QString&) { modes.append(run.view.dictionaryMode()); };
  run.type(u"JAPANESE"_s);
  run.keys(u"\b\b\b\b\b\b\b\bPICTURE\r"_s);
  menus().choose(u"menu_info_weather"_s);
  EXPECT_EQ(modes, (QList{DictionaryMode::Phrases, DictionaryMode::Pictures, DictionaryMode::Abbreviations}));
}

TEST_F(MenusTest, OpeningAnEditorHoldsTheWatchOff) {
  for (const QString& name : {u"menu_airport"_s, u"menu_autodecode"_s, u"menu_option"_s,
                              u"menu_company_edit"_s, u"menu_info_weather"_s, u"menu_chart"_s}) {
    run.program.watchTicks = 9;
    menus().choose(name);
    EXPECT_EQ(run.program.watchTicks, 0) << name.toStdString();
  }
  for (const bool stops : {false, true}) {
    run.program.settings().store(key::マニュアル入力時停止, stops);
    run.view.cycle().enableWatch(true);
    menus().choose(u"menu_airport"_s);
    EXPECT_EQ(run.view.cycle().watchEnabled(), !stops);
  }
}
