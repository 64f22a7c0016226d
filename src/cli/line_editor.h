// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>
#include <QString>
#include <deque>
#include <functional>
#include <optional>
#include <utility>

namespace soran {

class Shutdown;

/// The line that the user types on a terminal, with editing and history, while the event loop runs. Whatever
/// else goes to the terminal goes through `print`, so that the typed line stays whole. There is at most one
/// at a time: the library behind it keeps its state in globals.
class LineEditor final : public QObject {
  Q_OBJECT
 public:
  LineEditor();
  ~LineEditor() override;

  /// Takes a line; nothing where the user ended the input (ESC ESC, Ctrl-D) or the terminal was closed.
  using Receiver = std::function<void(const std::optional<QString>&)>;

  /// The prompt and who takes the lines, from the next line on. Attribute sequences are let through.
  void setPrompt(const QByteArray& prompt, Receiver receiver);

  /// Shows the prompt where it does not stand yet; keys are taken from now on.
  void show();

  /// What the user has typed so far, and its replacement.
  QString typed() const;
  void setTyped(const QString& text);

  /// Prints lines, each with its line end, above the typed line.
  void print(const QByteArray& lines) const;

  /// Asks for one line in the middle of whatever goes on; what was typed before comes back behind it. Nothing
  /// where the user ended the input. Waits in the event loop; throws Unwind where the program is closed.
  std::optional<QString> ask(const QByteArray& prompt, const QString& initial, const Shutdown& shutdown);

  /// Takes the prompt away for good, the typed line staying where it is.
  void stop();

  /// Gives the terminal back as it was found, behind a stop; for a program that follows in this one's place.
  void release();

  /// Adds a line to the history.
  static void remember(const QString& line);

  /// The width of the terminal.
  static int columns();

  /// The terminal has another size, or the program has it again after a stop.
  void resized() const;
  void resumed() const;

 signals:
  /// The prompt is about to be shown; what has to stand above it is printed now.
  void aboutToShow();
  /// A key came.
  void keyPressed();
  /// An error message that would else go to standard error, into the typed line. It comes at any moment and
  /// from any thread: to be received through the event loop.
  void diagnostic(const QString& message);
  /// The prompt is to be shown from the event loop.
  void promptWanted();
  void lineTaken();

 private:
  struct Library;
  void hide();
  void readKey();
  void lineEnded(const char* line);
  void deliver();

  QByteArray prompt_;
  Receiver receiver_;
  QString initial_;
  std::deque<std::pair<Receiver, std::optional<QString>>> taken_; // lines on their way to who takes them
  QSocketNotifier notifier_;
  bool shown_ = false;
  bool ended_ = false;
  bool stopped_ = false;
  bool closed_ = false;
};

} // namespace soran
