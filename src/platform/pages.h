// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace soran {

/// Web pages, shown in the browser pane of the main window or by the system's own browser.
class Pages {
 public:
  virtual ~Pages() = default;

  /// Hands the address to the system's browser.
  virtual void openExternally(const QString& address) = 0;

  /// Brings the browser pane up with the address.
  virtual void openInPane(const QString& address) = 0;

  /// Goes back to the page that was in the pane before, where there was one.
  virtual void goBack() {}

  /// Stops what loads and takes the pane away.
  virtual void closePane() = 0;
};

} // namespace soran
