// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// What the entries of the menus and the buttons of the toolbar do, where it is not what a typed command
/// does (terminal/shared_actions.h). A button that writes on the screen lets its prompt end with a line end
/// of its own.
namespace soran {

class View;

namespace action {

/// Closes the browser pane where it is up, else ends the program.
void leave(View& view);
void save(View& view);
void printFromMenu(View& view);
void printByButton(View& view);

/// The reports of the last hours of the airport whose code begins the caption.
void startAirport(View& view, const QString& caption);
/// The group whose name is the caption.
void startGroup(View& view, const QString& caption);
void editGroups(View& view);
void decodeList(View& view);
void abbreviations(View& view);
void settings(View& view);

void yahoo(View& view);
void homePage(View& view);
void helpByButton(View& view);
void ais(View& view);

void sunTimes(View& view);
void commandList(View& view);
void version(View& view);
void components(View& view);
void checkForUpdate(View& view);

void stopAutomatic(View& view);
void startAutomatic(View& view);
void reload(View& view);
void clearScreen(View& view);
void toggleScrollBar(View& view);
void toggleBold(View& view);
void closePane(View& view);
void goBack(View& view);

} // namespace action

} // namespace soran
