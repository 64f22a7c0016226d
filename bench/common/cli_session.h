// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "common/loopback.h"
#include "support/own_folder.h"

#include <QElapsedTimer>
#include <QJsonObject>
#include <QProcess>

namespace soran::bench {

/// `soran-cli session` as a process against a loopback endpoint that runs by this thread's event loop.
class CliSession {
 public:
  /// Starts the program with its clock at `now` (ISO 8601), its lists as they are delivered, and with these
  /// settings over the standard ones.
  CliSession(const Loopback& endpoint, const QString& now, const QJsonObject& settings = {});
  ~CliSession();
  CliSession(const CliSession&) = delete;
  CliSession& operator=(const CliSession&) = delete;

  /// The event's state line, its requests counted. Ends this program where there is none.
  QJsonObject send(const QJsonObject& event);

  /// Makes this list the automatic one.
  void setAutomaticList(const QStringList& codes);

  /// Starts anew to count and to measure.
  void mark();

  struct Figures {
    double wall = 0; ///< seconds since mark(), processor time too
    ProcessFigures process;
    double growth = 0; ///< resident memory since mark(), MB
    qint64 requests = 0;
  };
  Figures figures() const;

 private:
  void start(const QString& now);
  void stop();
  QJsonObject readState();

  OwnFolder home_;
  QProcess process_;
  QElapsedTimer timer_;
  ProcessFigures marked_;
  qint64 requests_ = 0;
};

} // namespace soran::bench
