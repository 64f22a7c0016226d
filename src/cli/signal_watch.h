// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <array>
#include <memory>

namespace soran {

/// Brings the signals of the system into the event loop. At most one at a time: the system knows one handler
/// for each signal.
class SignalWatch final : public QObject {
  Q_OBJECT
 public:
  SignalWatch();
  ~SignalWatch() override;

 signals:
  /// The program is to end: interrupt, termination or a closed line.
  void closing();
  /// The terminal has another size.
  void resized();
  /// The program goes on after a stop.
  void resumed();

 private:
  void readSignals();

  std::array<int, 2> pipe_ = {-1, -1};
  std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace soran
