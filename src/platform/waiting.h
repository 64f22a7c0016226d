// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/shutdown.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <functional>

namespace soran {

/// A wait for the user in the middle of a sequence.
class Waiting {
 public:
  virtual ~Waiting() = default;

  /// Serves keys and ticks until `done` tells true. Throws Unwind where the program was closed meanwhile.
  virtual void until(const std::function<bool()>& done) = 0;
};

/// Waits in the event loop.
class LoopWaiting final : public Waiting {
 public:
  explicit LoopWaiting(const Shutdown& shutdown) : shutdown_(shutdown) {}
  void until(const std::function<bool()>& done) override {
    while (!done()) {
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
      shutdown_.check();
    }
  }

 private:
  const Shutdown& shutdown_;
};

} // namespace soran
