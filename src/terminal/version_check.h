// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace soran {

class Terminal;

/// Looks on the update endpoint for a newer program: at the start, and where the user asks.
class VersionCheck {
 public:
  explicit VersionCheck(Terminal& terminal) : terminal_(terminal) {}

  /// The check of the start. False where the answer was a page: the log stays unloaded then. Throws Unwind
  /// where the user wants the newer program.
  bool atStart();

  /// Asks, tells what was found, and on a yes closes to hand over.
  void onDemand();

 private:
  void offer(const QString& version);
  void tell(const QString& status, const QString& title, const QString& text);
  void passiveNotice(const QString& version);
  void showNotice(const QString& version, qsizetype paintFrom);

  Terminal& terminal_;
};

} // namespace soran
