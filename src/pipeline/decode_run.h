// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pipeline/layout.h"
#include "pipeline/program.h"
#include "pipeline/station_files.h"

#include <functional>
#include <optional>

namespace soran {

/// What one fetch of a report left.
struct FetchResult {
  QString fetchedText; ///< the body laid out, or the line of a refused file
  QString obsTime;     ///< time label, empty where the file was refused
  bool found = true;   ///< the file was there
};

/// Fetches, lays out and shows a list of stations: the one way in which reports reach the screen.
class DecodeRun {
 public:
  explicit DecodeRun(Program& program) : program_(program) {}

  /// One run over `currentInput` with the flags as they stand. Waits in the event loop; throws Unwind where
  /// the program was closed meanwhile.
  void decodeRun();

  /// True while a run is under way.
  bool running() const { return running_ > 0; }

  /// Rebuilds the station table, in `autoMode` from the automatic list.
  void loadStationTable();

  /// Called where a sequence run finds an hour whose file has not come yet.
  std::function<void()> onMissingCycleFile = [] {};

  /// The announcements at the end of a run that the cycle started.
  std::function<void()> announceChanges = [] {};

 private:
  void normalRun();
  void japaneseRun();
  void sequenceRun();
  void sequenceFromRecord(const QString& list);
  void sequenceFromCycles(const QString& list);
  void commonEnd();

  void decodeStation(StationFiles& files, size_t place);
  FetchResult fetchReport(StationFiles& files, size_t place, ReportKind kind);
  void appendTitle(const QString& list);
  void appendGroupOpening(const QString& list);
  void logTaf(const QString& code, const QString& fetchedText);
  QString clockText() const;

  Program& program_;
  int running_ = 0; // runs started inside a run count too
};

} // namespace soran
