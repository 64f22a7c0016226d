// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "runs/decode_run.h"
#include "runs/printing.h"
#include "runs/program.h"
#include "runs/watch_cycle.h"
#include "terminal/browser_pane.h"
#include "terminal/menus.h"
#include "terminal/open_forms.h"
#include "terminal/terminal_listener.h"
#include "terminal/version_check.h"

#include <QDate>
#include <functional>

namespace soran {

/// The terminal: keys, the typed line and its commands, and the stop. Everything that a user does enters here
/// or by the menus; what the terminal consists of is reached through it.
class Terminal {
 public:
  /// The listener is told what a front end shows of itself; it outlives the terminal.
  explicit Terminal(Program& program, TerminalListener& listener = TerminalListener::none());

  /// Load and first activation, up to the moment at which the terminal takes input. `notice` is a line that
  /// the start has to tell. Throws Unwind where the program was closed meanwhile.
  void start(const QString& notice);

  /// A key on the screen: 8 (back space), 13 (Enter), 27 (Escape) or a character.
  void handleKey(QChar key);

  /// Waits until the Enter key was struck.
  void awaitEnter();

  /// The window's close box. While the browser pane is up it closes the pane only.
  void closeBox();

  /// Ends the program: stores, cleans up, closes everything. What waits unwinds behind it.
  void close();

  /// Ends the program, for the update module to run; throws Unwind.
  [[noreturn]] void closeForUpdate();

  bool ended() const { return ended_; }
  /// The update module is to be started.
  bool updaterRequested() const { return updaterRequested_; }

  /// Carries out what a user started; a run that unwinds ends here.
  void guarded(const std::function<void()>& event) const { program_.services.shutdown.guard(event); }

  /// The local date at the last key press.
  QDate today() const { return today_; }

  Program& program() { return program_; }
  Printing& printing() { return printing_; }
  WatchCycle& cycle() { return cycle_; }
  BrowserPane& pane() { return pane_; }
  OpenForms& forms() { return forms_; }
  Menus& menus() { return menus_; }
  VersionCheck& versionCheck() { return versionCheck_; }

 private:
  void enter();

  Program& program_;
  TerminalListener& listener_;
  Printing printing_;
  DecodeRun decode_;
  WatchCycle cycle_;
  BrowserPane pane_;
  OpenForms forms_;
  Menus menus_;
  VersionCheck versionCheck_;
  QDate today_;
  bool enterSeen_ = false;
  bool ended_ = false;
  bool updaterRequested_ = false;
};

} // namespace soran
