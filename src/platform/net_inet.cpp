// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/net_inet.h"

#include "base/version.h"

#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QHostAddress>
#include <QNetworkProxyFactory>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <optional>
#include <utility>

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
  request.setHeader(QNetworkRequest::UserAgentHeader, QString(u"SORAN/" + programVersion));
  request.setRawHeader("Cache-Control", "no-cache");
  request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
  request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
  request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
  request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
  request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
  request.setMaximumRedirectsAllowed(10);
  // At most a handful of requests are under way: multiplexing has little to give, and some plain servers
  // stumble over the upgrade header.
  request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
  return request;
}

// An error that only repeats the status of a complete answer, as opposed to one of the transfer.
bool repeatsStatus(QNetworkReply::NetworkError error) {
  return error >= QNetworkReply::ContentAccessDenied && error != QNetworkReply::ProtocolFailure;
}

NetFailure failureOf(QNetworkReply::NetworkError error) {
  switch (error) {
  case QNetworkReply::RemoteHostClosedError:
  case QNetworkReply::ProtocolFailure:
  case QNetworkReply::UnknownNetworkError:
    return NetFailure::Cut;
  case QNetworkReply::ProtocolUnknownError: // a redirect to an address that is not fetched
    return NetFailure::Unreachable;
  case QNetworkReply::TimeoutError:
    return NetFailure::TimedOut;
  case QNetworkReply::OperationCanceledError:
    return NetFailure::Cancelled;
  default:
    return repeatsStatus(error) ? NetFailure::Status : NetFailure::Unreachable;
  }
}

/// A kept connection may end just as a request is given to it, at no fault of its own: another answer on it
/// was cut, or the server was tired of waiting.
bool diedUnanswered(const QNetworkReply& transfer) {
  return transfer.error() == QNetworkReply::RemoteHostClosedError && transfer.rawHeaderPairs().isEmpty() &&
         !transfer.attribute(QNetworkRequest::HttpStatusCodeAttribute).isValid();
}

bool shorterThanAnnounced(const QNetworkReply& transfer, qsizetype received) {
  const QVariant announced = transfer.header(QNetworkRequest::ContentLengthHeader);
  return announced.isValid() && !transfer.hasRawHeader("Content-Encoding") &&
         received < announced.toLongLong();
}

/// Where a connection ends in a body whose length nobody announced (chunked, compressed), it is up to chance
/// whether Qt calls that an error. Text that is whole ends with a line end, a page with a tag.
bool endsInTheMiddle(const QNetworkReply& transfer, const QByteArray& body) {
  const bool chunked = transfer.rawHeader("Transfer-Encoding").toLower().contains("chunked");
  const QByteArray type = transfer.header(QNetworkRequest::ContentTypeHeader).toByteArray();
  return (chunked || transfer.hasRawHeader("Content-Encoding")) && type.startsWith("text/") &&
         !body.isEmpty() && !body.endsWith('\n') && !body.endsWith('>');
}

} // namespace

std::shared_ptr<QNetworkAccessManager> makeNetwork() {
  auto network = std::make_shared<QNetworkAccessManager>();
  network->setProxyFactory(std::make_unique<EnvironmentProxies>().release());
  return network;
}

/// A transfer of one client: queued, under way, or ended with its reply.
class NetInet::OneTransfer final : public Transfer {
 public:
  OneTransfer(NetInet& client, const QUrl& url, std::function<void(const Reply&)> ended = {})
      : client_(client), url_(url), ended_(std::move(ended)) {
    client_.transfers_.append(this);
    QObject::connect(&client_.shutdown_, &Shutdown::closing, &timer_, [this] { abort(); });
  }
  ~OneTransfer() override {
    client_.transfers_.removeOne(this);
    if (transfer_)
      transfer_->disconnect();
  }
  OneTransfer(const OneTransfer&) = delete;
  OneTransfer& operator=(const OneTransfer&) = delete;

  bool begunAhead() const { return bool(ended_); }
  bool sent() const { return sent_; }
  bool awaited() const { return awaited_; }

  void send() {
    sent_ = true;
    if (client_.hook_)
      client_.hook_(url_);
    if (reply_)
      return; // the hook ended it
    if (url_.isLocalFile() || url_.scheme() == u"qrc")
      end(client_.readFile(url_));
    else if (url_.scheme() == u"http" || url_.scheme() == u"https")
      get();
    else
      end(Reply::failed(NetFailure::Unreachable));
  }

  Reply take() override {
    client_.shutdown_.check();
    awaited_ = true;
    // What is waited for stands behind nothing.
    if (!sent_)
      send();
    if (!reply_) {
      QEventLoop loop;
      loop_ = &loop;
      loop.exec();
      loop_ = nullptr;
    }
    client_.shutdown_.check();
    // The loop also ends, without a reply, where the application quits.
    return reply_ ? *std::exchange(reply_, Reply()) : Reply::failed(NetFailure::Cancelled);
  }

  void abort(NetFailure why = NetFailure::Cancelled) {
    aborted_ = why;
    if (transfer_)
      transfer_->abort();
    else
      end(Reply::failed(why));
  }

