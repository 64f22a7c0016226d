// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QSystemTrayIcon>

namespace soran {

/// The form `taskicon`: the program's icon in the tray while its window is minimised.
class TaskIcon : public QObject {
  Q_OBJECT
 public:
  explicit TaskIcon(bool connected);

  /// True where the desktop has a tray.
  static bool isAvailable() { return QSystemTrayIcon::isSystemTrayAvailable(); }

 signals:
  /// The user wants the window back.
  void restoreRequested();

 private:
  QSystemTrayIcon icon_;
};

} // namespace soran
