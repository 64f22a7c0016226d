// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/actions.h"

#include "imagery/sources.h"
#include "terminal/terminal.h"

namespace soran::action {

using namespace Qt::StringLiterals;

namespace {

/// Opens a page in its own right: without network the user is told, and nothing else happens.
void openPage(Terminal& terminal, const QString& logLine, const QString& address) {
  if (!terminal.program().networkAvailable) {
    noInternetAlert(terminal);
    return;
  }
  terminal.program().console.addLogEntry(logLine);
  terminal.pane().openPage(address);
}

QString startPage(const QString& home) {
  // A server knows its start page; a folder does not.
  return home + (home.startsWith(u"http") ? u"/"_s : u"/index.html"_s);
}

QString helpPage(const Services& services) {
  return services.endpoints.home + u"/help/help.html";
}

} // namespace

void help(Terminal& terminal) {
  Program& program = terminal.program();
  echoPrompt(terminal);
  program.console.addLogEntry(u"DISPLAY ONLINE HELP"_s);
  terminal.pane().openPage(helpPage(program.services));
  program.console.setPad(QString());
}

void helpByButton(Terminal& terminal) {
  openPage(terminal, u"DISPLAY ONLINE HELP"_s, helpPage(terminal.program().services));
}

void ais(Terminal& terminal) {
  Program& program = terminal.program();
  if (!program.networkAvailable) {
    noInternetAlert(terminal);
    program.console.addLogEntry(u"SYSTEM NO NETWORK CONNECTION"_s);
    return;
  }
  openPage(terminal, u"DISPLAY AIS-JAPAN"_s, program.services.endpoints.others.value(u"ais"_s));
}

void yahoo(Terminal& terminal) {
  const QString host = terminal.program().services.endpoints.others.value(u"yahoo"_s);
  openPage(terminal, u"DISPLAY Yahoo! WEATHER"_s, host + findImagerySource(u"yahoo")->path);
}

void homePage(Terminal& terminal) {
  openPage(terminal, u"DISPLAY SORAN HOMEPAGE"_s, startPage(terminal.program().services.endpoints.home));
}

void closePane(Terminal& terminal) {
  terminal.pane().close();
}

void goBack(Terminal& terminal) {
  terminal.program().services.pages.goBack();
}

} // namespace soran::action
