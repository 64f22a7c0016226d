// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/actions.h"

#include "base/text.h"
#include "reports/explain_selection.h"
#include "terminal/picture_lookup.h"
#include "terminal/terminal.h"

namespace soran::action {

using namespace Qt::StringLiterals;

namespace {

/// Turns a setting of the display over and shows the effect; `off` and `on` are the log lines.
template <class Key>
void toggle(Terminal& terminal, Key key, const QString& off, const QString& on) {
  Program& program = terminal.program();
  const bool wasOn = program.settings()[key] == true;
  program.settings().store(key, !wasOn);
  program.console.addLogEntry(wasOn ? off : on);
  program.console.applyDisplaySettings();
  // In the colours that it had.
  program.console.repaint();
  buttonPrompt(terminal);
}

} // namespace

void noInternetAlert(Terminal& terminal) {
  const Services& services = terminal.program().services;
  services.dialogs.message(u" 確認"_s, u"インターネットに接続できません　　"_s);
  services.shutdown.check();
}

void echoPrompt(Terminal& terminal) {
  Console& console = terminal.program().console;
  console.appendScreen(crlf.toString());
  console.showReady();
  console.colourScreenText();
}

void buttonPrompt(Terminal& terminal) {
  terminal.program().console.setPromptGap(true);
  terminal.program().console.showReady();
}

void clearScreen(Terminal& terminal) {
  Console& console = terminal.program().console;
  console.screen().setText(u" "_s);
  console.staging.clear();
  console.showReady();
  console.addLogEntry(u"CLS COMMAND"_s);
}

void clearScreenByButton(Terminal& terminal) {
  terminal.program().console.setPromptGap(true);
  clearScreen(terminal);
}

void toggleScrollBar(Terminal& terminal) {
  toggle(terminal, key::スクロールバーを表示, u"ERASE SCROLL BAR COMMAND"_s, u"SHOW SCROLL BAR COMMAND"_s);
}

void toggleBold(Terminal& terminal) {
  toggle(terminal, key::表示文字のボールド, u"RELEASE TEXT BOLD COMMAND"_s, u"TEXT BOLD COMMAND"_s);
}

void save(Terminal& terminal) {
  terminal.printing().saveScreen();
}

void printFromMenu(Terminal& terminal) {
  Program& program = terminal.program();
  if (program.services.printers.installed().isEmpty()) {
    program.services.dialogs.message(u" 情報"_s, u"利用可能なプリンターがありません　　"_s);
    return;
  }
  terminal.printing().printScreen();
  program.console.showReady();
  program.console.appendScreen(crlf.toString());
  program.console.colourScreenText();
}

void printByButton(Terminal& terminal) {
  terminal.printing().printScreen();
  buttonPrompt(terminal);
}

QString explainSelection(Terminal& terminal, qsizetype start, qsizetype length) {
  Program& program = terminal.program();
  const std::optional<Explanation> tip =
      ExplainSelection(program.console.screen().text(), start, length, program.services.clock.now().date(),
                       program.record(), program.dictionaries());
  if (!tip || tip->text.isEmpty())
    return {};
  program.services.forms.show(form::Tip{tip->text});
  showPictureOf(program, tip->picture);
  return tip->text;
}

void checkForUpdate(Terminal& terminal) {
  terminal.program().console.addLogEntry(u"SYSTEM UPDATE COMMAND"_s);
  terminal.versionCheck().onDemand();
}

void leave(Terminal& terminal) {
  terminal.closeBox();
}

} // namespace soran::action
