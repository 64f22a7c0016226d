// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <functional>

namespace soran {

/// Thrown by a wait that ends because the program was closed meanwhile. It carries the run behind the wait up
/// to the event that started it, past every step that would still touch the screen or the database. Each
/// event handler that can start a run catches it; it must not leave a handler.
struct Unwind {};

/// Tells the waits that the program is closing. One for each program; it outlives everything that waits.
class Shutdown final : public QObject {
  Q_OBJECT

 public:
  /// Asks for the shutdown; emits closing() the first time.
  void request();
  bool requested() const { return requested_; }

  /// Carries out what a user or a timer started, unless the shutdown was requested; what unwinds ends here.
  void guard(const std::function<void()>& event) const {
    if (requested_)
      return;
    try {
      event();
    } catch (const Unwind&) {
      // The program was closed during a wait of this event; there is nothing left to do.
    }
  }

  /// Throws Unwind once the shutdown was requested. Called behind every wait.
  void check() const {
    if (requested_)
      throw Unwind{};
  }

 signals:
  /// Every wait that is under way ends on this.
  void closing();

 private:
  bool requested_ = false;
};

} // namespace soran
