// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "runs/decode_run.h"
#include "runs/printing.h"
#include "runs/program.h"
#include "runs/watch_cycle.h"
#include "terminal/browser_pane.h"
#include "terminal/menus.h"

#include <QDate>
#include <QStringList>
#include <functional>
#include <vector>

namespace soran {

/// The terminal: load, first activation, keys, and the stop. Everything that a user or a timer does enters
/// here.
class View : public QObject {
  Q_OBJECT
 public:
  explicit View(Program& program);

  /// Load and first activation, up to the moment at which the terminal takes input. `notice` is a line that
  /// the start has to tell. Throws Unwind where the program was closed meanwhile.
  void start(const QString& notice);

  /// A key on the screen: 8 (back space), 13 (Enter), 27 (Escape) or a character.
  void handleKey(QChar key);

  /// The window's close box. While the browser pane is up it closes the pane only.
  void closeBox();

  /// Ends the program: stores, cleans up, closes everything. What waits unwinds behind it.
  void close();

  bool ended() const { return ended_; }
  /// The update module is to be started.
  bool updaterRequested() const { return updaterRequested_; }

  /// Carries out what a user or a timer started; a run that unwinds ends here.
  void guarded(const std::function<void()>& event) const;

  /// The text of the start-up banner; lines end with CR.
  QString banner() const;

  Program& program() { return program_; }
  WatchCycle& cycle() { return cycle_; }
  Printing& printing() { return printing_; }
  BrowserPane& pane() { return pane_; }
  const BrowserPane& pane() const { return pane_; }
  const WatchCycle& cycle() const { return cycle_; }
  Menus& menus() { return menus_; }

  /// The local date at the last key press.
  QDate today() const { return today_; }

  /// Shows a form beside the main window. Charts, cameras, log and commands count as open until
  /// `formClosed`: they go and come with the main window.
  void showForm(const Form& form);
  bool isOpen(const Form& form) const;
  /// Shows a form and returns when the user has closed it.
  ModalOutcome showModal(const ModalForm& form);
  /// The user has closed a form that was shown beside the main window.
  void formClosed(const Form& form);

  /// The main window is minimised to the tray, or restored.
  void setMinimised(bool minimised);

  /// Shows the dictionary form for one table until the user has closed it.
  void editDictionary(DictionaryMode mode);

  /// Shows the settings form until the user has closed it, then lets the screen follow the settings.
  void editSettings();

  /// Shows the notice about PDF files until the user has closed it, and does what the user chose there. False
  /// where the user left for the download.
  bool showAdobeNotice();

  /// What starts the automatic decode: its prompts differ.
  enum class Start { ByCommand, ByButton };
  /// Starts the automatic decode as ATO does, asking first where it is disabled.
  void startAutomaticDecode(Start start = Start::ByCommand);
  /// Asks the update endpoint for a newer program, tells what it found, and on a yes closes to hand over.
  void checkForNewVersion();
  /// Empties the screen and the staging buffer.
  void clearScreen();
  /// Explains the group that is selected on the screen (from `start`, in UTF-16 units from 0): its tip is
  /// shown, and its picture, where one is stored. Gives the tip's text, empty where there is none.
  QString explainSelection(qsizetype start, qsizetype length);
  /// Opens the page of AIS Japan.
  void showAis();
  /// The addresses of the start page and of the help of the home page endpoint.
  QString homePage() const;
  QString helpPage() const;

  /// "インターネットに接続できません" as a message.
  void noInternetAlert();

 signals:
  /// The program has stopped; the event loop may end.
  void stopped();

 private:
  void load(const QString& notice);
  void removeLeftovers() const;
  void readTimeZone();
  void firstActivation();
  void offerVersion(const QString& version);
  static QString versionQuestion(const QString& version);
  void checkVersionAtStart(bool& formsLoaded);
  void passiveNotice(const QString& version);
  void showNewVersionNotice(const QString& version, qsizetype paintFrom);
  bool updaterMayRun() const;
  void enter();
  void stop();
  bool countExit();

  Program& program_;
  Printing printing_;
  DecodeRun decode_;
  WatchCycle cycle_;
  BrowserPane pane_;
  Menus menus_;
  std::vector<Form> openForms_;
  QDate today_;
  bool enterSeen_ = false;
  bool ended_ = false;
  bool updaterRequested_ = false;
};

} // namespace soran
