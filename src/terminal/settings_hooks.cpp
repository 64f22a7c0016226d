// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/settings_hooks.h"

#include "terminal/terminal.h"

namespace soran {

namespace {

/// The name of the system's zone, without what stands in brackets. The library takes long to find it.
QString systemZoneName(const Clock& clock) {
  const QString name = clock.zoneName();
  const qsizetype bracket = name.indexOf(u'(');
  return bracket < 0 ? name : name.left(bracket).trimmed();
}

} // namespace

SettingsFormHooks settingsHooks(Terminal& terminal) {
  Program& program = terminal.program();
  return {.zoneOffset = offsetText(program.systemZoneOffset),
          .zoneName = systemZoneName(program.services.clock),
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
