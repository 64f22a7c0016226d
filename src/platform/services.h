// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/endpoints.h"
#include "platform/forms.h"
#include "platform/inet.h"
#include "platform/pages.h"
#include "platform/printers.h"
#include "platform/shutdown.h"
#include "platform/sounds.h"
#include "platform/timers.h"
#include "platform/waiting.h"

namespace soran {

/// What a front end gives of its own.
struct FrontEnd {
  Dialogs& dialogs;
  Forms& forms;
  Sounds& sounds;
  Printers& printers;
  Pages& pages;
  Waiting& waiting;
};

/// What the core is given of the world. All of it outlives the program run.
struct Services : FrontEnd {
  Clock& clock;
  Timers& timers;
  Inet& inet;  ///< reports, probes and updates
  Inet& inet2; ///< cycle files, kept apart so that they never stand in the way of a report
  Shutdown& shutdown;
  Endpoints endpoints;
  bool handsOver = true;      ///< a new version may end this run, for the update module to run
  bool startsModule = true;   ///< what follows such an end runs the module; else the end is only told
  bool demonstration = false; ///< the embedded endpoint serves everything
  QString fault = {};         ///< why the program must not start, in words; empty where it may
  QString directory = {};     ///< the program's directory, without trailing slash
  /// The delivered database, for a start that finds no other; may be empty.
  std::function<QByteArray()> deliveredDatabase = [] { return QByteArray(); };

  /// The names of stations elsewhere, as Dictionaries takes them; may be empty.
  std::function<QByteArray()> stations = [] { return QByteArray(); };

  /// Where these lie, as StationPositions takes it, and the shores, as Coast reads them; may be empty. Asked
  /// for when a map is first shown.
  std::function<QByteArray()> positions = [] { return QByteArray(); };
  std::function<QByteArray()> coast = [] { return QByteArray(); };

  /// The runways of airports, as Runways takes them; may be empty.
  std::function<QByteArray()> runways = [] { return QByteArray(); };

  /// The SHA-256 of the update module that this run copied from the user's own machine; empty where none.
  QByteArray copiedModule = {};

  QString path(QStringView name) const { return directory + u'/' + name; }
};

} // namespace soran
