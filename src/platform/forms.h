// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace soran {

/// The small windows of the program, by their names. What they show and do lies in classes of the core; a
/// front end mirrors these.
class Forms {
 public:
  virtual ~Forms() = default;

  /// Shows the form beside the main window.
  virtual void show(const QString& name) = 0;

  /// Shows the form and returns when the user has closed it.
  virtual void showModal(const QString& name) = 0;

  /// Takes the form off the screen.
  virtual void hide(const QString& name) = 0;
};

} // namespace soran
