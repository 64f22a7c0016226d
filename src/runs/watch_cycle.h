// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "runs/decode_run.h"
#include "runs/printing.h"
#include "runs/program.h"

#include <memory>

namespace soran {

/// The timers that keep the program alive between commands: the network watch with the automatic cycle, the
/// end of the start-up overlay, and the retry of a sequence whose files have not come yet.
class WatchCycle {
 public:
  WatchCycle(Program& program, DecodeRun& decode, Printing& printing);

  /// Sets the timers as they are when the first activation has ended.
  void start();
  /// Stops all timers for good.
  void stop();

  void enableWatch(bool enabled) { timer_->setEnabled(enabled); }
  bool watchEnabled() const { return timer_->enabled(); }
  bool overlayTimerEnabled() const { return timer2_->enabled(); }
  bool retryEnabled() const { return timer4_->enabled(); }
  bool trayTimerEnabled() const { return timer1_->enabled(); }
  /// Starts the one second after which the tray icon goes.
  void startTrayTimer() { timer1_->setEnabled(true); }
  /// The icon stays.
  void stopTrayTimer() { timer1_->setEnabled(false); }

  /// Takes the setting バッファ over.
  void readBufferLevel();

  /// Where マニュアル入力時停止 is true: stops the watch and tells it on panel 2 and in the log.
  void stopAutoOnManual();

  /// Starts the automatic decode: the typed ATO, from its third step on.
  void startAutomatic();

  /// Runs what the user asked for; RL and the watch repeat it from then on. Waits in the event loop.
  void run(const RunRequest& request);
  /// Runs once more what was run last.
  void runAgain(RunOrigin origin);

  /// Asks for the reports of those of the stations of which none is known, and shows nothing. Waits in the
  /// event loop.
  void askForUnknown(const QStringList& codes);

  /// Where a sequence waits for its files: fetches them and runs it again, once, without its pause.
  void completeSequence();

  void onWatchTick();
  void onOverlayTick();
  void onSequenceRetry();

 private:
  std::unique_ptr<Timer> makeTimer(void (WatchCycle::*tick)());
  void onTrayTick();
  void onAlarmTick();
  void pass();
  bool probe();
  bool answers(const QUrl& address);
  void networkFailed();
  void alert();
  void networkReturned();
  /// The icon in the tray shows the state of the network anew.
  void renewTaskIcon();
  void cycle();
  void fetchCycleFiles();
  bool cycleIsDue() const;
  void runChanged(int acts);
  QString announceChanges(int acts);
  void show(const GatheredRun& run, const QString& behind = {});

  Program& program_;
  DecodeRun& decode_;
  Printing& printing_;
  std::unique_ptr<Timer> timer_;
  std::unique_ptr<Timer> timer2_;
  std::unique_ptr<Timer> timer4_;
  std::unique_ptr<Timer> timer1_;
  std::unique_ptr<Timer> alarmTimer_; ///< sounds what is due, also while the watch stands still
  int watchLimit_ = 0;
  int overlayTicks_ = 0;
  int retries_ = 0;
};

} // namespace soran
