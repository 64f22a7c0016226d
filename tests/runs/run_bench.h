// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fakes/bare_program.h"
#include "runs/watch_cycle.h"

#include <QTimer>

namespace soran {

/// A program whose runs are started directly, and its watch by the timers.
class RunBench : public BareProgram {
 public:
  using BareProgram::BareProgram;

  /// Opens the database; the automatic list is to be loaded, the network is there, and the watch goes.
  bool begin() {
    program.tables.openAllTables(world.path(u"soran.mdb"_s));
    program.networkAvailable = true;
    program.runMemory.automatic = program.runMemory.loadPending = true;
    program.console.log().load();
    program.console.screen().setText(u"BEGUN\r\n"_s);
    program.console.applyDisplaySettings();
    program.console.setOverlay(true);
    cycle.start();
    forget();
    return program.tables.database().isOpen();
  }
  /// The program closes: what waits unwinds.
  void close() {
    shutdown.request();
    cycle.stop();
    inet.cancel();
    inet2.cancel();
  }
  void guarded(const std::function<void()>& event) const { shutdown.guard(event); }

  /// A run as if its codes were typed.
  void list(const QString& codes) { start({.kind = RunKind::List, .codes = codes}); }
  void group(const QString& name, const QString& codes) {
    start({.kind = RunKind::Group, .codes = codes, .group = name});
  }
  void sequence(const QString& codes) {
    program.console.status().savePanel2();
    start({.kind = RunKind::Sequence, .codes = codes});
  }
  void japanese(const QString& codes) {
    program.console.status().savePanel2();
    start({.kind = RunKind::Japanese, .codes = codes});
  }
  void again() {
    guarded([this] { cycle.runAgain(RunOrigin::Typed); });
  }
  /// Something that the user does, such as a key.
  void act() {
    ++program.userActs;
    program.watchTicks = 0;
  }

  Printing printing{program};
  DecodeRun decode{program};
  WatchCycle cycle{program, decode, printing};

 private:
  void start(RunRequest request) {
    act();
    request.origin = RunOrigin::Typed;
    request.fullLoad = true;
    guarded([&] { cycle.run(request); });
  }
};

} // namespace soran
