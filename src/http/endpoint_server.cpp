// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "http/endpoint_server.h"

#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace soran {

namespace {

template <typename Value>
const Value* longestPrefix(const QMap<QString, Value>& map, const QString& path) {
  const Value* best = nullptr;
  qsizetype length = -1;
  for (auto it = map.cbegin(); it != map.cend(); ++it) {
    if (path.startsWith(it.key()) && it.key().size() > length) {
      best = &it.value();
      length = it.key().size();
    }
  }
  return best;
}

QByteArray chunk(const QByteArray& bytes) {
  return QByteArray::number(bytes.size(), 16) + "\r\n" + bytes + "\r\n";
}

QByteArray headOf(const Answer& answer, bool chunked) {
  QByteArray head =
      "HTTP/1.1 " + QByteArray::number(answer.status) + (answer.status < 400 ? " OK" : " Error");
  head += "\r\nContent-Type: " + answer.contentType;
  for (const auto& [name, value] : answer.headers)
    head += "\r\n" + name + ": " + value;
  if (answer.status != 204)
    head += chunked ? QByteArray("\r\nTransfer-Encoding: chunked")
                    : "\r\nContent-Length: " + QByteArray::number(answer.body.size());
  return head + "\r\n\r\n";
}

// The bytes that go over the line, and whether the connection ends behind them.
std::pair<QByteArray, bool> wireForm(const Answer& answer, const Delivery& delivery) {
  const QByteArray head = headOf(answer, delivery.chunked);
  if (delivery.cutHead)
    return {head.left(head.size() / 2), true};
  const bool cut = delivery.cutAt.has_value();
  const QByteArray body = answer.body.left(delivery.cutAt.value_or(answer.body.size()));
  if (!delivery.chunked)
    return {head + body, cut};
  QByteArray chunks;
  for (qsizetype at = 0; at < body.size(); at += 4096)
    chunks += chunk(body.mid(at, 4096));
  return {head + chunks + (cut ? QByteArray() : chunk({})), cut};
}

// Does nothing where the connection has ended meanwhile.
void after(int milliseconds, QTcpSocket* socket, const std::function<void()>& action) {
  auto* timer = new QTimer(socket);
  timer->setSingleShot(true);
  QObject::connect(timer, &QTimer::timeout, timer, action);
  QObject::connect(timer, &QTimer::timeout, timer, &QObject::deleteLater);
  timer->start(milliseconds);
}

void drip(QTcpSocket* socket, const QByteArray& bytes, const Delivery& delivery, bool close) {
  socket->write(bytes.left(delivery.dripBytes));
  const QByteArray rest = bytes.mid(delivery.dripBytes);
  if (!rest.isEmpty())
    after(delivery.dripPause, socket, [=] { drip(socket, rest, delivery, close); });
  else if (close)
    socket->disconnectFromHost();
}

void send(QTcpSocket* socket, const Answer& answer, const Delivery& delivery) {
  const auto [bytes, close] = wireForm(answer, delivery);
  if (delivery.dripBytes > 0) {
    drip(socket, bytes, delivery, close);
    return;
  }
  socket->write(bytes);
  if (close)
    socket->disconnectFromHost();
}

} // namespace

// Reads the requests of each connection. Only GET is known, so nothing stands behind a head but the next one.
class EndpointServer::Listener final : public QTcpServer {
 public:
  explicit Listener(EndpointServer& owner) : owner_(owner) {}

 protected:
  void incomingConnection(qintptr handle) override {
    ++owner_.connections_;
    auto* socket = new QTcpSocket(this);
    connect(socket, &QTcpSocket::readyRead, this, [=, this] { read(socket); });
    connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    socket->setSocketDescriptor(handle);
  }

 private:
  void read(QTcpSocket* socket) {
    constexpr qsizetype mostHead = 65536;
    while (socket->isOpen()) {
      const QByteArray come = socket->peek(mostHead);
      const qsizetype end = come.indexOf("\r\n\r\n");
      if (end < 0) {
        // What is no such request, a secure connection's first bytes for one, is not waited for.
        constexpr QByteArrayView method = "GET /";
        if (come.size() == mostHead || !come.startsWith(method.first(std::min(come.size(), method.size()))))
          socket->abort();
        return;
      }
      socket->skip(end + 4);
      const QByteArrayList line = come.left(come.indexOf("\r\n")).split(' ');
      if (line.size() != 3 || line[0] != "GET" || !line[1].startsWith('/')) {
        socket->abort();
        return;
      }
      owner_.serve(QUrl::fromEncoded(QByteArray("http://127.0.0.1" + line[1])), socket);
    }
  }

  EndpointServer& owner_;
};

EndpointServer::EndpointServer() : listener_(std::make_unique<Listener>(*this)) {}

EndpointServer::~EndpointServer() = default;

bool EndpointServer::start() {
  if (listener_->isListening())
    return true;
  if (!listener_->listen(QHostAddress::LocalHost, port_))
    return false;
  port_ = listener_->serverPort();
  return true;
}

void EndpointServer::stop() {
  listener_->close();
  const auto sockets = listener_->findChildren<QTcpSocket*>();
  for (QTcpSocket* socket : sockets)
    socket->abort();
}

QString EndpointServer::baseAddress() const {
  return u"http://127.0.0.1:"_s + QString::number(port_);
}

void EndpointServer::setAnswer(const QString& path, const Answer& answer) {
  answers_.insert(path, answer);
}

void EndpointServer::removeFile(const QString& path) {
  answers_.remove(path);
}

void EndpointServer::setHandler(const QString& prefix, const Handler& handler) {
  handlers_.insert(prefix, handler);
}

void EndpointServer::setDelivery(const QString& prefix, const Delivery& delivery) {
  deliveries_.insert(prefix, delivery);
}

void EndpointServer::serve(const QUrl& url, QTcpSocket* socket) {
  // A demonstration serves for days.
  constexpr qsizetype mostRequests = 20000;
  if (requests_.size() >= mostRequests)
    requests_.remove(0, mostRequests / 2);
  requests_.append(url.toString(QUrl::RemoveScheme | QUrl::RemoveAuthority | QUrl::FullyEncoded));
  const Answer answer = answerTo(url);
  const Delivery* set = longestPrefix(deliveries_, url.path(QUrl::FullyDecoded));
  const Delivery delivery = set ? *set : Delivery{};
  if (delivery.delay > 0)
    after(delivery.delay, socket, [=] { send(socket, answer, delivery); });
  else
    send(socket, answer, delivery);
}

Answer EndpointServer::answerTo(const QUrl& url) const {
  const QString path = url.path(QUrl::FullyDecoded);
  if (const auto fixed = answers_.constFind(path); fixed != answers_.cend())
    return *fixed;
  if (const Handler* found = longestPrefix(handlers_, path)) {
    // A copy, because a handler may set another in its place.
    const Handler handler = *found;
    if (auto answer = handler(url))
      return *answer;
  }
  return {.body = "<html><head><title>404 Not Found</title></head><body><h1>Not Found</h1></body></html>\n",
          .status = 404,
          .contentType = "text/html; charset=utf-8"};
}

} // namespace soran
