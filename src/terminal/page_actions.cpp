// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/actions.h"

#include "imagery/image_choice.h"
#include "terminal/terminal.h"

namespace soran::action {

using namespace Qt::StringLiterals;

namespace {

/// The address of a page of the imagery, empty where none is known.
QString pageOf(const ImageRow& row) {
  return row.isAvailable() ? imageAddress(row, row.layers.first(), {}).toString() : QString();
}

/// Opens a page in its own right: without network the user is told, and nothing else happens.
void openPage(Terminal& terminal, const QString& logLine, const QString& address) {
  if (!terminal.program().networkAvailable) {
    noInternetAlert(terminal);
    return;
  }
  terminal.program().console.addLogEntry(address.isEmpty() ? u"NO ADDRESS OF THIS PAGE"_s : logLine);
  if (!address.isEmpty())
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
  const ImageRow row = aisRow(program.services.endpoints);
  if (row.account)
    program.console.addLogEntry(u"AIS-JAPAN MOVED, ACCOUNT REQUIRED"_s);
  openPage(terminal, u"DISPLAY AIS-JAPAN"_s, pageOf(row));
}

void yahoo(Terminal& terminal) {
  openPage(terminal, u"DISPLAY Yahoo! WEATHER"_s, pageOf(yahooRow(terminal.program().services.endpoints)));
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
