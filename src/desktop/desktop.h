// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/main_window.h"
#include "desktop/services/dialog_service.h"
#include "desktop/services/form_service.h"
#include "desktop/services/page_service.h"
#include "desktop/services/printer_service.h"
#include "desktop/services/sound_service.h"
#include "platform/waiting.h"
#include "start/launch.h"
#include "terminal/view.h"

namespace soran {

/// One run of the program with its window.
class Desktop : public QObject {
  Q_OBJECT
 public:
  explicit Desktop(Launch& launch);
  ~Desktop() override;

  /// Runs the start to the point at which the window takes input. False where the program ended at once; the
  /// user was told why.
  bool start();

  /// Starts and runs until the program has stopped; the exit status.
  int run(bool showsBoard = false);

  Terminal& terminal() { return view_.terminal(); }
  MainWindow& window() { return *window_; }
  FormService& forms() { return forms_; }

 private:
  bool open(QString& notice);
  void countAccess();
  void showWindow();
  void onStopped();
  void explain(qsizetype start, qsizetype length, QPoint mouse);
  void setMinimised(bool minimised);

  Launch& launch_;
  DialogService dialogs_;
  FormService forms_;
  SoundService sounds_;
  PrinterService printers_;
  PageService pages_;
  LoopWaiting waiting_;
  Program program_;
  View view_;
  std::unique_ptr<class Opening> opening_;
  NetInet counterLine_;
  std::unique_ptr<Transfer> counted_;
  std::unique_ptr<MainWindow> window_;
};

} // namespace soran
