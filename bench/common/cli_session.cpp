// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/cli_session.h"

#include <QEventLoop>
#include <QJsonArray>
#include <QJsonDocument>
#include <cstdio>

namespace soran::bench {

using namespace Qt::StringLiterals;

CliSession::CliSession(const Loopback& endpoint, const QString& now, const QJsonObject& settings) {
  endpoint.writeEndpoints(home_.filePath(u"endpoints.ini"_s));
  process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  start(now);
  if (settings.isEmpty())
    return;
  // Some settings are read at the start only.
  send({{u"set"_s, settings}});
  stop();
  start(now);
}

CliSession::~CliSession() {
  stop();
}

void CliSession::start(const QString& now) {
  process_.start(QStringView(SORAN_CLI).toString(),
                 {u"--home"_s, home_.path(), u"--now"_s, now, u"session"_s});
  if (!process_.waitForStarted()) {
    std::fprintf(stderr, "soran-load: %s\n", qPrintable(process_.errorString()));
    std::exit(1);
  }
  readState();
}

void CliSession::stop() {
  process_.closeWriteChannel();
  QEventLoop loop;
  QObject::connect(&process_, &QProcess::finished, &loop, &QEventLoop::quit);
  if (process_.state() != QProcess::NotRunning)
    loop.exec();
}

QJsonObject CliSession::send(const QJsonObject& event) {
  process_.write(QJsonDocument(event).toJson(QJsonDocument::Compact) + '\n');
  return readState();
}

QJsonObject CliSession::readState() {
  QEventLoop loop;
  const auto look = [&] {
    if (process_.canReadLine() || process_.state() == QProcess::NotRunning)
      loop.quit();
  };
  QObject::connect(&process_, &QProcess::readyRead, &loop, look);
  QObject::connect(&process_, &QProcess::finished, &loop, look);
  if (!process_.canReadLine())
    loop.exec();
  QJsonObject state = QJsonDocument::fromJson(process_.readLine()).object();
  if (!state.contains(u"event")) {
    std::fprintf(stderr, "soran-load: no state: %s\n",
                 QJsonDocument(state).toJson(QJsonDocument::Compact).constData());
    std::exit(1);
  }
  requests_ += state.value(u"requests").toArray().size();
  return state;
}

void CliSession::setAutomaticList(const QStringList& codes) {
  QJsonArray rows;
  for (const QString& code : codes)
    rows.append(QJsonArray{code, code});
  send({{u"table"_s, u"自動デコード"_s}, {u"rows"_s, rows}});
}

void CliSession::mark() {
  marked_ = figuresOf(process_.processId());
  requests_ = 0;
  timer_.start();
}

CliSession::Figures CliSession::figures() const {
  ProcessFigures now = figuresOf(process_.processId());
  now.cpuSeconds -= marked_.cpuSeconds;
  return {double(timer_.nsecsElapsed()) / 1e9, now, now.memory - marked_.memory, requests_};
}

} // namespace soran::bench
