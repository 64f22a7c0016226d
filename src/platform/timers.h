// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>
#include <QTimer>
#include <functional>
#include <memory>
#include <vector>

namespace soran {

/// A periodic timer. Its interval begins when it is enabled; enabling one that is changes nothing.
class Timer {
 public:
  virtual ~Timer() = default;
  virtual void setInterval(int milliseconds) = 0;
  virtual void setEnabled(bool enabled) = 0;
  virtual bool enabled() const = 0;
};

/// Makes timers. All timers of a program come from one maker, so that a test can move them.
class Timers {
 public:
  virtual ~Timers() = default;

  /// A disabled timer of one second whose ticks call `tick`.
  virtual std::unique_ptr<Timer> make(std::function<void()> tick) = 0;
};

/// Timers that run by the event loop.
class LoopTimers final : public Timers {
 public:
  std::unique_ptr<Timer> make(std::function<void()> tick) override;
};

/// Timers that stand still until they are moved by hand, a second at a time. In each second those that fall
/// due tick in the order in which they were made.
class SteppedTimers final : public Timers {
 public:
  SteppedTimers();
  ~SteppedTimers() override;
  std::unique_ptr<Timer> make(std::function<void()> tick) override;

  /// One second passes.
  void step();

 private:
  class Stepped;
  std::shared_ptr<std::vector<Stepped*>> timers_;
};

} // namespace soran
