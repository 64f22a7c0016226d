// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runs/meteogram_run.h"

#include "runs/cycle_files.h"
#include "runs/last_known.h"
#include "runs/program.h"
#include "runs/station_files.h"
#include "runs/station_map.h"

namespace soran {

namespace {

/// The lines of the station in the files of the sequence's hours.
QStringList cycleLines(Program& program, const StationCode& code) {
  QStringList lines;
  for (const UtcHour hour : latestHours(program)) {
    const std::optional<CycleFile> file = readCycleFile(program, hour, {code});
    if (!file)
      continue;
    for (const QString& line : file->lines(0))
      lines += line;
  }
  return lines;
}

} // namespace

Meteogram gatherMeteogram(Program& program, const StationCode& code) {
  if (program.networkAvailable) {
    StationFiles files(program, {code}, {.forecasts = true});
    files.take(0, ReportKind::Metar);
    files.take(0, ReportKind::Taf);
    keepLastReports(program);
    refreshCycleFiles(program);
    completeCycleFiles(program);
  }
  return knownMeteogram(program, code);
}

Meteogram knownMeteogram(Program& program, const StationCode& code) {
  QStringList metars = cycleLines(program, code);
  if (const auto* metar = program.knownReports.find(code, ReportKind::Metar))
    metars += {metar->before, metar->text};
  const auto* taf = program.knownReports.find(code, ReportKind::Taf);
  Meteogram meteogram = meteogramOf(code, metars, taf ? taf->text : QString(),
                                    program.services.clock.now().toUTC(), program.limitsOf(code));
  if (const std::optional<EarthPosition> position = positionOf(program, code.text()))
    meteogram.isSouthern = position->latitude < 0;
  meteogram.isDemonstration = program.services.demonstration;
  meteogram.name = program.dictionaries().stationName(code.text()).value_or(QString());
  return meteogram;
}

} // namespace soran
