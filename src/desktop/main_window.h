// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "terminal/view.h"

#include <QMainWindow>
#include <array>
#include <memory>

class QLabel;
class QMenu;
class QProgressBar;
class QTimer;

namespace Ui {
class MainWindow;
}

namespace soran {

class NotedLabel;
class BrowserFrame;
class MenuMirror;
class ReportAlert;
class ScreenView;
class StartBanner;
class ToolbarFrame;

/// The window `view`: shows what the terminal holds and passes on what the user does.
class MainWindow : public QMainWindow {
  Q_OBJECT
 public:
  /// With `demonstration` the window says on title, banner and status bar that its data are no weather.
  MainWindow(View& view, bool demonstration);
  ~MainWindow() override;

  ScreenView& screen();
  BrowserFrame& browser();
  /// The strip of image buttons.
  /// The menu that the right mouse button opens on the screen where the settings want it.
  QMenu& popup() { return *popup_; }

  /// Shows itself where it stood last, the first time over the whole screen.
  void appear();

  /// Looks at the terminal no more and leaves the screen.
  void release();

  /// True from when the user minimised the window until it is back, as far as the platform tells.
  bool minimised() const { return minimised_; }
  /// Comes back from the tray.
  void restore();

 signals:
  /// The user minimised the window, or restored it.
  void minimisedChanged(bool minimised);
  /// The mouse marked a stretch of the screen's text.
  void stretchSelected(qsizetype start, qsizetype length, QPoint mouse);
  /// A mouse button went down on the screen.
  void screenPressed();

 protected:
  /// What a button leaves goes to the screen, where it can be typed at any time.
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  bool event(QEvent* event) override;

 private:
  void makeStatusBar();
  void connectTerminal();
  void connectSpeech();
  void connectPane();
  void connectMenus();
  void showMenus();
  void applyDisplaySettings();
  void showPanels();
  void showInput();
  void showBusy();
  void showProgress(int done, int total);
  void showBanner();
  void showPane();
  void tellScreen();
  void placeOverlays();
  void openPopup(QPoint place);
  void hearOfMinimising();
  void keepShownState();
  void comeBack();
  void setMinimised(bool minimised);
  QString geometryFile() const;
  void rememberGeometry() const;

  View& view_;
  Terminal& terminal_;
  Console& console_;
  bool demonstration_;
  std::unique_ptr<Ui::MainWindow> ui_;
  StartBanner* banner_;
  QWidget* scrollBarCover_;
  QMenu* popup_;
  std::unique_ptr<MenuMirror> menus_;
  bool menusChanged_ = false;
  QLabel* panel1_ = nullptr;
  bool iconTellsConnected_ = true;
  NotedLabel* panel2_ = nullptr;
  QProgressBar* progress_ = nullptr;
  ReportAlert* alert_;
  /// They take turns: a reader that lags still finds each text where it came up.
  std::array<ReportAlert*, 8> screenAlerts_;
  size_t screenAlert_ = 0;
  QTimer* telling_;
  QString told_;
  bool minimised_ = false;
  Qt::WindowStates shownState_; ///< while it was not minimised
  bool released_ = false;
};

} // namespace soran
