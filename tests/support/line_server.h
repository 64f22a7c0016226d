// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QObject>
#include <QTcpServer>
#include <QTcpSocket>
#include <QUrl>
#include <functional>

namespace soran {

/// A server on loopback that answers each request with bytes of the test's own making.
class LineServer {
 public:
  struct Request {
    QByteArray target;    ///< as it was asked for
    int number = 0;       ///< from 1, over all connections
    int ofConnection = 0; ///< from 1
    QTcpSocket& socket;
    QByteArray head; ///< all its lines

    /// The value of a header line, empty where there is none.
    QByteArray field(const QByteArray& name) const {
      const qsizetype at = head.indexOf(QByteArray("\r\n" + name + ": "));
      const qsizetype begin = at + name.size() + 4;
      return at < 0 ? QByteArray() : head.mid(begin, head.indexOf("\r\n", begin) - begin);
    }

    void send(const QByteArray& bytes) const { socket.write(bytes); }
    /// Closes once everything is sent.
    void hangUp() const { socket.disconnectFromHost(); }
  };

  explicit LineServer(std::function<void(Request&)> answer) : answer_(std::move(answer)) {
    server_.listen(QHostAddress::LocalHost);
    QObject::connect(&server_, &QTcpServer::newConnection, &server_, [this] { accept(); });
  }

  QUrl at(const QString& path) const {
    return QUrl(QStringLiteral("http://127.0.0.1:%1").arg(server_.serverPort()) + path);
  }
  int connections() const { return connections_; }

  QByteArrayList requests; ///< their targets

 private:
  void accept() {
    while (QTcpSocket* socket = server_.nextPendingConnection()) {
      ++connections_;
      QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
      QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket, number = 0]() mutable {
        for (qsizetype end = 0; (end = socket->peek(65536).indexOf("\r\n\r\n")) >= 0;) {
          const QByteArray head = socket->read(end + 4);
          requests.append(head.split(' ').value(1));
          Request request{requests.last(), int(requests.size()), ++number, *socket, head};
          answer_(request);
        }
      });
    }
  }

  std::function<void(Request&)> answer_;
  QTcpServer server_;
  int connections_ = 0;
};

} // namespace soran
