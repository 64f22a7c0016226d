// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/command_line.h"

#include "base/text.h"
#include "sun/sun_command.h"
#include "terminal/picture_lookup.h"
#include "terminal/shared_actions.h"
#include "terminal/view.h"

#include <algorithm>
#include <span>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

/// A line on its way through the chain. The prefixes SQ and JP are cut off it as it passes.
struct Command {
  View& view;
  QString text;

  Program& program() const { return view.program(); }
  Console& console() const { return view.program().console; }
  void log(const QString& message) const { console().addLogEntry(message); }
  void emptyPad() const { console().setPad(QString()); }

  /// Appends, then writes the prompt and paints.
  void prompt(const QString& lines) const {
    console().appendScreen(lines);
    console().showReady();
    console().colourScreenText();
  }
};

/// A row takes a line or passes it on.
enum class Outcome { Taken, Passed };

struct Row {
  QStringView word; ///< the line as a whole; empty where the action tests it itself
  bool needsNetwork;
  Outcome (*act)(Command&);
};

Outcome update(Command& c) {
  // The comparison must see a difference.
  c.program().settings().storeValue(SettingIndex::SORANバージョン, 0);
  c.console().appendScreen(crlf + u"AUTO UPDATE READY" + crlf);
  c.console().showReady();
  c.view.checkForNewVersion();
  c.emptyPad();
  return Outcome::Taken;
}

/// A command that a menu has too.
template <void (*action)(View&)>
Outcome run(Command& c) {
  action(c.view);
  return Outcome::Taken;
}

template <DictionaryMode mode>
Outcome dictionary(Command& c) {
  c.emptyPad();
  c.view.editDictionary(mode);
  return Outcome::Taken;
}

Outcome syntaxError(Command& c) {
  c.console().appendScreen(crlf + u"SYNTAX ERROR" + crlf);
  c.log(u"SYNTAX ERROR"_s);
  c.console().showReady();
  c.console().colourScreenText();
  c.emptyPad();
  c.console().caretToEnd();
  return Outcome::Taken;
}

Outcome reset(Command& c) {
  c.console().appendScreen(crlf + crlf + u"DATABASE RESET SEQUENCE COMPLETED" + crlf);
  c.log(u"DATABASE RESET SEQUENCE"_s);
  c.console().showReady();
  c.console().colourScreenText();
  c.emptyPad();
  c.program().settings().store(key::DBバージョン, 0);
  c.program().services.dialogs.message(
      u" 確認"_s, u"データベース リセット シーケンスを設定しました　　\r\n\r\nSORAN を再起動してください"_s);
  return Outcome::Taken;
}

Outcome searchWord(Command& c, const RowSet& rows) {
  for (int i = 0; i < rows.recordCount(); ++i) {
    if (rows.valueAt(i, u"略語").toString() != c.text)
      continue;
    c.console().appendScreen(crlf + c.text + u" : " + rows.valueAt(i, u"意味").toString() + crlf);
    showPictureOf(c.program(), c.text);
    c.log(u"SEARCH WORD " + c.text);
    c.console().showReady();
    c.console().colourScreenText();
    c.console().caretToEnd();
    c.emptyPad();
    return Outcome::Taken;
  }
  return Outcome::Passed;
}

Outcome abbreviation(Command& c) {
  return searchWord(c, c.program().tables.abbreviations());
}
Outcome phrase(Command& c) {
  return searchWord(c, c.program().tables.phrases());
}

Outcome sunTimes(Command& c) {
  if (!c.text.startsWith(u"SS "))
    return Outcome::Passed;
  c.emptyPad();
  c.log(u"SUNRISE/SUNSET CALCULATION COMMAND"_s);
  const QStringView list = QStringView(c.text).mid(3);
  const std::optional<QStringList> lines = sunCommandLines(list, c.view.today());
  if (!lines)
    return syntaxError(c);
  for (const QStringView code : list.split(u' ')) {
    rememberWord(c.program().inputHistory, code);
    rememberWord(c.console().recentCodes, code);
  }
  c.prompt(sunCommandScreenText(*lines));
  return Outcome::Taken;
}

Outcome counter(Command& c) {
  echoPrompt(c.view);
  c.log(u"DISPLAY ACCESS COUNTER"_s);
  c.view.pane().openPage(c.program().baseUrl + u"/index2.htm", BrowserPane::MenuRule::LeftAlone);
  c.emptyPad();
  return Outcome::Taken;
}

Outcome ais(Command& c) {
  c.view.showAis();
  c.emptyPad();
  return Outcome::Taken;
}

