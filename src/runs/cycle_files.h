// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/report_rules.h"
#include "reports/sequence.h"
#include "runs/program.h"

namespace soran {

/// Brings the hourly METAR cycle files into the data folder, at most once in each ten minutes of the clock:
/// those of the window that are missing or of the day before, and the present hour's always. Waits in the
/// event loop.
void refreshCycleFiles(Program& program);

/// The hours of the window by the world's clock, the present one the last.
std::vector<UtcHour> latestHours(Program& program);

/// Brings the files of these, where those of the zone of the settings are others.
void completeCycleFiles(Program& program);

/// Whether an hour's file has come. One of the day before is none.
bool cycleFileIsThere(const Program& program, UtcHour hour);

/// An hour's file that has come, read for these stations; nothing where it cannot be read.
std::optional<CycleFile> readCycleFile(const Program& program, UtcHour hour,
                                       const std::vector<StationCode>& codes);

/// The place of an hour's file: data/NN.dat.
QString cycleFilePath(const Services& services, UtcHour hour);

} // namespace soran
