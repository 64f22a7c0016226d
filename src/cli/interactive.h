// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/cups_printers.h"
#include "cli/line_editor.h"
#include "cli/signal_watch.h"
#include "cli/terminal_desk.h"
#include "cli/terminal_output.h"
#include "start/launch.h"
#include "start/opening.h"
#include "terminal/view.h"

#include <optional>

namespace soran {

/// The program on a terminal: typed lines, the screen as it grows, and the automatic cycle behind the prompt.
class Interactive final : public QObject {
  Q_OBJECT
 public:
  Interactive(const LaunchOptions& options, DeliveredFile delivered, TerminalStyle style);

  /// Runs to the end of the program. The exit status: 0, or 1 where the program could not start.
  int run();

 signals:
  void paneShown();

 private:
  void enterLine(const QString& line);
  void offerRest();
  void end();
  void connectConsole();
  void followTypedLine();
  void followStatus();
  void tellSlowRun();
  bool showForm(const Form& form);
  void showLog();
  void showPictureName();
  int failedStart(const Opening& opening, Opening::Result result);

  LineEditor editor_;
  TerminalOutput output_;
  SignalWatch signals_;
  LoopTimers timers_;
  Launch launch_;
  LoopWaiting waiting_;
  TerminalDesk desk_;
  CupsPrinters printers_;
  Program program_;
  View view_;
  Terminal& terminal_;
  QTimer slow_; // runs out where a run takes long
  bool started_ = false;
  QString offered_; // the rest of the typed line that the core kept, as it was shown
  QString changes_; // codes of the stations with a new report
  QString panel1_;  // the state of the network as it was told
};

} // namespace soran
