// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "terminal/terminal.h"

#include <QObject>

namespace soran {

/// The terminal for a front end of widgets: what becomes of it is told by signals.
class View : public QObject, private TerminalListener {
  Q_OBJECT
 public:
  explicit View(Program& program);

  Terminal& terminal() { return terminal_; }

 signals:
  /// The program has stopped; the event loop may end.
  void stopped();
  /// An entry of the menus or a button may look otherwise than before.
  void menusChanged();
  /// The browser pane came up or went.
  void paneChanged();

 private:
  void onStopped() override { emit stopped(); }
  void onMenusChanged() override { emit menusChanged(); }
  void onPaneChanged() override;

  Terminal terminal_;
};

} // namespace soran
