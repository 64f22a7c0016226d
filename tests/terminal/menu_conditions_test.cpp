// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "imagery/adobe_notice.h"
#include "terminal/menus_fixture.h"

#include <algorithm>

using namespace soran;

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
       [this](bool holds) { run.desk.printers.names = holds ? QStringList{u"OFFICE"_s} : QStringList(); },
       {u"menu_print"_s, u"menu_popup_print"_s},
       {}},
      {"pane",
       [this](bool holds) {
         holds ? run.terminal.pane().close() : run.terminal.pane().openPage(u"http://x"_s);
       },
       {u"menu_print"_s, u"menu_save"_s, u"menu_export"_s, u"menu_import"_s, u"menu_list"_s,
        u"menu_company"_s, u"menu_company_edit"_s, u"menu_info_weather"_s, u"menu_board"_s, u"menu_map"_s,
        u"menu_graph"_s, u"menu_limits"_s, u"menu_airport"_s, u"menu_autodecode"_s, u"menu_option"_s,
        u"menu_update"_s, u"menu_command"_s, u"menu_info_log"_s},
       {1, 11, 40}},
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
    const Desk::Seen seen = run.desk.takeSeen();
    EXPECT_EQ(joined(textsOf(seen.dialogs)), u"インターネットに接続できません　　"_s);
    EXPECT_TRUE(seen.pages.isEmpty());
    EXPECT_EQ(joined(run.logged()), index == 5 ? u"SYSTEM NO NETWORK CONNECTION"_s : QString());
  }
  menus().choose(u"menu_yahoo"_s);
  menus().choose(u"menu_autodecode"_s);
  EXPECT_EQ(run.desk.takeSeen().dialogs.size(), 2);
  EXPECT_EQ(run.shown(), QString());
}

TEST_F(MenusTest, LeavingClosesThePaneFirst) {
  struct Case {
    QString menu;
    int button;
  };
  for (const Case& c : {Case{u"menu_exit"_s, 0}, Case{u"menu_popup_exit"_s, 0}, Case{QString(), 0}}) {
    run.program.console.setPanel(2, u"before"_s);
    run.terminal.pane().openPage(u"http://x"_s);
    run.terminal.pane().pageState(BrowserPane::Loading::Completed);
    EXPECT_EQ(item(u"menu_exit"_s)->caption, u"ブラウザーを閉じる"_s);
    EXPECT_EQ(menus().buttons().front().hover, u" ブラウザーを閉じる "_s);
    EXPECT_TRUE(c.menu.isEmpty() ? menus().button(c.button) : menus().choose(c.menu));
    EXPECT_FALSE(run.terminal.pane().visible() || run.terminal.ended());
    EXPECT_EQ(run.panel2(), u"before"_s);
    EXPECT_EQ(item(u"menu_exit"_s)->caption, u"SORAN を終了"_s);
  }
  run.terminal.pane().openPage(u"http://x"_s, BrowserPane::MenuRule::LeftAlone);
  EXPECT_TRUE(enabled(u"menu_option"_s));
  EXPECT_FALSE(buttonWorks(1));
  EXPECT_TRUE(menus().button(15));
  EXPECT_FALSE(run.terminal.pane().visible());
  menus().choose(u"menu_exit"_s);
  EXPECT_TRUE(run.terminal.ended());
  EXPECT_TRUE(menus().button(6)); // nothing happens any more
  EXPECT_NE(run.logged().value(0), u"CLS COMMAND"_s);
}

TEST_F(MenusTest, LeavingForTheDownloadEndsTheProgram) {
  run.desk.forms.onModal = [](const ModalForm&) {
    return ModalOutcome(form::PdfNotice::Outcome{.dontShowAgain = false, .banner = true});
  };
  run.type(u"WX"_s);
  EXPECT_TRUE(run.terminal.ended());
  const Desk::Seen seen = run.desk.takeSeen();
  EXPECT_EQ(joined(seen.forms), u"adobeinfo"_s);
  EXPECT_EQ(joined(seen.pages), adobe_notice::downloadPage.toString());
  EXPECT_EQ(joined(run.logged()), u"DISPLAY ADOBE PDF INFORMATION|SYSTEM UNLOAD"_s);
}

TEST_F(MenusTest, TheNoticeStaysAwayOnceItWasPutAway) {
  run.desk.forms.onModal = [](const ModalForm&) {
    return ModalOutcome(form::PdfNotice::Outcome{.dontShowAgain = true, .banner = false});
  };
  run.type(u"WX"_s);
  EXPECT_EQ(joined(run.desk.takeSeen().forms), u"adobeinfo|chart"_s);
  EXPECT_EQ(run.program.settings()[key::アドビインフォメーション], true);
  run.type(u"WX"_s);
  EXPECT_EQ(joined(run.desk.takeSeen().forms), u"chart"_s);
}

TEST_F(MenusTest, FormsGoAndComeWithTheWindow) {
  for (const QString& name :
       {u"menu_info_log"_s, u"menu_command"_s, u"menu_info_version"_s, u"menu_camera"_s})
    menus().choose(name);
  run.terminal.forms().closed(form::Cameras{});
  run.desk.takeSeen();
  run.terminal.forms().setMinimised(true);
  EXPECT_EQ(joined(run.desk.takeSeen().forms), u"taskicon"_s);
  run.terminal.forms().setMinimised(false);
  EXPECT_EQ(joined(run.desk.takeSeen().forms), u"log|command"_s);
}

TEST_F(MenusTest, TheDictionaryFormOpensForTheTableAskedFor) {
  QList<DictionaryMode> modes;
  run.desk.forms.onModal = [&](const ModalForm& shown) {
    modes.append(std::get<form::EditDictionary>(shown).mode);
    return ModalOutcome();
  };
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
}
