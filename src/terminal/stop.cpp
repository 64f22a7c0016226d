// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/stop.h"

#include "base/skip.h"
#include "start/own_directory.h"
#include "store/daily_backup.h"

namespace soran {

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcStop, "soran.terminal")

/// True where the database is to be compacted.
bool countExit(Settings& settings) {
  constexpr int exitsBetweenCompactions = 50;
  const int exits = settings[key::起動回数].value_or(0);
  const bool compact = exits > exitsBetweenCompactions;
  settings.store(key::起動回数, compact ? 0 : exits + 1);
  return compact;
}

} // namespace

void stopProgram(Program& program) {
  Services& services = program.services;
  services.inet.cancel();
  services.inet2.cancel();
  services.pages.closePane();
  passOver(lcStop(), "counting the exit", [&] { program.tables.database().commitLightly(); });
  const bool compact = countExit(program.settings());
  removeScratchFolder(services.directory, u"data"_s);
  removeScratchFolder(services.directory, u"help"_s);
  program.tables.closeAll();
  if (compact)
    passOver(lcStop(), "compacting the database",
             [&] { compactDatabase(services.path(u"soran.mdb"), services.path(u"soran_temp.mdb")); });
  backUpDaily(services.path(u"soran.mdb"), services.clock);
}

} // namespace soran
