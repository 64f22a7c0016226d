// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace soran {

/// Thrown by a wait that ends because the program was closed meanwhile. It carries the run behind the wait up
/// to the event that started it, past every step that would still touch the screen or the database.
struct Unwind {};

/// Tells the waits that the program is closing. One for each program; it outlives everything that waits.
class Shutdown {
 public:
  void request() { requested_ = true; }
  bool requested() const { return requested_; }

  /// Throws Unwind once the shutdown was requested. Called behind every wait.
  void check() const {
    if (requested_)
      throw Unwind{};
  }

 private:
  bool requested_ = false;
};

} // namespace soran
