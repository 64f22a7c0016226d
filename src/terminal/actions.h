// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// What the typed commands, the entries of the menus and the buttons of the toolbar do. A button that writes
/// on the screen lets its prompt end with a line end of its own. A file each: what runs, what shows a form,
/// what shows a page, what changes the screen.
namespace soran {

class Terminal;
enum class DictionaryMode;

namespace action {

/// "インターネットに接続できません" as a message.
void noInternetAlert(Terminal& terminal);
/// Echo and prompt, painted: what a typed command leaves that shows something elsewhere.
void echoPrompt(Terminal& terminal);
/// A prompt of the toolbar.
void buttonPrompt(Terminal& terminal);

// What runs.

/// The automatic decode, asking first where it is disabled.
void startAutomatic(Terminal& terminal);
void startAutomaticByButton(Terminal& terminal);
void stopAutomatic(Terminal& terminal);
/// The reports of the last hours of the airport whose code begins the caption.
void startAirport(Terminal& terminal, const QString& caption);
/// The group whose name is the caption.
void startGroup(Terminal& terminal, const QString& caption);
void reloadByButton(Terminal& terminal);

// What shows a form. The lists and the panels have their command too, none of them asks for the network.

void airportList(Terminal& terminal);
void decodeList(Terminal& terminal);
void groupList(Terminal& terminal);
void decodeListFromMenu(Terminal& terminal);
void groupListFromMenu(Terminal& terminal);
void dictionary(Terminal& terminal, DictionaryMode mode);
void abbreviations(Terminal& terminal);
/// The settings, which the screen then follows.
void settings(Terminal& terminal);
/// The charts, behind the notice about PDF files where it is due. The program ends where the user left for
/// the download.
void charts(Terminal& terminal);
void cameras(Terminal& terminal);
void board(Terminal& terminal);
void map(Terminal& terminal);
/// Of the first airport that is watched.
void graph(Terminal& terminal);
/// The limits of single airports: their form, or lines on the screen where there are no windows.
void limits(Terminal& terminal);
void runningLog(Terminal& terminal);
void sunTimes(Terminal& terminal);
void commandList(Terminal& terminal);
void version(Terminal& terminal);
void components(Terminal& terminal);

// What shows a page.

void help(Terminal& terminal);
void helpByButton(Terminal& terminal);
void ais(Terminal& terminal);
void yahoo(Terminal& terminal);
void homePage(Terminal& terminal);
void closePane(Terminal& terminal);
void goBack(Terminal& terminal);

// What changes the screen, prints it or leaves it.

/// Empties the screen and the staging buffer.
void clearScreen(Terminal& terminal);
void clearScreenByButton(Terminal& terminal);
void toggleScrollBar(Terminal& terminal);
void toggleBold(Terminal& terminal);
void save(Terminal& terminal);
void printFromMenu(Terminal& terminal);
void printByButton(Terminal& terminal);
/// Explains the group that is selected on the screen (from `start`, in UTF-16 units from 0): its tip is
/// shown, and its picture, where one is stored. Gives the tip's text, empty where there is none.
QString explainSelection(Terminal& terminal, qsizetype start, qsizetype length);
void checkForUpdate(Terminal& terminal);
/// Closes the browser pane where it is up, else ends the program.
void leave(Terminal& terminal);

} // namespace action

} // namespace soran
