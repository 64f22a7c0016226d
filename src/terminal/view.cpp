// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/view.h"

namespace soran {

View::View(Program& program) : terminal_(program, *this) {
  // A change of the network shows on the status bar too, and settings that matter for the menus end in a
  // display that follows them.
  Console& console = program.console;
  connect(&console.status(), &StatusBar::changed, this, &View::menusChanged);
  connect(&console, &Console::displaySettingsApplied, this, &View::menusChanged);
}

void View::onPaneChanged() {
  emit menusChanged();
  emit paneChanged();
}

} // namespace soran