 private:
  void get() {
    transfer_.reset(client_.network_->get(requestFor(url_)));
    QNetworkReply* const transfer = transfer_.get();
    QObject::connect(transfer, &QNetworkReply::finished, transfer, [this] { finish(); });
    QObject::connect(transfer, &QNetworkReply::readyRead, transfer, [this, transfer] {
      if (transfer->bytesAvailable() > client_.bodyLimit_)
        abort(NetFailure::TooLarge);
    });
    QObject::connect(&timer_, &QTimer::timeout, transfer, [this] { abort(NetFailure::TimedOut); });
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    if (!again_)
      timer_.start(std::chrono::seconds(client_.timeout_));
    if (transfer->isFinished())
      finish();
  }

  void finish() {
    if (aborted_ != NetFailure::None || again_ || !diedUnanswered(*transfer_)) {
      end(judged());
      return;
    }
    again_ = true;
    transfer_->disconnect();
    transfer_.release()->deleteLater();
    get();
  }

  Reply judged() const {
    return aborted_ == NetFailure::None ? client_.judged(*transfer_) : Reply::failed(aborted_);
  }

  void end(Reply reply) {
    if (reply_)
      return;
    timer_.stop();
    reply_ = std::move(reply);
    client_.transfers_.removeOne(this);
    if (loop_)
      loop_->quit();
    if (ended_)
      ended_(*reply_);
    client_.sendQueued();
  }

  NetInet& client_;
  QUrl url_;
  std::function<void(const Reply&)> ended_;
  QTimer timer_;
  std::unique_ptr<QNetworkReply> transfer_;
  std::optional<Reply> reply_;
  QEventLoop* loop_ = nullptr; // that of the wait
  NetFailure aborted_ = NetFailure::None;
  bool sent_ = false;
  bool again_ = false; // it was sent a second time
  bool awaited_ = false;
};

NetInet::NetInet(std::shared_ptr<QNetworkAccessManager> network, const Shutdown& shutdown, qint64 bodyLimit)
    : network_(std::move(network)), shutdown_(shutdown), bodyLimit_(bodyLimit) {}

NetInet::~NetInet() = default;

Reply NetInet::open(const QUrl& url) {
  shutdown_.check();
  OneTransfer transfer(*this, url);
  transfer.send();
  return transfer.take();
}

std::unique_ptr<Transfer> NetInet::begin(const QUrl& url, std::function<void(const Reply&)> ended) {
  auto transfer = std::make_unique<OneTransfer>(*this, url, std::move(ended));
  sendQueued();
  return transfer;
}

void NetInet::cancel() {
  const QList<OneTransfer*> open = transfers_;
  for (OneTransfer* transfer : open) {
    if (transfer->awaited())
      transfer->abort();
  }
}

void NetInet::sendQueued() {
  // The network opens six connections to a host. A transfer handed to it beyond those would wait there with
  // its time running.
  constexpr qsizetype mostUnderWay = 5;
  const auto underWay = [](const OneTransfer* t) { return t->begunAhead() && t->sent(); };
  while (!shutdown_.requested() &&
         std::count_if(transfers_.cbegin(), transfers_.cend(), underWay) < mostUnderWay) {
    const auto next = std::find_if(transfers_.cbegin(), transfers_.cend(),
                                   [](const OneTransfer* t) { return t->begunAhead() && !t->sent(); });
    if (next == transfers_.cend())
      return;
    (*next)->send();
  }
}

Reply NetInet::readFile(const QUrl& url) const {
  // An encoded slash would turn one name into a path that leads out of the folder.
  const QString path = url.path(QUrl::FullyEncoded);
  if (path.contains(u"%2f", Qt::CaseInsensitive) || path.contains(u"%00"))
    return Reply::failed(NetFailure::NoFile);
  QFile file(url.isLocalFile() ? url.toLocalFile() : QString(u':' + url.path()));
  if (QFileInfo(file).isFile() && file.size() > bodyLimit_)
    return Reply::failed(NetFailure::TooLarge);
  if (!QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly))
    return Reply::failed(NetFailure::NoFile);
  QByteArray body = file.readAll();
  if (file.error() != QFileDevice::NoError)
    return Reply::failed(NetFailure::NoFile);
  return {.ok = true, .body = std::move(body)};
}

Reply NetInet::judged(QNetworkReply& transfer) const {
  // The loop also ends, unfinished, where the application quits.
  if (!transfer.isFinished())
    return Reply::failed(NetFailure::Cancelled);
  // An aborted transfer is closed.
  QByteArray body = transfer.isOpen() ? transfer.readAll() : QByteArray();
  const int status = transfer.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
  const bool errorPage = status >= 400 && body.startsWith('<') && repeatsStatus(transfer.error());
  if (transfer.error() != QNetworkReply::NoError && !errorPage)
    return Reply::failed(failureOf(transfer.error()), status);
  if (body.size() > bodyLimit_)
    return Reply::failed(NetFailure::TooLarge, status);
  if (shorterThanAnnounced(transfer, body.size()))
    return Reply::failed(NetFailure::Cut, status);
  const bool mayBeCut = endsInTheMiddle(transfer, body);
  return {.ok = true, .body = std::move(body), .mayBeCut = mayBeCut, .status = status};
}

} // namespace soran
