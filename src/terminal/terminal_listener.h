// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace soran {

/// Is told what became of the terminal beside what is written on its console.
class TerminalListener {
 public:
  /// The program has stopped; the event loop may end.
  virtual void onStopped() {}
  /// An entry of the menus or a button may look otherwise than before.
  virtual void onMenusChanged() {}
  /// The browser pane came up or went.
  virtual void onPaneChanged() {}

  /// Hears nothing.
  static TerminalListener& none() {
    static TerminalListener deaf;
    return deaf;
  }

 protected:
  TerminalListener() = default;
  TerminalListener(const TerminalListener&) = default;
  TerminalListener& operator=(const TerminalListener&) = default;
  ~TerminalListener() = default;
};

} // namespace soran
