// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace soran {

/// What a run shows.
enum class RunKind {
  List,      ///< METAR and TAF of typed codes
  Group,     ///< the same of a group, under its title
  Automatic, ///< the same of the automatic list
  Japanese,  ///< METAR in Japanese
  Sequence,  ///< the METARs of the last hours
};

/// What started a run.
enum class RunOrigin {
  Typed,  ///< the Enter key; the screen stays at its end
  Button, ///< the toolbar, a menu or a timer of the terminal
  Start,  ///< the first load behind the program's start
  Cycle,  ///< the watch, which found something new
};

/// One run, complete: nothing else tells it what to do.
struct RunRequest {
  RunKind kind = RunKind::List;
  QString codes = {}; ///< four letters each, a blank between them
  RunOrigin origin = RunOrigin::Button;
  QString group = {};    ///< the group's name, where the kind is Group
  bool fullLoad = false; ///< the first load of its list: the table is rebuilt, stamps and log lines are kept
};

/// What RL and the watch run again, and what a line that did not run left for the next one.
struct RunMemory {
  bool automatic = false;       ///< the list is the automatic one
  QString group;                ///< the group whose title the next run bears; a key makes it a plain list
  bool loadPending = false;     ///< nothing of the list has been loaded yet
  bool japanesePending = false; ///< JP was typed, or such a run repeated; until the next key
  bool enterTyped = false;      ///< Enter was hit since the last run ended
};

} // namespace soran
