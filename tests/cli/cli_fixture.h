// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/text.h"
#include "fakes/world.h"
#include "support/printing.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

namespace soran {

using namespace Qt::StringLiterals;

/// The texts of the dialogues that a session tells, and the names of forms, sounds and requests.
inline QStringList textsOf(const QJsonArray& seen) {
  QStringList texts;
  for (const QJsonValue& value : seen)
    texts.append(value.isObject() ? value.toObject().value(u"text").toString() : value.toString());
  return texts;
}

inline const QString commandLine = QString::fromUtf16(SORAN_CLI);

/// soran-cli with its input; the endpoint of this process serves it meanwhile.
class Cli : public QProcess {
 public:
  explicit Cli(const QStringList& arguments) {
    start(commandLine, arguments);
    EXPECT_TRUE(waitForStarted());
  }
  void send(const QByteArray& line) { write(line + '\n'); }
  /// The next line of the output as an object; empty where none came.
  QJsonObject receive() {
    serveWhile([this] { return state() != NotRunning && !canReadLine(); });
    return QJsonDocument::fromJson(readLine()).object();
  }
  QJsonObject ask(const QByteArray& line) {
    send(line);
    return receive();
  }
  int end() {
    closeWriteChannel();
    serveWhile([this] { return state() != NotRunning; });
    return exitStatus() == NormalExit ? exitCode() : -1;
  }

 private:
  static void serveWhile(const std::function<bool()>& waits) {
    QElapsedTimer time;
    time.start();
    while (waits() && time.elapsed() < 20'000)
      QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
  }
};

class CliTest : public ::testing::Test {
 protected:
  CliTest() {
    world.prepare([](Tables& tables) { setAutoList(tables, u"RJTT RJAA"_s); });
    world.report(u"RJTT"_s, u"05:00"_s, u"240500Z 33010KT"_s, u"240500Z 2406/2512 33010KT"_s);
    const Endpoints& e = world.endpoints;
    const QString ini = u"[endpoints]\nupdate="_s + e.update + u"\nhome=" + e.home + u"\nmetar=" + e.metar +
                        u"\ntaf=" + e.taf + u"\ncycles=" + e.cycles + u'\n';
    writeWhole(world.path(u"endpoints.ini"_s), ini.toUtf8());
  }
  QStringList with(const QStringList& call) const {
    return QStringList{u"--home"_s, world.home(), u"--now"_s, u"2026-11-24T14:20:00+09:00"_s} + call;
  }

  World world;
};

/// The screen behind "RJTT".
inline const QString reports =
    u"*** RJTT - WEATHER OBSERVATION AND FORECASTS ***\n\nRJTT  METAR 1400I\n"
    "      240500Z 33010KT\n\nRJTT  TAF   1400I\n      240500Z 2406/2512 33010KT\n\n\n"
    "READY / PRESS ESC TO EXIT\n"_s;
} // namespace soran
