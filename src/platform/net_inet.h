// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/inet.h"
#include "platform/shutdown.h"

#include <QList>
#include <QUrl>
#include <functional>
#include <memory>

namespace soran {

class Network;

/// The connections that all clients of a program share: a list of stations is fetched over one connection
/// that is kept alive. No cookies; a body is kept only to be asked whether it changed (Courtesy). A proxy is
/// used only where the environment names one (http_proxy and its kin), never for loopback. Must not outlive
/// the application object.
std::shared_ptr<Network> makeNetwork();

/// The client for http, https and file addresses, and for files compiled into the program (qrc).
///
/// A good answer has the status 200 and a body that is whole by its own account (RFC 9112). An error status
/// whose body begins with "<" is an answer like any other. Redirects are followed, at most ten, never from
/// https to http and never from this machine (loopback) to another server. A request whose connection ended
/// before any answer came is sent once more, and so is one whose kept connection brought what nobody asked
/// for. A file address is read at once, without the event loop. open() and begin() may be called while
/// another wait of the same client goes on; each call has its own transfer.
class NetInet final : public Inet {
 public:
  static constexpr qint64 largestBody = 64LL * 1024 * 1024;

  /// A body of more than `bodyLimit` bytes counts as a failure. `shutdown` outlives the client.
  NetInet(std::shared_ptr<Network> network, const Shutdown& shutdown, qint64 bodyLimit = largestBody);
  ~NetInet() override;
  NetInet(const NetInet&) = delete;
  NetInet& operator=(const NetInet&) = delete;

  Reply open(const QUrl& url) override;
  std::unique_ptr<Transfer> begin(const QUrl& url, std::function<void(const Reply&)> ended) override;
  bool stillExecuting() const override { return !transfers_.isEmpty(); }

  /// Ends all transfers that are waited for, those of outer waits included.
  void cancel() override;

  void distrustConnections() override;

  /// The total time of a transfer in seconds, redirects included; 60 at first, less than 1 counts as 1.
  void setRequestTimeout(int seconds) override { timeout_ = seconds < 1 ? 1 : seconds; }
  int requestTimeout() const override { return timeout_; }

  /// Called with the address of each transfer before it is asked; not for redirects.
  void onRequest(std::function<void(const QUrl&)> hook) { hook_ = std::move(hook); }

 private:
  class OneTransfer;
  void sendQueued();
  Reply readFile(const QUrl& url) const;

  std::shared_ptr<Network> network_;
  const Shutdown& shutdown_;
  qint64 bodyLimit_;
  int timeout_ = 60;
  std::function<void(const QUrl&)> hook_;
  QList<OneTransfer*> transfers_; // those that have not ended
};

} // namespace soran
