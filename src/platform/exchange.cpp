// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/exchange.h"

#include "base/version.h"

using namespace Qt::StringLiterals;

namespace soran {

namespace {

/// The end of a plain connection is told by the network; libcurl does not tell whether that of a secure one
/// was sealed by the server.
AnswerReader readerFor(const QUrl& url, qint64 bodyLimit) {
  return {bodyLimit, url.scheme() == u"http"};
}

QByteArray targetOf(const QUrl& url) {
  const QByteArray target =
      url.toEncoded(QUrl::RemoveScheme | QUrl::RemoveAuthority | QUrl::RemoveFragment | QUrl::FullyEncoded);
  return target.startsWith('/') ? target : '/' + target;
}

QByteArray hostOf(const QUrl& url) {
  const QString host = url.host(QUrl::FullyEncoded);
  const QString port = url.port() < 0 ? QString() : u':' + QString::number(url.port());
  return ((host.contains(u':') ? u'[' + host + u']' : host) + port).toLatin1();
}

/// A proxy for http takes the request itself, and is told the whole address.
bool isAskedItself(const QUrl& proxy, const QUrl& url) {
  return url.scheme() == u"http" && proxy.scheme().startsWith(u"http");
}

QByteArray authorization(const QUrl& address) {
  return "Basic " + (address.userName(QUrl::FullyDecoded) + u':' + address.password(QUrl::FullyDecoded))
                        .toUtf8()
                        .toBase64();
}

QByteArray conditionOf(const Validators& validators) {
  QByteArray condition;
  if (!validators.tag.isEmpty())
    condition += "If-None-Match: " + validators.tag + "\r\n";
  if (!validators.modified.isEmpty())
    condition += "If-Modified-Since: " + validators.modified + "\r\n";
  return condition;
}

QByteArray requestFor(const QUrl& url, const QUrl& proxy, const Validators& known) {
  const bool throughProxy = isAskedItself(proxy, url);
  QByteArray request =
      "GET " + (throughProxy ? "http://" + hostOf(url) : QByteArray()) + targetOf(url) + " HTTP/1.1\r\n";
  request += "Host: " + hostOf(url) + "\r\nUser-Agent: SORAN/" + QStringView(programVersion).toLatin1();
  request += "\r\nAccept: */*\r\nAccept-Encoding: identity\r\nCache-Control: no-cache\r\n";
  if (!url.userName().isEmpty())
    request += "Authorization: " + authorization(url) + "\r\n";
  if (throughProxy && !proxy.userName().isEmpty())
    request += "Proxy-Authorization: " + authorization(proxy) + "\r\n";
  return request + conditionOf(known) + "\r\n";
}

} // namespace

Exchange::Exchange(Network& network, const QUrl& url, qint64 bodyLimit, std::function<void()> ended)
    : network_(network), url_(url), bodyLimit_(bodyLimit), ended_(std::move(ended)),
      answer_(readerFor(url, bodyLimit)), connection_(network.kept(url)) {
  if (const Courtesy::Remembered* known = network.courtesy().remembered(url))
    known_ = *known;
  onKept_ = connection_ != nullptr;
  if (onKept_)
    begin();
  else
    connectAnew();
}

Exchange::~Exchange() = default;

void Exchange::connectAnew() {
  onKept_ = false;
  connection_ = std::make_unique<Connection>(network_, url_, [this](NetFailure failure) {
    if (failure == NetFailure::None)
      begin();
    else
      end(failure);
  });
}

void Exchange::begin() {
  if (!known_.validators.isEmpty())
    answer_.expectNotModified();
  unsent_ = requestFor(url_, connection_->proxy(), known_.validators);
  connection_->whenReadable([this] { read(); });
  write();
}

void Exchange::write() {
  if (!connection_->write(unsent_)) {
    answer_.endOfConnection(false);
    judge();
  } else if (unsent_.isEmpty()) {
    connection_->whenWritable({});
  } else {
    connection_->whenWritable([this] { write(); });
  }
}

void Exchange::read() {
  while (!answer_.ended()) {
    const Connection::Came came = connection_->read(come_);
    if (came == Connection::Came::Nothing)
      return;
    if (came == Connection::Came::Bytes)
      answer_.add(come_);
    else
      answer_.endOfConnection(came == Connection::Came::End);
  }
  judge();
}

void Exchange::judge() {
  // What the server sends on belongs to this answer, which is longer than it says, or to none.
  const Connection::Came more = answer_.isWhole() ? connection_->read(come_) : Connection::Came::End;
  if (more == Connection::Came::Bytes)
    answer_.add(come_);
  if (!again_ && isDoubtful()) {
    again_ = true;
    answer_ = readerFor(url_, bodyLimit_);
    connectAnew();
    return;
  }
  if (answer_.keepsOpen() && more == Connection::Came::Nothing && !answer_.hasSurplus())
    keep();
  connection_.reset();
  end(answer_.hasSurplus() && answer_.hasLength() ? NetFailure::Cut : answer_.failure());
}

bool Exchange::isDoubtful() const {
  constexpr int waitedTooLong = 408;
  if (answer_.isUntouched() || !onKept_)
    return answer_.isUntouched();
  const bool hangsUp = answer_.status() >= 400 && !answer_.keepsOpen();
  return answer_.hasSurplus() || !answer_.headIsRead() || answer_.status() == waitedTooLong || hangsUp ||
         repeatsAnother();
}

bool Exchange::bringsReport() const {
  return answer_.isWhole() && answer_.failure() == NetFailure::None && answer_.status() == 200 &&
         !answer_.body().isEmpty() && !answer_.body().startsWith('<');
}

bool Exchange::repeatsAnother() const {
  const Connection::Report& former = connection_->latest();
  return bringsReport() && former.of != url_ && former.hash == report().hash && !former.of.isEmpty();
}

void Exchange::keep() {
  if (bringsReport())
    connection_->noteReport(report());
  network_.keep(std::move(connection_));
}

void Exchange::end(NetFailure why) {
  failure_ = why;
  // It may destroy this exchange.
  if (const auto ended = std::exchange(ended_, {}))
    ended();
}

} // namespace soran
