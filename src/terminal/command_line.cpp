// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/command_line.h"

#include "base/text.h"
#include "reports/forecast_at.h"
#include "runs/arrival_forecast.h"
#include "runs/last_known.h"
#include "runs/sigmet_list.h"
#include "sun/sun_command.h"
#include "terminal/actions.h"
#include "terminal/desk_commands.h"
#include "terminal/picture_lookup.h"
#include "terminal/terminal.h"

#include <algorithm>
#include <span>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

/// A line on its way through the chain. The prefixes SQ and JP are cut off it as it passes.
struct Command {
  Terminal& terminal;
  QString text;

  Program& program() const { return terminal.program(); }
  Console& console() const { return terminal.program().console; }
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
  c.terminal.versionCheck().onDemand();
  c.emptyPad();
  return Outcome::Taken;
}

/// A command that a menu has too.
template <void (*act)(Terminal&)>
Outcome run(Command& c) {
  act(c.terminal);
  return Outcome::Taken;
}

template <DictionaryMode mode>
Outcome dictionary(Command& c) {
  c.emptyPad();
  action::dictionary(c.terminal, mode);
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
  if (c.text.isEmpty())
    return Outcome::Passed;
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
  const std::optional<QStringList> lines = sunCommandLines(list, c.terminal.today());
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
  action::echoPrompt(c.terminal);
  c.log(u"DISPLAY ACCESS COUNTER"_s);
  c.terminal.pane().openPage(c.program().baseUrl + u"/index2.htm", BrowserPane::MenuRule::LeftAlone);
  c.emptyPad();
  return Outcome::Taken;
}

Outcome ais(Command& c) {
  action::ais(c.terminal);
  c.emptyPad();
  return Outcome::Taken;
}

Outcome group(Command& c) {
  for (const Group& group : c.program().tables.groupRows()) {
    if (group.id != c.text)
      continue;
    c.console().groupName = c.text;
    c.terminal.cycle().stopAutoOnManual();
    c.console().appendScreen(crlf.toString());
    c.console().caretToEnd();
    c.terminal.cycle().run({.kind = RunKind::Group,
                            .codes = group.route,
                            .origin = RunOrigin::Typed,
                            .group = c.text,
                            .fullLoad = true});
    return Outcome::Taken;
  }
  return Outcome::Passed;
}

Outcome startAutomatic(Command& c) {
  action::startAutomatic(c.terminal);
  return Outcome::Taken;
}

Outcome print(Command& c) {
  c.console().appendScreen(crlf.toString());
  c.terminal.printing().printScreen();
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
  c.terminal.cycle().runAgain(RunOrigin::Typed);
  c.log(u"DATA RELOAD"_s);
  return Outcome::Taken;
}

Outcome clearScreen(Command& c) {
  action::clearScreen(c.terminal);
  c.emptyPad();
  return Outcome::Taken;
}

Outcome exitProgram(Command& c) {
  c.terminal.close();
  return Outcome::Taken;
}

Outcome lastKnown(Command& c) {
  constexpr QStringView word = u"LAST ";
  const QStringList codes =
      c.text.startsWith(word) ? c.text.sliced(word.size()).split(u' ', Qt::SkipEmptyParts) : QStringList();
  if (codes.isEmpty())
    return Outcome::Passed;
  for (const QString& code : codes) {
    rememberWord(c.program().inputHistory, code);
    rememberWord(c.console().recentCodes, code);
  }
  c.log(u"DISPLAY LAST KNOWN REPORTS"_s);
  c.emptyPad();
  c.prompt(lastKnownText(c.program(), codes));
  return Outcome::Taken;
}

Outcome sigmet(Command& c) {
  if (!c.program().networkAvailable)
    return Outcome::Passed; // the dictionary has the word
  c.emptyPad();
  c.log(u"SIGMET COMMAND"_s);
  c.console().appendScreen(crlf.toString());
  c.prompt(sigmetList(c.program()));
  return Outcome::Taken;
}

Outcome nightDesk(Command& c) {
  return runDeskCommand(c.terminal, c.text) ? Outcome::Taken : Outcome::Passed;
}

Outcome networkGate(Command& c);

