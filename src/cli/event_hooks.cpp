// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/event_hooks.h"

#include <QFileInfo>
#include <QStandardPaths>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

constexpr int limitMilliseconds = 30'000;
/// Of more events than these the oldest are dropped, and it is told.
constexpr size_t longestQueue = 1000;

} // namespace

EventHooks::EventHooks(const QString& command, const QUrl& address, StandardStream& errors)
    : command_(QProcess::splitCommand(command)), address_(address), errors_(errors) {
  limit_.setSingleShot(true);
  limit_.setInterval(limitMilliseconds);
  connect(&limit_, &QTimer::timeout, this, [this] {
    timedOut_ = true;
    process_->kill();
  });
}

QString EventHooks::faultOf(const QString& command, const QString& address) {
  const QStringList words = QProcess::splitCommand(command);
  const QFileInfo named(words.value(0));
  const bool isThere = words.value(0).contains(u'/')
                           ? named.isFile() && named.isExecutable()
                           : !QStandardPaths::findExecutable(words.value(0)).isEmpty();
  if (!command.isEmpty() && !isThere)
    return u"--exec: no such program: "_s + words.value(0);
  const QUrl url(address, QUrl::StrictMode);
  const bool isWeb = url.scheme() == u"http" || url.scheme() == u"https";
  if (!address.isEmpty() && (!url.isValid() || !isWeb || url.host().isEmpty()))
    return u"--webhook: no address of http or https"_s;
  return {};
}

EventHooks::~EventHooks() {
  const size_t left = toRun_.size() + toPost_.size() + (process_ ? 1 : 0) + (isPosting_ ? 1 : 0);
  if (left > 0)
    tell(QString::number(left) + (left == 1 ? u" event was"_s : u" events were"_s) + u" not handed on");
  if (process_) {
    process_->disconnect(this);
    process_->kill();
    process_->waitForFinished(1000);
  }
}

void EventHooks::tell(const QString& what) {
  errors_.tell(u"soran-cli: "_s + what + u'\n');
}

void EventHooks::add(std::deque<QByteArray>& queue, const QByteArray& json) {
  queue.push_back(json + '\n');
  if (queue.size() > longestQueue) {
    queue.pop_front();
    tell(u"an event was dropped, too many wait"_s);
  }
}

void EventHooks::give(const QByteArray& json) {
  if (!command_.isEmpty()) {
    add(toRun_, json);
    runNext();
  }
  if (!address_.isEmpty()) {
    add(toPost_, json);
    postNext();
  }
}

void EventHooks::runNext() {
  if (process_ || toRun_.empty())
    return;
  timedOut_ = false;
  process_ = std::make_unique<QProcess>();
  // The output is that of the watch alone.
  process_->setProcessChannelMode(QProcess::ForwardedErrorChannel);
  process_->setStandardOutputFile(QProcess::nullDevice());
  connect(process_.get(), &QProcess::finished, this, &EventHooks::runEnded, Qt::QueuedConnection);
  connect(
      process_.get(), &QProcess::errorOccurred, this,
      [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
          runEnded();
      },
      Qt::QueuedConnection);
  const QByteArray event = toRun_.front();
  toRun_.pop_front();
  process_->start(command_.first(), command_.mid(1));
  process_->write(event);
  process_->closeWriteChannel();
  limit_.start();
}

void EventHooks::runEnded() {
  if (!process_)
    return;
  limit_.stop();
  if (process_->error() == QProcess::FailedToStart)
    tell(command_.first() + u": " + process_->errorString());
  else if (timedOut_)
    tell(command_.first() + u": stopped after 30 seconds"_s);
  else if (process_->exitStatus() != QProcess::NormalExit || process_->exitCode() != 0)
    tell(command_.first() + u": exit status "_s + QString::number(process_->exitCode()));
  process_.reset();
  runNext();
}

void EventHooks::postNext() {
  if (isPosting_ || toPost_.empty())
    return;
  if (HttpParts* http = post_ ? nullptr : httpParts())
    post_ = http->makeEventPost();
  if (!post_) {
    tell(u"--webhook: cannot load soran-http"_s);
    toPost_.clear();
    return;
  }
  const QByteArray event = toPost_.front();
  toPost_.pop_front();
  isPosting_ = true;
  post_->post(address_, event, limitMilliseconds, [this](const QString& why) {
    if (!why.isEmpty())
      tell(address_.toDisplayString(QUrl::RemoveUserInfo | QUrl::RemoveQuery) + u": " + why);
    isPosting_ = false;
    postNext();
  });
}

} // namespace soran
