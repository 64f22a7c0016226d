// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "runs/watch_cycle.h"
#include "terminal/terminal_listener.h"

#include <vector>

namespace soran {

/// The forms beside the terminal, and the tray icon that stands for the minimised window.
class OpenForms {
 public:
  OpenForms(Program& program, WatchCycle& cycle, TerminalListener& listener)
      : program_(program), cycle_(cycle), listener_(listener) {}

  /// Shows a form beside the main window. Those that go and come with it count as open until `closed`.
  void show(const Form& form);
  bool isOpen(const Form& form) const;
  /// The user has closed a form that was shown beside the main window.
  void closed(const Form& form);

  /// Shows a form and returns when the user has closed it. Throws Unwind where the program was closed
  /// meanwhile.
  ModalOutcome showModal(const ModalForm& form);

  /// The main window is minimised to the tray, or restored.
  void setMinimised(bool minimised);

 private:
  Program& program_;
  WatchCycle& cycle_;
  TerminalListener& listener_;
  std::vector<Form> open_;
};

} // namespace soran
