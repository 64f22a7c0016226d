// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QUrl>
#include <functional>
#include <memory>

namespace soran {

/// Why a transfer failed.
enum class NetFailure {
  None,
  Cancelled,   ///< by this program: the wait was ended, or the program closed
  Unreachable, ///< no name, nobody who listens, no secure connection
  TimedOut,
  Cut,      ///< the answer did not come to its end, or broke the protocol
  Status,   ///< the server answered with nothing to take: an error status and no page
  TooLarge, ///< more than is taken
  NoFile,   ///< an address of a file that is none, or none that can be read
};

/// What a transfer brought.
struct Reply {
  bool ok = false; ///< the transfer came to its end; else the body is empty and `failure` tells why
  QByteArray body = {};
  NetFailure failure = NetFailure::None;
  int status = 0;          ///< of HTTP, where there was an answer
  QDateTime modified = {}; ///< when it was changed last, in UTC; invalid where nobody told

  static Reply failed(NetFailure why, int status = 0) { return {.failure = why, .status = status}; }

  /// The body as text: UTF-8 where it is valid, else Latin-1.
  QString text() const;

  /// Whether it holds something of the endpoint's own, and no page that tells an error.
  bool isAnswer() const { return ok && !body.isEmpty() && !body.startsWith('<'); }
};

/// A transfer that was begun ahead of its need. Destroying it ends it.
class Transfer {
 public:
  virtual ~Transfer() = default;

  /// What it brought; waits in the event loop where it is still under way. Called once. Throws Unwind where
  /// the program was closed.
  virtual Reply take() = 0;
};

/// A client that fetches addresses. open() and Transfer::take() wait in the event loop, so keys and ticks are
/// served meanwhile.
class Inet {
 public:
  virtual ~Inet() = default;

  /// Fetches `url` (http, https or file) and returns when it is there or failed. Throws Unwind where the
  /// program was closed during the wait.
  virtual Reply open(const QUrl& url) = 0;

  /// Begins to fetch `url` and returns without waiting. `ended` is called with the reply as soon as that is
  /// there or failed, which may be inside this call; it destroys no transfer and throws nothing. Only so many
  /// of these are under way at a time that an open() need not wait for them; the others follow in their
  /// order, one that is waited for at once.
  virtual std::unique_ptr<Transfer> begin(const QUrl& url, std::function<void(const Reply&)> ended) = 0;

  /// True while a transfer of this client is under way.
  virtual bool stillExecuting() const = 0;

  /// Ends what is waited for; the wait returns at once with a failed reply. A transfer for which nobody waits
  /// yet goes on, as it would be begun later had it not been begun ahead.
  virtual void cancel() = 0;

  /// What came over a connection was not what its address names: no further transfer uses one that is kept.
  virtual void distrustConnections() = 0;

  /// Seconds after which a transfer that has not ended fails, counted from when it is sent.
  virtual void setRequestTimeout(int seconds) = 0;
  virtual int requestTimeout() const = 0;
};

} // namespace soran
