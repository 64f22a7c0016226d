// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desk/alarm_book.h"
#include "desk/shared_log.h"
#include "desk/shift_log.h"
#include "pictures/station_positions.h"
#include "runs/sigmet_list.h"

#include <optional>

namespace soran {

/// What the night desk knows in a run of the program.
struct NightDeskState {
  explicit NightDeskState(QString logPath) : log(std::move(logPath)) {}

  ShiftLog log;
  std::optional<AlarmBook> book = {}; ///< made of the log when it is first needed
  FileFault logFault = FileFault::None;
  std::vector<AlarmEvent> unwritten = {}; ///< what the log does not have yet
  int lost = 0;                           ///< events that were too many to be kept so
  std::optional<SharedLog> shared = {};   ///< what the desks of an office share, where they do
  std::vector<AlarmEvent> unshared = {};  ///< what it does not have yet
  FileFault sharedFault = FileFault::None;
  QDateTime triedFiles = {};   ///< UTC, when the files above were last tried
  int taken = 0;               ///< count of the reports that were compared with the limits
  QDateTime watchedSince = {}; ///< UTC, the beginning of the watch without an interruption
  QDateTime lastPass = {};     ///< UTC, of the watch
  KnownSigmets sigmets;
  std::vector<AlarmEvent> untold = {}; ///< what nobody took yet who tells it, where there is one
  QStringList watched = {};            ///< what is watched; the automatic list where it is empty
  bool tellsCrossings =
      false; ///< reports and crossings are looked for whatever the settings say, and kept in `untold`
  bool showsBoard = false;                        ///< a board or a map was asked for in this run
  std::optional<StationPositions> positions = {}; ///< read when a map is first asked for
};

} // namespace soran