Outcome group(Command& c) {
  for (const Group& group : c.program().tables.groupRows()) {
    if (group.id != c.text)
      continue;
    c.console().groupName = c.text;
    c.view.cycle().stopAutoOnManual();
    c.console().appendScreen(crlf.toString());
    c.console().caretToEnd();
    c.view.cycle().run({.kind = RunKind::Group,
                        .codes = group.route,
                        .origin = RunOrigin::Typed,
                        .group = c.text,
                        .fullLoad = true});
    return Outcome::Taken;
  }
  return Outcome::Passed;
}

Outcome startAutomatic(Command& c) {
  c.view.startAutomaticDecode();
  return Outcome::Taken;
}

Outcome print(Command& c) {
  c.console().appendScreen(crlf.toString());
  c.view.printing().printScreen();
  c.console().showReady();
  c.console().colourScreenText();
  c.log(u"PRINT COMMAND"_s);
  c.emptyPad();
  return Outcome::Taken;
}

Outcome reload(Command& c) {
  if (c.program().currentInput.isEmpty()) {
    c.prompt(crlf + u"INPUT AIRPORT CODE" + crlf);
    return Outcome::Taken;
  }
  c.view.cycle().runAgain(RunOrigin::Typed);
  c.log(u"DATA RELOAD"_s);
  return Outcome::Taken;
}

Outcome clearScreen(Command& c) {
  c.view.clearScreen();
  c.emptyPad();
  return Outcome::Taken;
}

Outcome exitProgram(Command& c) {
  c.view.close();
  return Outcome::Taken;
}

Outcome networkGate(Command& c) {
  if (c.program().networkAvailable)
    return Outcome::Passed;
  c.prompt(crlf + u"NO NETWORK CONNECTION" + crlf);
  c.log(u"SYSTEM NO NETWORK CONNECTION"_s);
  return Outcome::Taken;
}

Outcome sequencePrefix(Command& c) {
  if (c.text.startsWith(u"SQ ")) {
    c.text.remove(0, 3);
    c.console().setSequencePending(true);
    c.console().status().savePanel2();
  }
  return Outcome::Passed;
}

Outcome japanesePrefix(Command& c) {
  if (c.text.startsWith(u"JP ")) {
    c.text.remove(0, 3);
    c.program().runMemory.japanesePending = true;
    c.console().status().savePanel2();
  }
  return Outcome::Passed;
}

Outcome codeList(Command& c) {
  if (!isCodeList(c.text))
    return Outcome::Passed;
  c.view.cycle().stopAutoOnManual();
  c.log(u"MANUAL DECODE"_s);
  c.view.cycle().run({.kind = RunKind::List, .codes = c.text, .origin = RunOrigin::Typed, .fullLoad = true});
  return Outcome::Taken;
}

// The order of the rows decides: a dictionary word goes before a group, a group before most commands.
// clang-format off
constexpr Row chain[] = {
    {u"UPDATE", true, update},
    {u"JAPANESE", false, dictionary<DictionaryMode::Phrases>},
    {u"PICTURE", false, dictionary<DictionaryMode::Pictures>},
    {u"RESET", true, reset},
    {u"", false, abbreviation},
    {u"", false, phrase},
    {u"", false, sunTimes},
    {u"COUNTER", true, counter},
    {u"HELP", true, run<openHelp>},
    {u"AIS", false, ais},
    {u"", false, group},
    {u"ATO", true, startAutomatic},
    {u"PRINT", false, print},
    {u"/P", false, print},
    {u"RL", true, reload},
    {u"CLS", false, clearScreen},
    {u"DE", true, run<openDecodeList>},
    {u"GP", true, run<openGroupList>},
    {u"AP", false, run<openAirportList>},
    {u"WX", true, run<openCharts>},
    {u"CAM", true, run<openCameras>},
    {u"LOG", false, run<openRunningLog>},
    {u"EXIT", false, exitProgram},
    {u"", false, networkGate},
    {u"", false, sequencePrefix},
    {u"", false, japanesePrefix},
    {u"", false, codeList},
    {u"", false, syntaxError},
};
// clang-format on

} // namespace

void runCommand(View& view, const QString& text) {
  Command command{view, text};
  for (const Row& row : chain) {
    if (!row.word.isEmpty() && row.word != command.text)
      continue;
    if (row.needsNetwork && !command.program().networkAvailable) {
      view.noInternetAlert();
      return;
    }
    if (row.act(command) == Outcome::Taken)
      return;
  }
}

} // namespace soran
