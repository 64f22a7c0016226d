// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/station_code.h"
#include "runs/run_request.h"

#include <vector>

namespace soran {

/// A station file, fetched and laid out.
struct LaidOutReport {
  bool found = false; ///< false where the file was refused
  QString obsTime;    ///< time label such as 0500Z; empty where it was refused
  QString body;       ///< the laid-out report, or the line that tells that there is none
  bool older = false; ///< a later one of the station is known
};

/// What a run found of one station.
struct StationResult {
  StationCode code;
  LaidOutReport metar = {};
  LaidOutReport taf = {}; ///< not asked for where the METAR was refused
  QString block = {};     ///< the whole text of a Japanese or a sequence run, without its title
};

/// What a run found.
struct GatheredRun {
  RunRequest request; ///< with the codes as they were run
  std::vector<StationResult> stations = {};
  bool missingCycleFile = false; ///< an hour of a sequence has not come yet; to be asked again
  bool noRecord = false;         ///< a sequence from the run's own record, of which there is none
};

/// Follows a run while it waits for the network: each call comes as soon as it is so.
class RunProgress {
 public:
  virtual ~RunProgress() = default;
  /// The list is known; nothing was asked yet.
  virtual void begins(const RunRequest& request) = 0;
  /// The station at `place` (from 0) of `total` is asked for now.
  virtual void asks(const RunRequest& request, const StationCode& code, int place, int total) = 0;
  virtual void tookMetar(const RunRequest& request, const StationResult& station) = 0;
  virtual void tookTaf(const RunRequest& request, const StationResult& station) = 0;
  /// All stations were asked.
  virtual void ends(const RunRequest& request, int total) = 0;
};

} // namespace soran
