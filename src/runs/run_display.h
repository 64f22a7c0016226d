// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "runs/gathered_run.h"
#include "runs/program.h"

namespace soran {

/// Tells on screen, log and panel 2 how a run goes on, and keeps each METAR for the record of the last hours.
class RunDisplay final : public RunProgress {
 public:
  explicit RunDisplay(Program& program) : program_(program) {}

  void begins(const RunRequest& request) override;
  void asks(const RunRequest& request, const StationCode& code, int place, int total) override;
  void tookMetar(const RunRequest& request, const StationResult& station) override;
  void tookTaf(const RunRequest& request, const StationResult& station) override;
  void ends(const RunRequest& request, int total) override;

 private:
  bool readsOwnRecord(const RunRequest& request) const;

  Program& program_;
};

/// Puts what a run found on the screen, below what the settings keep of earlier runs, and writes the prompt.
/// `behind` is text to stand behind the reports.
void show(Program& program, const GatheredRun& run, const QString& behind = {});

} // namespace soran
