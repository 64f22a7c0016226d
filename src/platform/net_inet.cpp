// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/net_inet.h"

#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QHostAddress>
#include <QNetworkProxyFactory>
#include <QScopeGuard>
#include <QTimer>
#include <algorithm>
#include <chrono>

using namespace Qt::StringLiterals;

namespace soran {

namespace {

// The system's own look-up loads plugins and may ask the network, which the first request has no time for.
class EnvironmentProxies final : public QNetworkProxyFactory {
 public:
  QList<QNetworkProxy> queryProxy(const QNetworkProxyQuery& query) override {
    const QString host = query.peerHostName();
    const bool own = host == u"localhost" || QHostAddress(host).isLoopback();
    return own || !named() ? QList{QNetworkProxy(QNetworkProxy::NoProxy)} : systemProxyForQuery(query);
  }

 private:
  static bool named() {
    const auto names = {"http_proxy", "https_proxy", "all_proxy", "HTTP_PROXY", "HTTPS_PROXY", "ALL_PROXY"};
    return std::any_of(names.begin(), names.end(),
                       [](const char* name) { return !qEnvironmentVariableIsEmpty(name); });
  }
};

QNetworkRequest requestFor(const QUrl& url) {
  QNetworkRequest request(url);
  request.setHeader(QNetworkRequest::UserAgentHeader, u"SORAN/4.31"_s);
  request.setRawHeader("Cache-Control", "no-cache");
  request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
  request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
  request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
  request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
  request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
  request.setMaximumRedirectsAllowed(10);
  // Requests go out one after the other: multiplexing has nothing to give, and some plain servers stumble
  // over the upgrade header.
  request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
  return request;
}

// An error that only repeats the status of a complete answer, as opposed to one of the transfer.
bool repeatsStatus(QNetworkReply::NetworkError error) {
  return error >= QNetworkReply::ContentAccessDenied && error != QNetworkReply::ProtocolFailure;
}

bool shorterThanAnnounced(const QNetworkReply& transfer, qsizetype received) {
  const QVariant announced = transfer.header(QNetworkRequest::ContentLengthHeader);
  return announced.isValid() && !transfer.hasRawHeader("Content-Encoding") &&
         received < announced.toLongLong();
}

} // namespace

std::shared_ptr<QNetworkAccessManager> makeNetwork() {
  auto network = std::make_shared<QNetworkAccessManager>();
  network->setProxyFactory(std::make_unique<EnvironmentProxies>().release());
  return network;
}

NetInet::NetInet(std::shared_ptr<QNetworkAccessManager> network, const Shutdown& shutdown, qint64 bodyLimit)
    : network_(std::move(network)), shutdown_(shutdown), bodyLimit_(bodyLimit) {}

NetInet::~NetInet() = default;

Reply NetInet::open(const QUrl& url) {
  shutdown_.check();
  if (hook_)
    hook_(url);
  Reply reply;
  if (url.isLocalFile() || url.scheme() == u"qrc")
    reply = readFile(url);
  else if (url.scheme() == u"http" || url.scheme() == u"https")
    reply = fetch(url);
  shutdown_.check();
  return reply;
}

void NetInet::cancel() {
  const QList<QNetworkReply*> open = transfers_;
  for (QNetworkReply* transfer : open)
    transfer->abort();
}

Reply NetInet::readFile(const QUrl& url) const {
  // An encoded slash would turn one name into a path that leads out of the folder.
  const QString path = url.path(QUrl::FullyEncoded);
  if (path.contains(u"%2f", Qt::CaseInsensitive) || path.contains(u"%00"))
    return {};
  QFile file(url.isLocalFile() ? url.toLocalFile() : QString(u':' + url.path()));
  if (!QFileInfo(file).isFile() || file.size() > bodyLimit_ || !file.open(QIODevice::ReadOnly))
    return {};
  QByteArray body = file.readAll();
  if (file.error() != QFileDevice::NoError)
    return {};
  return {true, std::move(body)};
}

Reply NetInet::fetch(const QUrl& url) {
  const std::unique_ptr<QNetworkReply> owner(network_->get(requestFor(url)));
  QNetworkReply* const transfer = owner.get();
  QEventLoop loop;
  QTimer timer;
  timer.setSingleShot(true);
  timer.setTimerType(Qt::PreciseTimer);
  QObject::connect(transfer, &QNetworkReply::finished, &loop, &QEventLoop::quit);
  QObject::connect(&timer, &QTimer::timeout, transfer, &QNetworkReply::abort);
  QObject::connect(&shutdown_, &Shutdown::closing, transfer, &QNetworkReply::abort);
  QObject::connect(transfer, &QNetworkReply::readyRead, transfer, [this, transfer] {
    if (transfer->bytesAvailable() > bodyLimit_)
      transfer->abort();
  });
  timer.start(std::chrono::seconds(timeout_));
  transfers_.append(transfer);
  const auto forget = qScopeGuard([this, transfer] { transfers_.removeOne(transfer); });
  if (!transfer->isFinished())
    loop.exec();
  return judged(*transfer);
}

Reply NetInet::judged(QNetworkReply& transfer) const {
  // The loop also ends, unfinished, where the application quits.
  if (!transfer.isFinished())
    return {};
  // An aborted transfer is closed.
  QByteArray body = transfer.isOpen() ? transfer.readAll() : QByteArray();
  const int status = transfer.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
  const bool errorPage = status >= 400 && body.startsWith('<') && repeatsStatus(transfer.error());
  if (transfer.error() != QNetworkReply::NoError && !errorPage)
    return {};
  if (body.size() > bodyLimit_ || shorterThanAnnounced(transfer, body.size()))
    return {};
  return {true, std::move(body)};
}

} // namespace soran
