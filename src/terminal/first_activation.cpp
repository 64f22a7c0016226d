// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/first_activation.h"

#include "base/text.h"
#include "start/hand_over.h"
#include "terminal/terminal.h"

#include <QDir>
#include <QFile>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView rule = u"_/_/_/_/_/_/_/_/_/_/_/_/_/_/_/_/_/_/_/_/_/_/_/_/";

void removeLeftovers(const Services& services) {
  QStringList names = {u"sequence.dat"_s, u"figure.dat"_s};
  for (int hour = 0; hour < 24; ++hour)
    names.append(twoDigits(hour) + u".dat");
  const QStringList there = QDir(services.path(u"data"_s)).entryList(QDir::Files | QDir::System);
  for (const QString& name : there) {
    if (names.contains(name))
      QFile::remove(services.path(u"data/") + name);
  }
}

} // namespace

QString bannerText(const SettingsRecord& settings) {
  return rule + u"\r\r   SORAN / AVIATION WEATHER AUTOMATIC DECODER   \r\r       Version " +
         settings.value(SettingIndex::SORANバージョン).toString() + u"\r\r" + rule;
}

void loadTerminal(Program& program, const QString& notice) {
  Console& console = program.console;
  Settings& settings = program.settings();
  program.runMemory.automatic = true;
  program.runMemory.loadPending = true;
  removeLeftovers(program.services);
  program.services.inet.setRequestTimeout(60);
  // The text is written in the colours of the settings from the first character on.
  console.applyDisplaySettings();
  if (program.networkAvailable) {
    console.screen().setText(u"SYSTEM INITIALIZED"_s);
    console.caretToEnd();
    console.setPanel(1, u"ネットワーク接続待機"_s);
    console.setPanel(2, u"システム初期化中"_s);
  } else {
    console.appendScreen(crlf + u"NO NETWORK CONNECTION" + crlf);
    console.caretToEnd();
  }
  if (program.tables.autoList().recordCount() == 0)
    settings.store(key::自動デコード有効, false);
  if (settings[key::自動デコード有効] == false) {
    console.screen().setText(u"DATABASE CONNECTION COMPLETED" + crlf + u"AUTO DECODE SEQUENCE DISABLED" +
                             crlf);
    console.showReady();
    program.runMemory.loadPending = false;
  }
  console.applyDisplaySettings();
  console.appendScreen(crlf.toString());
  const QString failure =
      outcomeOfUpdate() == u"failed" ? u"PROGRAM UPDATE FAILED / SEE UPDATE.LOG"_s : QString();
  QStringList lines = notice.split(crlf.toString());
  lines.append(failure);
  for (const QString& line : std::as_const(lines)) {
    if (line.isEmpty())
      continue;
    console.appendScreen(line + crlf);
    console.addLogEntry(line);
  }
  console.caretToEnd();
  program.systemZoneOffset = program.services.clock.offset();
}

void activateTerminal(Terminal& terminal) {
  Program& program = terminal.program();
  Console& console = program.console;
  program.cycleDecade = 25;
  console.groupName.clear();
  console.setSequencePending(false);
  program.runMemory.group.clear();
  program.runMemory.japanesePending = false;
  program.runMemory.enterTyped = false;
  program.inputHistory = u" "_s;
  console.setOverlay(program.networkAvailable);
  terminal.menus().takeAirports();
  const bool formsLoaded = !program.networkAvailable || terminal.versionCheck().atStart();
  if (formsLoaded)
    console.log().load();
  if (program.runMemory.loadPending) {
    console.appendScreen(u"DATABASE CONNECTION COMPLETED" + crlf);
    console.caretToEnd();
  }
  terminal.cycle().start();
}

} // namespace soran