/// "ETA RJTT 1430", with "Z" behind the time in UTC.
Outcome arrival(Command& c) {
  constexpr QStringView word = u"ETA ";
  if (!c.text.startsWith(word))
    return Outcome::Passed;
  const QStringList parts = c.text.sliced(word.size()).split(u' ', Qt::SkipEmptyParts);
  const QString code = parts.value(0);
  const std::optional<QDateTime> at =
      nextTime(parts.value(1), c.program().services.clock.now().toUTC(), c.program().record());
  if (parts.size() != 2 || code.size() != 4 || !isCodeList(code) || !at) {
    c.emptyPad();
    c.log(u"SYNTAX ERROR"_s);
    c.prompt(crlf + u"SYNTAX ERROR / ETA RJTT 1430 OR ETA RJTT 0530Z" + crlf);
    return Outcome::Taken;
  }
  if (!c.program().networkAvailable)
    return networkGate(c);
  rememberWord(c.program().inputHistory, code);
  rememberWord(c.console().recentCodes, code);
  c.emptyPad();
  c.log(u"ETA COMMAND " + code);
  c.console().appendScreen(crlf.toString());
  c.prompt(arrivalForecast(c.program(), StationCode(code), *at));
  return Outcome::Taken;
}

/// "GRAPH RJTT".
Outcome graph(Command& c) {
  constexpr QStringView word = u"GRAPH ";
  const QString code = c.text.sliced(std::min(word.size(), c.text.size())).trimmed();
  if (!c.text.startsWith(word) || code.size() != 4 || !isCodeList(code))
    return Outcome::Passed;
  rememberWord(c.program().inputHistory, code);
  rememberWord(c.console().recentCodes, code);
  showGraph(c.terminal, code);
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
  c.terminal.cycle().stopAutoOnManual();
  c.log(u"MANUAL DECODE"_s);
  c.terminal.cycle().run(
      {.kind = RunKind::List, .codes = c.text, .origin = RunOrigin::Typed, .fullLoad = true});
  return Outcome::Taken;
}

// The order of the rows decides: a dictionary word goes before a group, a group before most commands. SIGMET
// is a word of the delivered dictionary itself, and so goes before it where it can be asked for.
// clang-format off
constexpr Row chain[] = {
    {u"UPDATE", true, update},
    {u"SIGMET", false, sigmet},
    {u"", false, lastKnown},
    {u"JAPANESE", false, dictionary<DictionaryMode::Phrases>},
    {u"PICTURE", false, dictionary<DictionaryMode::Pictures>},
    {u"RESET", true, reset},
    {u"", false, abbreviation},
    {u"", false, phrase},
    {u"", false, sunTimes},
    {u"COUNTER", true, counter},
    {u"HELP", true, run<action::help>},
    {u"AIS", false, ais},
    {u"", false, group},
    {u"", false, nightDesk},
    {u"", false, arrival},
    {u"", false, graph},
    {u"ATO", true, startAutomatic},
    {u"PRINT", false, print},
    {u"/P", false, print},
    {u"RL", true, reload},
    {u"CLS", false, clearScreen},
    {u"DE", true, run<action::decodeList>},
    {u"GP", true, run<action::groupList>},
    {u"AP", false, run<action::airportList>},
    {u"LIMITS", false, run<action::limits>},
    {u"WX", true, run<action::charts>},
    {u"CAM", true, run<action::cameras>},
    {u"LOG", false, run<action::runningLog>},
    {u"EXIT", false, exitProgram},
    {u"", false, networkGate},
    {u"", false, sequencePrefix},
    {u"", false, japanesePrefix},
    {u"", false, codeList},
    {u"", false, syntaxError},
};
// clang-format on

} // namespace

void runCommand(Terminal& terminal, const QString& text) {
  Command command{terminal, text};
  for (const Row& row : chain) {
    if (!row.word.isEmpty() && row.word != command.text)
      continue;
    if (row.needsNetwork && !command.program().networkAvailable) {
      action::noInternetAlert(terminal);
      return;
    }
    if (row.act(command) == Outcome::Taken)
      return;
  }
}

} // namespace soran
