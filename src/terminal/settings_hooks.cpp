// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/settings_hooks.h"

#include "terminal/view.h"

namespace soran {

SettingsFormHooks settingsHooks(View& view) {
  Program& program = view.program();
  return {.zoneOffset = offsetText(program.systemZoneOffset),
          .zoneName = program.systemZoneName,
          .log = [&program](const QString& line) { program.console.addLogEntry(line); },
          .takeBuffer = [&view] { view.cycle().readBufferLevel(); },
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
          .guarded = [&view](const std::function<void()>& step) { view.guarded(step); }};
}

} // namespace soran
