// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/actions.h"

#include "base/text.h"
#include "imagery/adobe_notice.h"
#include "reports/airport_limits.h"
#include "runs/cycle_files.h"
#include "runs/night_desk.h"
#include "terminal/desk_commands.h"
#include "terminal/terminal.h"

namespace soran::action {

using namespace Qt::StringLiterals;

namespace {

/// The command that opens the editor of a list: it stops the cycle where that is wished, writes the log line
/// and shows the form until the user closes it.
void editList(Terminal& terminal, const QString& logLine, const ModalForm& form) {
  Console& console = terminal.program().console;
  echoPrompt(terminal);
  terminal.cycle().stopAutoOnManual();
  console.addLogEntry(logLine);
  console.setPad(QString());
  terminal.forms().showModal(form);
}

/// An entry of the menus that shows a form beside the window.
void showFromMenu(Terminal& terminal, const QString& logLine, const Form& form) {
  terminal.program().console.addLogEntry(logLine);
  terminal.forms().show(form);
}

/// The command that does the same.
void showBeside(Terminal& terminal, const QString& logLine, const Form& form) {
  terminal.program().console.setPad(QString());
  showFromMenu(terminal, logLine, form);
}

/// False where the user left for the download.
bool showPdfNotice(Terminal& terminal) {
  Program& program = terminal.program();
  const ModalOutcome outcome = terminal.forms().showModal(form::PdfNotice{});
  const auto* answer = std::get_if<form::PdfNotice::Outcome>(&outcome);
  if (!answer)
    return true;
  if (answer->dontShowAgain)
    program.settings().store(key::アドビインフォメーション, true);
  if (answer->banner)
    program.services.pages.openExternally(adobe_notice::downloadPage.toString());
  return !answer->banner;
}

} // namespace

void airportList(Terminal& terminal) {
  editList(terminal, u"DISPLAY AIRPORT LIST"_s, form::EditAirports{});
}

void decodeList(Terminal& terminal) {
  editList(terminal, u"DISPLAY AUTO DECODE LIST"_s, form::EditAutoList{});
}

void groupList(Terminal& terminal) {
  editList(terminal, u"DISPLAY GROUP LIST"_s, form::EditGroups{});
}

void limits(Terminal& terminal) {
  Program& program = terminal.program();
  program.console.addLogEntry(u"DISPLAY LIMITS OF AIRPORTS"_s);
  program.console.setPad(QString());
  if (!program.services.forms.textColumns()) {
    // The watch goes on meanwhile.
    echoPrompt(terminal);
    terminal.forms().showModal(form::EditLimits{});
    return;
  }
  const QList<AirportLimits> rows = program.tables.limitRows();
  program.console.appendScreen(crlf + u"*** LIMITS ***" + crlf + crlf +
                               (rows.isEmpty() ? u"NO ROW IN THE LIST"_s : limitsText(rows)) + crlf);
  program.console.showReady();
  program.console.colourScreenText();
}

void decodeListFromMenu(Terminal& terminal) {
  if (terminal.program().networkAvailable)
    decodeList(terminal);
  else
    noInternetAlert(terminal);
}

void groupListFromMenu(Terminal& terminal) {
  terminal.program().console.addLogEntry(u"DISPLAY GROUP LIST"_s);
  terminal.forms().showModal(form::EditGroups{});
}

void dictionary(Terminal& terminal, DictionaryMode mode) {
  terminal.forms().showModal(form::EditDictionary{mode});
}

void abbreviations(Terminal& terminal) {
  dictionary(terminal, DictionaryMode::Abbreviations);
}

void settings(Terminal& terminal) {
  Program& program = terminal.program();
  program.console.addLogEntry(u"DISPLAY SYSTEM SETUP MENU"_s);
  terminal.cycle().readBufferLevel();
  const ModalOutcome outcome = terminal.forms().showModal(form::EditSettings{});
  terminal.cycle().readBufferLevel();
  program.console.applyDisplaySettings();
  const auto* closed = std::get_if<form::EditSettings::Outcome>(&outcome);
  if (!closed)
    return;
  program.console.repaint();
  if (closed->hoursChanged) {
    program.services.inet2.cancel();
    refreshCycleFiles(program);
  }
}

void charts(Terminal& terminal) {
  Program& program = terminal.program();
  echoPrompt(terminal);
  if (program.settings()[key::アドビインフォメーション] == false) {
    program.console.addLogEntry(adobe_notice::statusNotice.toString());
    if (!showPdfNotice(terminal)) {
      program.console.addLogEntry(adobe_notice::statusUnload.toString());
      terminal.close();
      return;
    }
  }
  showBeside(terminal, adobe_notice::statusChart.toString(), form::Charts{});
}

void cameras(Terminal& terminal) {
  echoPrompt(terminal);
  showBeside(terminal, u"DISPLAY NETWORK CAMERA"_s, form::Cameras{});
}

void board(Terminal& terminal) {
  showBoard(terminal, {});
}

void map(Terminal& terminal) {
  showMap(terminal, {});
}

void graph(Terminal& terminal) {
  const QStringList watched = boardCodes(terminal.program(), {}).value_or(QStringList());
  showGraph(terminal, watched.value(0, u"RJTT"_s));
}

void runningLog(Terminal& terminal) {
  echoPrompt(terminal);
  showBeside(terminal, u"DISPLAY RUNNING LOG"_s, form::Log{});
}

void sunTimes(Terminal& terminal) {
  showFromMenu(terminal, u"DISPLAY SUNRISE/SUNSET GRAPH"_s, form::SunTimes{});
}

void commandList(Terminal& terminal) {
  showFromMenu(terminal, u"DISPLAY COMMAND LIST"_s, form::Commands{});
}

void version(Terminal& terminal) {
  showFromMenu(terminal, u"DISPLAY SYSTEM VERSION INFORMATION"_s, form::Version{});
}

void components(Terminal& terminal) {
  showFromMenu(terminal, u"DISPLAY SYSTEM COMPORNENTS INFORMATION"_s, form::Components{});
}

} // namespace soran::action
