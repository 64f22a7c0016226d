// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/net_inet.h"

#include "platform/endpoints.h"
#include "platform/exchange.h"

#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace soran {

namespace {

bool isFetchedOverTheNetwork(const QUrl& url) {
  return (url.scheme() == u"http" || url.scheme() == u"https") && !url.host().isEmpty();
}

/// An answer may send on neither to a place without a secure connection, nor away from this machine, whose
/// endpoints are trusted as others are not.
bool maySendOn(const QUrl& from, const QUrl& to) {
  return isFetchedOverTheNetwork(to) && (from.scheme() != u"https" || to.scheme() == u"https") &&
         (!isLoopback(from) || serverOf(from) == serverOf(to));
}

} // namespace

std::shared_ptr<Network> makeNetwork() {
  return std::make_shared<Network>();
}

/// A transfer of one client: queued, under way, or ended with its reply.
class NetInet::OneTransfer final : public Transfer {
 public:
  OneTransfer(NetInet& client, const QUrl& url, std::function<void(const Reply&)> ended = {})
      : client_(client), url_(url), ended_(std::move(ended)) {
    client_.transfers_.append(this);
    QObject::connect(&client_.shutdown_, &Shutdown::closing, &timer_, [this] { abort(); });
  }
  ~OneTransfer() override { client_.transfers_.removeOne(this); }
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
    else if (isFetchedOverTheNetwork(url_))
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

  void abort() { end(Reply::failed(NetFailure::Cancelled)); }

 private:
  static constexpr int tooMany = 429;
  static constexpr int unavailable = 503;

  void get() {
    if (client_.network_->courtesy().isLeftAlone(url_))
      end(Reply::failed(NetFailure::Status, tooMany));
    else
      inTurn(&OneTransfer::begin);
  }

  /// Goes on with `step` as soon as the host may be asked.
  void inTurn(void (OneTransfer::*step)()) {
    if (const auto wait = client_.network_->courtesy().claim(url_); wait.count() > 0)
      QTimer::singleShot(wait, &delay_, [this, step] {
        if (!reply_)
          inTurn(step);
      });
    else
      (this->*step)();
  }

  void begin() {
    QObject::connect(&timer_, &QTimer::timeout, &timer_,
                     [this] { end(Reply::failed(NetFailure::TimedOut)); });
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    timer_.start(std::chrono::seconds(client_.timeout_));
    ask();
  }

  void ask() {
    exchange_ =
        std::make_unique<Exchange>(*client_.network_, url_, client_.bodyLimit_, [this] { answered(); });
  }

  void answered() {
    AnswerReader& answer = exchange_->answer();
    const int status = answer.status();
    if (status == tooMany || (status == unavailable && !answer.retryAfter().isEmpty()))
      client_.network_->courtesy().leaveAlone(url_, answer.retryAfter());
    if (exchange_->failure() != NetFailure::None)
      end(Reply::failed(exchange_->failure(), status));
    else if (answer.isRedirect())
      follow(status, QUrl::fromEncoded(answer.location()));
    else
      end(good(*exchange_));
  }

  Reply good(Exchange& exchange) {
    const AnswerReader& answer = exchange.answer();
    const bool isNew = answer.status() == 200;
    const int status = answer.isUnchanged() ? 200 : answer.status();
    const Validators validators = exchange.validators();
    QByteArray body = exchange.takeBody();
    if (isNew)
      client_.network_->courtesy().remember(url_, validators, body);
    return {.ok = true, .body = std::move(body), .status = status, .modified = httpDate(validators.modified)};
  }

  void follow(int status, const QUrl& location) {
    constexpr int mostRedirects = 10;
    const QUrl next = url_.resolved(location);
    if (++redirects_ > mostRedirects || !location.isValid() || !maySendOn(url_, next)) {
      end(Reply::failed(NetFailure::Unreachable, status));
      return;
    }
    url_ = next;
    inTurn(&OneTransfer::ask);
  }

  void end(Reply reply) {
    if (reply_)
      return;
    timer_.stop();
    exchange_.reset();
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
  QObject delay_; // ends the wait for a turn with this transfer
  std::unique_ptr<Exchange> exchange_;
  std::optional<Reply> reply_;
  QEventLoop* loop_ = nullptr; // that of the wait
  int redirects_ = 0;
  bool sent_ = false;
  bool awaited_ = false;
};

NetInet::NetInet(std::shared_ptr<Network> network, const Shutdown& shutdown, qint64 bodyLimit)
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

void NetInet::distrustConnections() {
  network_->closeKept();
  network_->courtesy().forget();
}

void NetInet::sendQueued() {
  // What is asked at once leaves a server room for others, and the time of a transfer runs from its sending.
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
  return {.ok = true, .body = std::move(body), .modified = QFileInfo(file).lastModified().toUTC()};
}

} // namespace soran
