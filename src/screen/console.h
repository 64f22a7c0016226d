// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "screen/running_log.h"
#include "screen/screen.h"
#include "screen/status_bar.h"
#include "store/settings.h"

namespace soran {

/// The terminal as all writers see it: the screen, the staging buffer behind it, the typed line and its echo,
/// the status bar, the log, and the operations that they write with.
class Console : public QObject {
  Q_OBJECT
 public:
  Console(const Clock& clock, Settings& settings) : log_(clock), settings_(settings) {}

  Screen& screen() { return screen_; }
  StatusBar& status() { return status_; }
  RunningLog& log() { return log_; }
  const Screen& screen() const { return screen_; }
  const StatusBar& status() const { return status_; }
  const RunningLog& log() const { return log_; }

  /// The buffer in which a run builds its text.
  QString staging;
  /// Codes shown so far, with a blank at both ends; the oldest are dropped beyond 200 characters.
  QString recentCodes = QStringLiteral(" ");
  /// The group of the last group run: its name is not coloured.
  QString groupName;

  /// The characters typed so far, and their echo.
  const QString& inputlbl() const { return inputlbl_; }
  const QString& padlbl() const { return padlbl_; }
  /// Sets the typed line; the echo follows.
  void setInput(const QString& text);
  /// Sets the echo alone.
  void setPad(const QString& text);

  void appendScreen(const QString& text) { screen_.append(text); }
  void caretToEnd() { screen_.caretToEnd(); }
  void setPanel(int panel, const QString& text);
  void addLogEntry(const QString& message) { log_.add(message); }

  /// Writes the prompt.
  void showReady();

  /// Whether the next prompt ends with a line end of its own; each prompt forgets it.
  void setPromptGap(bool gap) { promptGap_ = gap; }

  /// SQ was asked for: until a run has ended the prompt puts the saved text of panel 2 back, and the next run
  /// is a sequence.
  bool sequencePending() const { return sequencePending_; }
  void setSequencePending(bool pending) { sequencePending_ = pending; }

  /// Paints the whole screen by the settings.
  void repaint();

  /// Paints the whole screen by the settings, then empties the typed line and its echo. This is the only
  /// place that empties the typed line.
  void colourScreenText();

  /// Gives the screen the colour and weight of the settings.
  void applyDisplaySettings();

  /// The hourglass while a run is under way.
  bool busy() const { return busy_; }
  void setBusy(bool busy);

  /// The banner over the screen at start.
  bool overlay() const { return overlay_; }
  void setOverlay(bool visible);

 signals:
  void inputChanged();
  void busyChanged();
  /// `done` of `total` stations of a run are taken over.
  void progress(int done, int total);
  /// The cycle found new reports, each as the log tells it: "RJTT METAR CHANGED".
  void newReports(const QStringList& notices);
  void overlayChanged();
  /// Font, size, colours, scroll bar, pad or toolbar follow the settings anew.
  void displaySettingsApplied();

 private:
  Screen screen_;
  StatusBar status_;
  RunningLog log_;
  Settings& settings_;
  QString inputlbl_;
  QString padlbl_;
  bool promptGap_ = false;
  bool sequencePending_ = false;
  bool busy_ = false;
  bool overlay_ = false;
};

} // namespace soran
