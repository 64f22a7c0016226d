// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/actions.h"

#include "base/text.h"
#include "terminal/terminal.h"

namespace soran::action {

using namespace Qt::StringLiterals;

namespace {

/// Its prompts differ.
enum class AskedBy { Command, Button };

void startAutomatic(Terminal& terminal, AskedBy by) {
  Program& program = terminal.program();
  Console& console = program.console;
  Settings& settings = program.settings();
  console.setPromptGap(by == AskedBy::Button);
  if (program.tables.autoList().recordCount() == 0) {
    console.appendScreen(crlf + u"NO AIRPORT FOUND IN AUTO DECODE LIST" + crlf);
    console.showReady();
    console.addLogEntry(u"NO AIRPORT FOUND IN AUTO DECODE LIST"_s);
    return;
  }
  if (settings[key::自動デコード有効] == false) {
    console.appendScreen(crlf + u"AUTO DECODE SEQUENCE DISABLED" + crlf);
    console.showReady();
    const bool yes = program.services.dialogs.question(
        u" 確認"_s, u"自動デコードが無効になっています　　\r\r有効にしますか？"_s);
    program.services.shutdown.check();
    if (!yes)
      return;
    console.addLogEntry(u"SYSTEM INITIALIZED"_s);
    console.screen().setText(u"SYSTEM INITIALIZED"_s);
    console.caretToEnd();
    console.setPanel(2, u"システム初期化中"_s);
    settings.store(key::自動デコード有効, true);
    console.setPromptGap(by == AskedBy::Button);
  }
  terminal.cycle().startAutomatic();
}

} // namespace

void startAutomatic(Terminal& terminal) {
  startAutomatic(terminal, AskedBy::Command);
}

void startAutomaticByButton(Terminal& terminal) {
  startAutomatic(terminal, AskedBy::Button);
}

void stopAutomatic(Terminal& terminal) {
  terminal.cycle().enableWatch(false);
  terminal.program().showAutoDecodeStopped();
  terminal.program().console.addLogEntry(u"AUTO DECODE SEQUENCE TERMINATED"_s);
}

void startAirport(Terminal& terminal, const QString& caption) {
  Program& program = terminal.program();
  const QString code = mid1(caption, 1, 4).toString();
  program.console.status().savePanel2();
  terminal.cycle().stopAutoOnManual();
  program.console.addLogEntry(code + u" MANUAL DECODE");
  program.console.setPromptGap(true);
  program.watchTicks = 0;
  terminal.cycle().enableWatch(false);
  terminal.cycle().run({.kind = RunKind::Sequence, .codes = code, .fullLoad = true});
  terminal.cycle().enableWatch(true);
}

void startGroup(Terminal& terminal, const QString& caption) {
  Program& program = terminal.program();
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
  terminal.cycle().enableWatch(false);
  terminal.cycle().run(
      {.kind = RunKind::Group, .codes = codes, .group = program.console.groupName, .fullLoad = true});
  if (program.settings()[key::マニュアル入力時停止] == false)
    terminal.cycle().enableWatch(true);
  else
    terminal.cycle().stopAutoOnManual();
}

void reloadByButton(Terminal& terminal) {
  Program& program = terminal.program();
  if (!program.networkAvailable) {
    noInternetAlert(terminal);
    program.console.addLogEntry(u"SYSTEM NO NETWORK CONNECTION"_s);
  } else if (program.currentInput.isEmpty()) {
    program.console.addLogEntry(u"SYNTAX ERROR"_s);
    program.console.appendScreen(crlf + u"INPUT AIRPORT" + crlf);
    buttonPrompt(terminal);
  } else {
    program.console.setPromptGap(true);
    program.watchTicks = 0;
    terminal.cycle().runAgain(RunOrigin::Button);
    program.console.addLogEntry(u"DATA RELOAD COMMAND"_s);
  }
}

} // namespace soran::action
