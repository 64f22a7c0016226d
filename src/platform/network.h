// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/courtesy.h"
#include "platform/inet.h"

#include <QByteArray>
#include <QSocketNotifier>
#include <QTimer>
#include <QUrl>
#include <functional>
#include <list>
#include <map>
#include <memory>

namespace soran {

class Network;

/// The address of the server that an address names: its scheme, host and port.
QUrl serverOf(const QUrl& url);

/// A watch over a socket, which may end inside its own signal.
struct EndsLater {
  void operator()(QSocketNotifier* watch) const;
};
using SocketWatch = std::unique_ptr<QSocketNotifier, EndsLater>;

/// A connection to a server over which bytes go, made by libcurl, through TLS and proxies where there are
/// any. One that needs neither these nor a look-up of a name is made by the system alone, as the twenty
/// libraries behind libcurl would cost a start more than all else. Destroying it closes it. Its network
/// outlives it.
class Connection {
 public:
  /// What a read found.
  enum class Came { Bytes, Nothing, End, Failure };

  /// Begins to connect to the server of `url`. `connected` is called once, behind this call, with None where
  /// bytes can go; it may destroy this connection.
  Connection(Network& network, const QUrl& url, std::function<void(NetFailure)> connected);
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  /// It leads to scheme, host and port of `url`.
  bool leadsTo(const QUrl& url) const;
  /// The proxy that it goes through, an empty address where it goes through none.
  const QUrl& proxy() const { return proxy_; }

  /// Sends what can be sent at once and takes it off `bytes`. False where the connection failed.
  bool write(QByteArray& bytes);
  /// Reads some of what came, into `bytes`.
  Came read(QByteArray& bytes);

  /// The address and the body of the latest report that came over it, by its hash.
  struct Report {
    QUrl of;
    size_t hash = 0;
  };
  const Report& latest() const { return latest_; }
  void noteReport(Report report) { latest_ = std::move(report); }

  /// Nothing is there to be read, neither bytes nor the end. What was there is lost.
  bool isSilent();

  /// Called whenever there may be something to read, or room to write; an empty action ends that. It may
  /// destroy this connection.
  void whenReadable(std::function<void()> action);
  void whenWritable(std::function<void()> action);

 private:
  friend class Network;
  void endConnecting(NetFailure failure);
  void acknowledge() const;
  int socket() const;

  Network& network_;
  QUrl server_;
  QUrl proxy_;
  std::function<void(NetFailure)> connected_;
  Report latest_;
  void* handle_ = nullptr; // of libcurl
  int socket_ = -1;        // of a connection without it
  QObject context_;
  SocketWatch readable_;
  SocketWatch writable_;
};

/// The connections that all clients of a program share. One over which an answer came whole is kept and
/// serves the next request to its server. Must not outlive the application object.
class Network {
 public:
  Network();
  ~Network();
  Network(const Network&) = delete;
  Network& operator=(const Network&) = delete;

  /// A kept connection to the server of `url` on which nothing has come since; null where there is none.
  std::unique_ptr<Connection> kept(const QUrl& url);

  /// Keeps a connection that has nothing to read until it is asked for, ends, or brings what nobody asked
  /// for.
  void keep(std::unique_ptr<Connection> connection);

  /// Closes the kept ones, whose answers may have got out of step with their requests.
  void closeKept() { kept_.clear(); }

  Courtesy& courtesy() { return courtesy_; }

 private:
  friend class Connection;
  class Driver;
  Driver& driver();

  Courtesy courtesy_;
  std::unique_ptr<Driver> driver_;              // made when the first connection is
  std::list<std::unique_ptr<Connection>> kept_; // the one that was kept longest comes first
};

} // namespace soran
