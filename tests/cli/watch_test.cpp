// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
// soran-cli watch as a process, and what it tells.

#include "base/utc.h"
#include "cli/cli_fixture.h"
#include "cli/event_hooks.h"
#include "cli/watch_event.h"

#include <QDeadlineTimer>
#include <QTcpServer>
#include <QTcpSocket>
#include <QThread>
#include <array>
#include <unistd.h>

using namespace soran;

namespace {

class WatchTest : public CliTest {
 protected:
  WatchTest() {
    world.report(u"RJTT"_s, u"05:00"_s, u"240500Z 36003KT 0300 FG VV001 12/12 Q1018"_s,
                 u"240500Z 2406/2512 33010KT 9999"_s);
    world.report(u"RJAA"_s, u"05:00"_s, u"240500Z 36003KT CAVOK 12/02 Q1018"_s,
                 u"240500Z 2406/2512 33010KT 9999"_s);
  }
  /// A script of the test's folder.
  QString script(const QByteArray& text) const {
    const QString path = world.folder.filePath(u"hook.sh"_s);
    writeWhole(path, "#!/bin/sh\n" + text);
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return path;
  }
  static int endBySignal(Cli& watch) {
    watch.terminate();
    return watch.end();
  }
};

} // namespace

TEST_F(WatchTest, TellsWhatIsBelowItsLimitAndEndsWithASignal) {
  const QString seen = world.folder.filePath(u"seen"_s);
  const QString hook = script("tee -a \"$1\"\n"); // nothing of it may come between the events
  Cli watch(with(
      {u"watch"_s, u"--json"_s, u"--list"_s, u"RJTT RJAA RJTT"_s, u"--exec"_s, hook + u" \"" + seen + u'"'}));
  QStringList events;
  QJsonObject visibility;
  for (int i = 0; i < 3; ++i) {
    const QJsonObject event = watch.receive();
    events.append(event[u"event"].toString() + u' ' + event[u"code"].toString() + u' ' +
                  event[u"element"].toString());
    if (event[u"element"] == u"VIS"_s)
      visibility = event;
  }
  events.sort();
  EXPECT_EQ(events, (QStringList{u"crossed RJTT CIG"_s, u"crossed RJTT VIS"_s, u"rang RJTT "_s}))
      << events.join(u", ").toStdString();
  EXPECT_EQ(visibility[u"value"], 300);
  EXPECT_EQ(visibility[u"limit"], 800);
  for (const QString& field : {u"raw"_s, u"report"_s})
    EXPECT_EQ(visibility[field], u"RJTT 240500Z 36003KT 0300 FG VV001 12/12 Q1018"_s);
  EXPECT_EQ(visibility[u"kind"], u"METAR"_s);
  EXPECT_EQ(visibility[u"hits"].toArray(), QJsonArray{u"vis_m"_s});
  EXPECT_EQ(visibility[u"at"], u"2026-11-24T05:20Z"_s);
  // The hook runs behind the output, once for each event.
  const QDeadlineTimer limit(10'000);
  const auto isHandedOn = [&] {
    return readPlainFile(seen, largestListFile).bytes.contains("\"element\":\"CIG\"");
  };
  while (!isHandedOn() && !limit.hasExpired())
    QThread::msleep(10);
  EXPECT_TRUE(isHandedOn());
  EXPECT_EQ(endBySignal(watch), 0);
}

TEST_F(WatchTest, TellsNoReportWhereThereIsNone) {
  world.server.setFile(forecastsPath + u"RJAA.TXT", "<html>no such file here</html>");
  Cli watch(with({u"watch"_s, u"--json"_s, u"--list"_s, u"RJAA RJTT"_s}));
  QStringList reports;
  QElapsedTimer time;
  for (time.start(); time.elapsed() < 3000 && watch.state() != QProcess::NotRunning;) {
    QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    while (watch.canReadLine()) {
      const QJsonObject event = QJsonDocument::fromJson(watch.readLine()).object();
      if (event[u"event"] == u"new"_s)
        reports.append(event[u"text"].toString() + event[u"raw"].toString());
    }
  }
  EXPECT_EQ(endBySignal(watch), 0);
  EXPECT_EQ(reports, QStringList());
}

TEST_F(WatchTest, RefusesWhatItCannotWatch) {
  const std::pair<QStringList, int> cases[] = {
      {{u"watch"_s, u"--list"_s, u"RJT"_s}, 1},
      {{u"watch"_s, u"--group"_s, u"NONE"_s}, 1},
      {{u"watch"_s, u"RJTT"_s}, 2},
      {{u"watch"_s, u"--exec"_s}, 2},
      {{u"watch"_s, u"--list"_s, u"RJTT"_s, u"--exec"_s, u"/no/such/program"_s}, 2},
      {{u"watch"_s, u"--list"_s, u"RJTT"_s, u"--webhook"_s, u"ftp://host/"_s}, 2},
      {{u"run"_s, u"--list"_s, u"RJTT"_s, u"CLS"_s}, 2},
  };
  for (const auto& [call, status] : cases) {
    Cli watch(with(call));
    EXPECT_EQ(watch.end(), status) << call.join(u' ').toStdString();
    EXPECT_NE(watch.readAllStandardError(), QByteArray());
  }
}

TEST(WatchEvents, AreLinesAndObjects) {
  const QDateTime now = inUtc(QDate(2026, 11, 24), QTime(5, 20));
  WatchEvent amended{.time = now, .code = u"RJTT"_s, .report = u"TAF AMD RJTT 240510Z"_s, .kind = u"TAF"_s};
  nameReport(amended);
  EXPECT_EQ(lineOf(amended), u"2026-11-24T05:20:00Z  AMENDED  RJTT TAF(AMD) RECEIVED  TAF AMD RJTT 240510Z");
  const struct {
    QString kind, report, event, text;
  } reports[] = {
      {u"TAF"_s, u"TAF CORA 240510Z 2406/2512"_s, u"REPORT"_s, u"CORA TAF   CHANGED"_s},
      {u"TAF"_s, u"TAF COR CORA 240510Z 2406/2512"_s, u"AMENDED"_s, u"CORA TAF(COR) RECEIVED"_s},
      // An airport whose code holds such a word, and a remark that is one.
      {u"METAR"_s, u"CORA 240500Z 00000KT"_s, u"REPORT"_s, u"CORA METAR CHANGED"_s},
      {u"METAR"_s, u"CORA 240500Z COR 00000KT"_s, u"AMENDED"_s, u"CORA METAR(COR) RECEIVED"_s},
      {u"METAR"_s, u"CORA 240500Z AMD 00000KT"_s, u"REPORT"_s, u"CORA METAR CHANGED"_s},
      {u"SPECI"_s, u"CORA 240512Z 00000KT 9999 FEW030 12/02 Q1018 RMK COR"_s, u"REPORT"_s,
       u"CORA SPECI RECEIVED"_s},
  };
  for (const auto& c : reports) {
    WatchEvent event{.time = now, .code = u"CORA"_s, .report = c.report, .kind = c.kind};
    nameReport(event);
    EXPECT_EQ(event.event + u' ' + event.text, c.event + u' ' + c.text) << c.report.toStdString();
  }
  EXPECT_EQ(lineOf({.time = now, .event = u"OVERDUE"_s, .text = u"RJTT OVERDUE METAR 0500Z"_s}),
            u"2026-11-24T05:20:00Z  OVERDUE  RJTT METAR 0500Z");
  const QJsonObject object = QJsonDocument::fromJson(jsonOf(amended)).object();
  EXPECT_EQ(object[u"event"], u"amended"_s);
  EXPECT_EQ(object[u"airport"], u"RJTT"_s);
  EXPECT_EQ(object[u"raw"], u"TAF AMD RJTT 240510Z"_s);
  EXPECT_FALSE(object.contains(u"element"));
  const QJsonObject away =
      QJsonDocument::fromJson(jsonOf({.time = now, .event = u"SOURCE AWAY"_s, .source = u"noaa"_s})).object();
  EXPECT_EQ(away[u"event"], u"source_away"_s);
  EXPECT_EQ(away[u"source"], u"noaa"_s);
  for (const QString& name : {u"code"_s, u"kind"_s, u"report"_s})
    EXPECT_EQ(away.value(name), QJsonValue(QJsonValue::Null)) << name.toStdString();
  EXPECT_TRUE(away[u"hits"].isArray() && away[u"hits"].toArray().isEmpty());
}

TEST_F(WatchTest, HooksTellWhatFailedAndGoOn) {
  const QString seen = world.folder.filePath(u"seen"_s);
  std::array<int, 2> pipe{};
  ASSERT_EQ(::pipe(pipe.data()), 0);
  StandardStream errors(pipe[1]);
  const QString hook = script("read line\necho \"$line\" >> \"$1\"\ntest \"$line\" != bad\n");
  int posted = 0;
  QTcpServer server;
  ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
  QObject::connect(&server, &QTcpServer::newConnection, &server, [&] {
    QTcpSocket* socket = server.nextPendingConnection();
    QObject::connect(socket, &QTcpSocket::readyRead, socket, [&posted, socket] {
      if (socket->peek(100'000).startsWith("POST /hook ") && socket->peek(100'000).endsWith("d\n")) {
        socket->readAll();
        socket->write(++posted == 1 ? "HTTP/1.1 500 No\r\nContent-Length: 0\r\n\r\n"
                                    : "HTTP/1.1 204 Yes\r\nContent-Length: 0\r\n\r\n");
      }
    });
  });
  const auto waitFor = [](const EventHooks& hooks) {
    QDeadlineTimer deadline(10'000);
    while (!hooks.isIdle() && !deadline.hasExpired())
      QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    return hooks.isIdle();
  };
  EventHooks hooks(hook + u' ' + seen, QUrl(u"http://127.0.0.1:%1/hook"_s.arg(server.serverPort())), errors);
  for (const char* event : {"bad", "good"})
    hooks.give(event);
  EXPECT_TRUE(waitFor(hooks));
  EXPECT_EQ(readPlainFile(seen, largestListFile).bytes, "bad\ngood\n");
  EXPECT_EQ(posted, 2);
  EventHooks missing(world.folder.filePath(u"none"_s), {}, errors);
  missing.give("{}");
  EXPECT_TRUE(waitFor(missing));
  for (EventHooks hanging(script("sleep 20\n"), {}, errors); const char* event : {"{}", "{}"})
    hanging.give(event);
  ::close(pipe[1]);
  QFile told;
  ASSERT_TRUE(told.open(pipe[0], QIODevice::ReadOnly, QFileDevice::AutoCloseHandle));
  const QByteArray text = told.readAll();
  EXPECT_TRUE(text.contains("hook.sh: exit status 1\n")) << text.toStdString();
  EXPECT_TRUE(text.contains("/hook: status 500\n")) << text.toStdString();
  EXPECT_TRUE(text.contains("none: ")) << text.toStdString();
  EXPECT_TRUE(text.contains("2 events were not handed on")) << text.toStdString();
}
