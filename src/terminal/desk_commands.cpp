// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/desk_commands.h"

#include "base/text.h"
#include "runs/meteogram_run.h"
#include "runs/night_desk.h"
#include "runs/shift_report.h"
#include "terminal/actions.h"
#include "terminal/terminal.h"

namespace soran {

using namespace Qt::StringLiterals;

namespace {

void showLines(Terminal& terminal, const QString& lines) {
  Console& console = terminal.program().console;
  console.appendScreen(lines);
  console.showReady();
  console.colourScreenText();
  console.caretToEnd();
}

/// A command whose words give a text, or are none of its.
struct DeskCommand {
  QStringView word;
  QStringView log;
  QStringView usage;
  std::optional<QString> (*act)(Program&, const QString& words);
};

constexpr DeskCommand commands[] = {
    {u"ACK", u"ACKNOWLEDGE ALARM", u"ACK RJTT / ACK ALL", acknowledgeText},
    {u"MUTE", u"MUTE ALARM", u"MUTE RJTT / MUTE RJTT 90 / MUTE RJTT OFF", muteText},
    {u"SHIFT", u"DISPLAY SHIFT LOG", u"SHIFT / SHIFT 24 / SHIFT 24 CSV / SHIFT 24 JSON / SHIFT 24 PRINT",
     shiftText},
};

bool showBoardCommand(Terminal& terminal, const QString& group) {
  if (showBoard(terminal, group))
    return true;
  showLines(terminal, crlf + u"NO SUCH GROUP" + crlf);
  return true;
}

} // namespace

bool showBoard(Terminal& terminal, const QString& group) {
  Program& program = terminal.program();
  const std::optional<QStringList> codes = boardCodes(program, group);
  if (!codes)
    return false;
  program.console.addLogEntry(u"DISPLAY BOARD"_s);
  program.console.setPad(QString());
  if (const auto columns = program.services.forms.textColumns()) {
    program.console.appendScreen(crlf.toString());
    showLines(terminal, boardScreenText(program, *codes, *columns));
  } else {
    action::echoPrompt(terminal);
    terminal.forms().show(form::Board{group});
  }
  return true;
}

void showGraph(Terminal& terminal, const QString& code) {
  Program& program = terminal.program();
  program.console.addLogEntry(u"GRAPH COMMAND " + code);
  program.console.setPad(QString());
  if (!program.services.forms.textColumns()) {
    action::echoPrompt(terminal);
    terminal.forms().show(form::Graph{code});
    return;
  }
  program.console.appendScreen(crlf.toString());
  const Meteogram meteogram = gatherMeteogram(program, StationCode(code));
  showLines(terminal,
            u"*** GRAPH " + code + u" ***" + crlf + crlf + meteogramText(meteogram, program.record()));
}

bool runDeskCommand(Terminal& terminal, const QString& line) {
  const QString word = line.section(u' ', 0, 0);
  const QString words = line.section(u' ', 1).trimmed();
  if (word == u"BOARD")
    return showBoardCommand(terminal, words);
  for (const DeskCommand& command : commands) {
    if (command.word != word)
      continue;
    Program& program = terminal.program();
    program.console.addLogEntry(command.log.toString());
    program.console.setPad(QString());
    const std::optional<QString> text = command.act(program, words);
    showLines(terminal, crlf + (text ? *text : u"USAGE: " + command.usage) + crlf);
    return true;
  }
  return false;
}

} // namespace soran
