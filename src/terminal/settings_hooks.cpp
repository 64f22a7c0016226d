// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/settings_hooks.h"

#include "terminal/terminal.h"

namespace soran {

SettingsFormHooks settingsHooks(Terminal& terminal) {
  Program& program = terminal.program();
  return {.zoneOffset = offsetText(program.systemZoneOffset),
          .zoneName = program.systemZoneName,
          .log = [&program](const QString& line) { program.console.addLogEntry(line); },
          .takeBuffer = [&terminal] { terminal.cycle().readBufferLevel(); },
          .hoursChosen = [&program] { program.cycleDecade = 25; },
          .repaint = [&program] { program.console.colourScreenText(); },
          .usePrinter = [&program](const QString& printer) { program.currentPrinter = printer; },
          .choosePrinter =
              [&program] {
                const QStringList installed = program.services.printers.installed();
                const QString stored = program.settings()[key::プリンター].value_or(QString());
                return program.services.dialogs.choosePrinter(
                    installed, installed.contains(stored) ? stored : program.currentPrinter);
              },
          .guarded = [&terminal](const std::function<void()>& step) { terminal.guarded(step); }};
}

} // namespace soran
