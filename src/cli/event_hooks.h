// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/standard_stream.h"
#include "platform/http_parts.h"

#include <QProcess>
#include <QStringList>
#include <QTimer>
#include <QUrl>
#include <deque>
#include <memory>

namespace soran {

/// Hands events on, as JSON: to a program on its standard input, never through a shell, and to an address by
/// POST. What the program writes to its standard output is dropped. Of each kind at most one is under way,
/// for 30 seconds at most; what failed is told, and the next event goes on.
class EventHooks final : public QObject {
  Q_OBJECT
 public:
  /// `command` is a program with its arguments, quoted as in a shell; empty for none, as is an empty address.
  EventHooks(const QString& command, const QUrl& address, StandardStream& errors);
  /// Tells how many events were not handed on, where some were not.
  ~EventHooks() override;

  /// Why the words of a call cannot be used; empty where they can.
  static QString faultOf(const QString& command, const QString& address);

  void give(const QByteArray& json);

  /// Nothing waits and nothing is under way.
  bool isIdle() const { return !process_ && !isPosting_ && toRun_.empty() && toPost_.empty(); }

 private:
  void add(std::deque<QByteArray>& queue, const QByteArray& json);
  void runNext();
  void runEnded();
  void postNext();
  void tell(const QString& what);

  QStringList command_;
  QUrl address_;
  StandardStream& errors_;
  std::deque<QByteArray> toRun_;
  std::deque<QByteArray> toPost_;
  std::unique_ptr<QProcess> process_;
  QTimer limit_;
  bool timedOut_ = false;
  std::unique_ptr<EventPost> post_;
  bool isPosting_ = false;
};

} // namespace soran
