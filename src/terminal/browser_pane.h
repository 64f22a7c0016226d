// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "runs/program.h"
#include "terminal/terminal_listener.h"

namespace soran {

/// The browser pane of the main window: a sub-state in which a web page stands in place of the screen.
class BrowserPane {
 public:
  BrowserPane(Program& program, TerminalListener& listener) : program_(program), listener_(listener) {}

  bool visible() const { return visible_; }
  /// A page is up that the menus make way for.
  bool menusTaken() const { return menusTaken_; }

  /// Opens the address in the pane where ブラウザー is true, else by the system's browser. The menus make way
  /// for the page unless they are to be left alone.
  enum class MenuRule { MakeWay, LeftAlone };
  void openPage(const QString& address, MenuRule menus = MenuRule::MakeWay);

  /// Takes the pane away and gives panel 2 back its text.
  void close();

  /// What became of the page in the pane.
  enum class Loading { Started, Completed, Failed };
  void pageState(Loading state);

  /// What the address line makes of a text that was `before` until the last key: a first "h" becomes the
  /// beginning of a web address, one that a back space left does not.
  static QString expandedAddress(const QString& before, const QString& typed);

 private:
  Program& program_;
  TerminalListener& listener_;
  bool visible_ = false;
  bool menusTaken_ = false;
};

} // namespace soran
