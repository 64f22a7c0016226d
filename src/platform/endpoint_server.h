// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

class QTcpSocket;

namespace soran {

/// What an endpoint answers to a request.
struct Answer {
  QByteArray body = {};
  int status = 200;
  QByteArray contentType = "text/plain; charset=utf-8";
  QList<std::pair<QByteArray, QByteArray>> headers = {}; ///< further header lines, such as Location
};

/// How an answer is sent: at once and whole, unless a field says otherwise.
struct Delivery {
  int delay = 0;                       ///< milliseconds before the first byte
  bool chunked = false;                ///< chunked coding instead of a Content-Length
  bool cutHead = false;                ///< the connection is closed in the middle of the head
  std::optional<qsizetype> cutAt = {}; ///< bytes of the body after which the connection is closed
  int dripBytes = 0;  ///< the answer comes in pieces of this many bytes; 0 for in one piece ...
  int dripPause = 50; ///< ... with this many milliseconds between them
};

/// An HTTP endpoint on loopback inside the process. It runs by the event loop of its thread, so a client that
/// waits in a nested event loop of the same thread is served. Paths are compared percent-decoded.
class EndpointServer {
 public:
  /// Answers the address of a request; nothing for an unknown one.
  using Handler = std::function<std::optional<Answer>(const QUrl& url)>;

  EndpointServer();
  ~EndpointServer();
  EndpointServer(const EndpointServer&) = delete;
  EndpointServer& operator=(const EndpointServer&) = delete;

  /// Listens on a free port, or again on the one that it had before stop(). False where that fails.
  bool start();

  /// Closes the port and cuts all connections; what is set stays.
  void stop();

  /// "http://127.0.0.1:PORT", without a trailing slash; stays the same behind stop().
  QString baseAddress() const;

  /// The answer to one path. It goes before a handler.
  void setAnswer(const QString& path, const Answer& answer);

  /// A file with status 200 under one path.
  void setFile(const QString& path, const QByteArray& bytes) { setAnswer(path, {.body = bytes}); }
  void removeFile(const QString& path);

  /// What answers the paths that begin with `prefix`; of several prefixes the longest counts.
  void setHandler(const QString& prefix, const Handler& handler);

  /// How the answers to paths that begin with `prefix` are sent; of several prefixes the longest counts. "/"
  /// stands for all paths. A path that nothing answers gets an HTML page with status 404.
  void setDelivery(const QString& prefix, const Delivery& delivery);

  /// The requests served last (10,000 at least), oldest first, each as path and query in their encoded form.
  QStringList requests() const { return requests_; }
  void clearRequests() { requests_.clear(); }

  /// The number of connections accepted since the server was made.
  int connections() const { return connections_; }

 private:
  class Listener;
  void serve(const QUrl& url, QTcpSocket* socket);
  Answer answerTo(const QUrl& url) const;

  QMap<QString, Answer> answers_;
  QMap<QString, Handler> handlers_;
  QMap<QString, Delivery> deliveries_;
  QStringList requests_;
  int connections_ = 0;
  quint16 port_ = 0;
  std::unique_ptr<Listener> listener_;
};

} // namespace soran
