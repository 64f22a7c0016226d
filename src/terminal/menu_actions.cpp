// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/menu_actions.h"

#include "base/text.h"
#include "imagery/sources.h"
#include "terminal/shared_actions.h"
#include "terminal/view.h"

namespace soran {

using namespace Qt::StringLiterals;

namespace {

/// Opens a page in its own right: without network the user is told, and nothing else happens.
void openPage(View& view, const QString& logLine, const QString& address) {
  if (!view.program().networkAvailable) {
    view.noInternetAlert();
    return;
  }
  view.program().console.addLogEntry(logLine);
  view.pane().openPage(address);
}

/// A prompt of the toolbar.
void buttonPrompt(View& view) {
  view.program().console.setPromptGap(true);
  view.program().console.showReady();
}

/// Turns a setting of the display over and shows the effect; `off` and `on` are the log lines.
template <class Key>
void toggle(View& view, Key key, const QString& off, const QString& on) {
  Program& program = view.program();
  const bool wasOn = program.settings()[key] == true;
  program.settings().store(key, !wasOn);
  program.console.addLogEntry(wasOn ? off : on);
  program.console.applyDisplaySettings();
  buttonPrompt(view);
}

} // namespace

namespace action {

void leave(View& view) {
  view.closeBox();
}

void save(View& view) {
  view.printing().saveScreen();
}

void printFromMenu(View& view) {
  Program& program = view.program();
  if (program.services.printers.installed().isEmpty()) {
    program.services.dialogs.message(u" 情報"_s, u"利用可能なプリンターがありません　　"_s);
    return;
  }
  view.printing().printScreen();
  program.console.showReady();
  program.console.appendScreen(crlf.toString());
  program.console.colourScreenText();
}

void printByButton(View& view) {
  view.printing().printScreen();
  buttonPrompt(view);
}

void startAirport(View& view, const QString& caption) {
  Program& program = view.program();
  const QString code = mid1(caption, 1, 4).toString();
  program.console.status().savePanel2();
  view.cycle().stopAutoOnManual();
  program.console.addLogEntry(code + u" MANUAL DECODE");
  program.console.setPromptGap(true);
  program.watchTicks = 0;
  view.cycle().enableWatch(false);
  view.cycle().run({.kind = RunKind::Sequence, .codes = code, .fullLoad = true});
  view.cycle().enableWatch(true);
}

void startGroup(View& view, const QString& caption) {
  Program& program = view.program();
  QString codes = program.currentInput;
  for (const Group& group : program.tables.groupRows()) {
    if (group.id == caption) {
      codes = group.route;
      program.console.groupName = caption;
      break;
    }
  }
  program.console.setPromptGap(true);
  ++program.userActs;
  program.watchTicks = 0;
  view.cycle().enableWatch(false);
  view.cycle().run(
      {.kind = RunKind::Group, .codes = codes, .group = program.console.groupName, .fullLoad = true});
  if (program.settings()[key::マニュアル入力時停止] == false)
    view.cycle().enableWatch(true);
  else
    view.cycle().stopAutoOnManual();
}

void editGroups(View& view) {
  view.program().console.addLogEntry(u"DISPLAY GROUP LIST"_s);
  view.showModal(form::EditGroups{});
}

void decodeList(View& view) {
  if (view.program().networkAvailable)
    openDecodeList(view);
  else
    view.noInternetAlert();
}

void abbreviations(View& view) {
  view.editDictionary(DictionaryMode::Abbreviations);
}

void settings(View& view) {
  view.program().console.addLogEntry(u"DISPLAY SYSTEM SETUP MENU"_s);
  view.editSettings();
}

void yahoo(View& view) {
  const QString host = view.program().services.endpoints.others.value(u"yahoo"_s);
  openPage(view, u"DISPLAY Yahoo! WEATHER"_s, host + findImagerySource(u"yahoo")->path);
}

void homePage(View& view) {
  openPage(view, u"DISPLAY SORAN HOMEPAGE"_s, view.homePage());
}

void helpByButton(View& view) {
  openPage(view, u"DISPLAY ONLINE HELP"_s, view.helpPage());
}

void ais(View& view) {
  view.showAis();
}

void sunTimes(View& view) {
  view.program().console.addLogEntry(u"DISPLAY SUNRISE/SUNSET GRAPH"_s);
  view.showForm(form::SunTimes{});
}

void commandList(View& view) {
  view.program().console.addLogEntry(u"DISPLAY COMMAND LIST"_s);
  view.showForm(form::Commands{});
}

void version(View& view) {
  view.program().console.addLogEntry(u"DISPLAY SYSTEM VERSION INFORMATION"_s);
  view.showForm(form::Version{});
}

void components(View& view) {
  view.program().console.addLogEntry(u"DISPLAY SYSTEM COMPORNENTS INFORMATION"_s);
  view.showForm(form::Components{});
}

void checkForUpdate(View& view) {
  view.program().console.addLogEntry(u"SYSTEM UPDATE COMMAND"_s);
  view.checkForNewVersion();
}

void stopAutomatic(View& view) {
  view.cycle().enableWatch(false);
  view.program().showAutoDecodeStopped();
  view.program().console.addLogEntry(u"AUTO DECODE SEQUENCE TERMINATED"_s);
}

void startAutomatic(View& view) {
  view.startAutomaticDecode(View::Start::ByButton);
}

void reload(View& view) {
  Program& program = view.program();
  if (!program.networkAvailable) {
    view.noInternetAlert();
    program.console.addLogEntry(u"SYSTEM NO NETWORK CONNECTION"_s);
  } else if (program.currentInput.isEmpty()) {
    program.console.addLogEntry(u"SYNTAX ERROR"_s);
    program.console.appendScreen(crlf + u"INPUT AIRPORT" + crlf);
    buttonPrompt(view);
  } else {
    program.console.setPromptGap(true);
    program.watchTicks = 0;
    view.cycle().runAgain(RunOrigin::Button);
    program.console.addLogEntry(u"DATA RELOAD COMMAND"_s);
  }
}

void clearScreen(View& view) {
  view.program().console.setPromptGap(true);
  view.clearScreen();
}

void toggleScrollBar(View& view) {
  toggle(view, key::スクロールバーを表示, u"ERASE SCROLL BAR COMMAND"_s, u"SHOW SCROLL BAR COMMAND"_s);
}

void toggleBold(View& view) {
  toggle(view, key::表示文字のボールド, u"RELEASE TEXT BOLD COMMAND"_s, u"TEXT BOLD COMMAND"_s);
}

void closePane(View& view) {
  view.pane().close();
}

void goBack(View& view) {
  view.program().services.pages.goBack();
}

} // namespace action

} // namespace soran
