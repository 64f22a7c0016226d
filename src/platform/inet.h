// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

namespace soran {

/// What a transfer brought.
struct Reply {
  /// False where the transfer failed: no connection, time-out, cut in the middle, cancelled, too large, or an
  /// error status without an HTML page. The body is then empty.
  bool ok = false;
  QByteArray body;

  /// The body as text: UTF-8 where it is valid, else Latin-1.
  QString text() const;
};

/// A client that fetches one address at a time. The call waits in the event loop, so keys and ticks are
/// served meanwhile.
class Inet {
 public:
  virtual ~Inet() = default;

  /// Fetches `url` (http, https or file) and returns when it is there or failed. Throws Unwind where the
  /// program was closed during the wait.
  virtual Reply open(const QUrl& url) = 0;

  /// True while a transfer of this client is under way.
  virtual bool stillExecuting() const = 0;

  /// Ends what is open; the wait returns at once with a failed reply.
  virtual void cancel() = 0;

  /// Seconds after which a transfer that has not ended fails.
  virtual void setRequestTimeout(int seconds) = 0;
  virtual int requestTimeout() const = 0;
};

} // namespace soran
