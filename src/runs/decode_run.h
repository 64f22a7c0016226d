// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "runs/gathered_run.h"
#include "runs/program.h"

namespace soran {

/// The way in which reports reach the screen: a request is gathered, then shown, and what it was stays behind
/// for RL and for the watch.
class DecodeRun {
 public:
  explicit DecodeRun(Program& program) : program_(program) {}

  /// Makes the request what RL and the watch run from now on.
  void remember(const RunRequest& request);

  /// What RL and the watch run now. Rebuilds the station table where it is the first load of its list.
  RunRequest repeated(RunOrigin origin);

  /// Fetches and lays out every station. Waits in the event loop; throws Unwind where the program was closed
  /// meanwhile.
  GatheredRun gather(const RunRequest& request);

  /// Puts what was gathered on the screen, `behind` below it, and ends the run.
  void show(const GatheredRun& run, const QString& behind = {});

  /// True while reports are gathered.
  bool running() const { return running_ > 0; }

 private:
  void loadStationTable(RunRequest& request);

  Program& program_;
  int running_ = 0; // runs started inside a run count too
};

} // namespace soran
