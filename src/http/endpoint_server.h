// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/endpoint.h"

#include <QMap>
#include <QStringList>
#include <memory>

class QTcpSocket;

namespace soran {

/// How an answer is sent: at once and whole, unless a field says otherwise.
struct Delivery {
  int delay = 0;                       ///< milliseconds before the first byte
  bool chunked = false;                ///< chunked coding instead of a Content-Length
  bool cutHead = false;                ///< the connection is closed in the middle of the head
  std::optional<qsizetype> cutAt = {}; ///< bytes of the body after which the connection is closed
  int dripBytes = 0;  ///< the answer comes in pieces of this many bytes; 0 for in one piece ...
  int dripPause = 50; ///< ... with this many milliseconds between them
};

/// The endpoint by Qt's server, with what tests ask of one beside.
class EndpointServer final : public Endpoint {
 public:
  EndpointServer();
  ~EndpointServer() override;

  bool start() override;

  /// Closes the port and cuts all connections; what is set stays.
  void stop();

  /// Stays the same behind stop().
  QString baseAddress() const override;

  void setAnswer(const QString& path, const Answer& answer) override;
  void removeFile(const QString& path);
  void setHandler(const QString& prefix, const Handler& handler) override;

  /// How the answers to paths that begin with `prefix` are sent; of several prefixes the longest counts. "/"
  /// stands for all paths.
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
