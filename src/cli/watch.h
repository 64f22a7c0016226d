// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/event_hooks.h"
#include "cli/headless.h"
#include "cli/signal_watch.h"
#include "cli/watch_event.h"
#include "start/launch.h"
#include "terminal/view.h"

#include <QHash>
#include <map>

namespace soran {

/// The watch without a screen: it tells what happens, an event a line, until it is ended by a signal.
class Watch final : public QObject {
  Q_OBJECT
 public:
  Watch(const LaunchOptions& options, DeliveredFile delivered, StandardStream& output,
        StandardStream& errors);

  /// The exit status: 0, 1 where the program could not start or knows no such group (the reason on standard
  /// error), 4 where the output is lost.
  int run();

 private:
  std::optional<QStringList> codes();
  void second();
  std::vector<WatchEvent> newReports();
  void takeAlarms();
  void addReport(WatchEvent& event, ReportKind kind) const;
  void lookAtAges();
  void lookAtNetwork();
  void tell(const WatchEvent& event);
  QDateTime now() const;

  LaunchOptions options_;
  StandardStream& output_;
  StandardStream& errors_;
  SignalWatch signals_;
  LoopTimers timers_;
  Launch launch_;
  LoopWaiting waiting_;
  Headless desk_;
  Program program_;
  View view_;
  EventHooks hooks_;
  QTimer timer_;
  /// A report as it was told last.
  struct Told {
    int number = 0; // of what is known
    QString report = {};
  };
  std::map<std::pair<QString, ReportKind>, Told> told_;
  QHash<QString, Freshness> ages_;
  QHash<QString, bool> expired_;
  std::optional<bool> connected_;
  QString panel1_;
  QString note_;      // what is wrong with the files
  bool lost_ = false; // what was told could not be written
};

} // namespace soran
