// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/timers.h"

#include <algorithm>

namespace soran {

namespace {

class LoopTimer final : public Timer {
 public:
  explicit LoopTimer(std::function<void()> tick) {
    timer_.setInterval(1000);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, std::move(tick));
  }
  void setInterval(int milliseconds) override { timer_.setInterval(milliseconds); }
  void setEnabled(bool enabled) override {
    if (!enabled)
      timer_.stop();
    else if (!timer_.isActive())
      timer_.start();
  }
  bool enabled() const override { return timer_.isActive(); }

 private:
  QTimer timer_;
};

} // namespace

std::unique_ptr<Timer> LoopTimers::make(std::function<void()> tick) {
  return std::make_unique<LoopTimer>(std::move(tick));
}

class SteppedTimers::Stepped final : public Timer {
 public:
  Stepped(std::function<void()> tick, std::shared_ptr<std::vector<Stepped*>> registry)
      : tick_(std::move(tick)), registry_(std::move(registry)) {
    registry_->push_back(this);
  }
  // The slot stays, empty, so that a timer removed during a step does not move the others.
  ~Stepped() override {
    std::replace(registry_->begin(), registry_->end(), this, static_cast<Stepped*>(nullptr));
  }
  Stepped(const Stepped&) = delete;
  Stepped& operator=(const Stepped&) = delete;

  void setInterval(int milliseconds) override { interval_ = milliseconds; }
  void setEnabled(bool enabled) override {
    if (enabled_ != enabled)
      elapsed_ = 0;
    enabled_ = enabled;
  }
  bool enabled() const override { return enabled_; }

  void step() {
    if (!enabled_)
      return;
    elapsed_ += 1000;
    if (elapsed_ < interval_)
      return;
    elapsed_ = 0;
    tick_();
  }

 private:
  std::function<void()> tick_;
  std::shared_ptr<std::vector<Stepped*>> registry_;
  int interval_ = 1000;
  int elapsed_ = 0;
  bool enabled_ = false;
};

SteppedTimers::SteppedTimers() : timers_(std::make_shared<std::vector<Stepped*>>()) {}
SteppedTimers::~SteppedTimers() = default;

std::unique_ptr<Timer> SteppedTimers::make(std::function<void()> tick) {
  return std::make_unique<Stepped>(std::move(tick), timers_);
}

void SteppedTimers::step() {
  const size_t count = timers_->size();
  for (size_t i = 0; i < count; ++i) {
    if (Stepped* timer = timers_->at(i))
      timer->step();
  }
}

} // namespace soran
