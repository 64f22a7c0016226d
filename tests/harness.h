// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/files.h"
#include "base/text.h"
#include "cli/headless.h"
#include "delivered.h"
#include "forms/list_rules.h"
#include "platform/endpoint_server.h"
#include "platform/net_inet.h"
#include "printing.h"
#include "start/opening.h"
#include "support/own_folder.h"
#include "terminal/terminal.h"

#include <QDir>
#include <QJsonObject>
#include <QTimer>
#include <gtest/gtest.h>

namespace soran {

using namespace Qt::StringLiterals;

inline const QString stationsPath = u"/pub/data/observations/metar/stations/"_s;
inline const QString forecastsPath = u"/pub/data/forecasts/taf/stations/"_s;
inline const QString cyclesPath = u"/pub/data/observations/metar/cycles/"_s;
inline const QString ready = u"\r\nREADY / PRESS ESC TO EXIT"_s;

/// What outlives a run of the program: its directory, the endpoint with its files, the clock.
class World {
 public:
  World() {
    EXPECT_TRUE(server.start());
    for (const QString& name : {u"soran.mdb"_s, u"error.wav"_s, u"ring.wav"_s})
      server.setFile(u"/data/" + name, delivered::file(u"update/data/" + name));
    server.setFile(u"/data/version.dat"_s, "4.31\n1.00\n1.00\n");
    server.setFile(u"/data/update.exe"_s, "module");
    endpoints = Endpoints::builtIn(QString());
    endpoints.update = endpoints.home = server.baseAddress();
    endpoints.metar = server.baseAddress() + stationsPath;
    endpoints.taf = server.baseAddress() + forecastsPath;
    endpoints.cycles = server.baseAddress() + cyclesPath;
  }

  QString home() const { return folder.filePath(u"home"_s); }
  QString path(const QString& name) const { return home() + u'/' + name; }

  /// The directory as a complete start left it, with changes to its tables.
  void prepare(const std::function<void(Tables&)>& change = {}) {
    for (const QString& name : {u""_s, u"/sound"_s, u"/data"_s})
      QDir().mkpath(home() + name);
    writeWhole(path(u".soran"_s), "mark");
    for (const QString& name : {u"soran.mdb"_s, u"error.wav"_s, u"ring.wav"_s})
      writeWhole(path((name.endsWith(u"wav") ? u"sound/"_s : QString()) + name),
                 delivered::file(u"update/data/" + name));
    writeWhole(path(u"update.exe"_s), "module");
    store([&](Tables& tables) {
      Settings& settings = tables.settings();
      settings.storeValue(SettingIndex::SORANバージョン, u"4.31"_s);
      settings.store(key::UPDATEバージョン, 1.0);
      settings.store(key::DBバージョン, 1.0);
      settings.store(key::BASEurl, server.baseAddress());
      if (change)
        change(tables);
    });
  }
  /// Opens the closed database.
  void store(const std::function<void(Tables&)>& change) const {
    Tables tables;
    tables.openAllTables(path(u"soran.mdb"_s));
    change(tables);
  }

  /// A METAR file and, where its text is given, a TAF file.
  void report(const QString& code, const QString& stamp, const QString& metar, const QString& taf = {}) {
    const QString line = u"2026/11/24 "_s + stamp + u'\n';
    server.setFile(stationsPath + code + u".TXT", (line + code + u' ' + metar + u'\n').toUtf8());
    if (!taf.isEmpty())
      forecast(code, stamp, u"TAF " + code + u' ' + taf + u'\n');
  }
  void forecast(const QString& code, const QString& stamp, const QString& text) {
    server.setFile(forecastsPath + code + u".TXT", QString(u"2026/11/24 " + stamp + u'\n' + text).toUtf8());
  }

  OwnFolder folder;
  EndpointServer server;
  SetClock clock{QDateTime::fromString(u"2026-11-24T14:20:00+09:00"_s, Qt::ISODate)};
  Endpoints endpoints;
};

/// One run of the program in a world.
class ProgramRun {
 public:
  explicit ProgramRun(World& given)
      : world(given),
        program({.clock = world.clock,
                 .timers = timers,
                 .inet = inet,
                 .inet2 = inet2,
                 .dialogs = desk,
                 .forms = desk,
                 .sounds = desk,
                 .printers = desk,
                 .pages = desk,
                 .shutdown = shutdown,
                 .waiting = waiting,
                 .endpoints = world.endpoints,
                 .directory = world.home(),
                 .deliveredDatabase = [] { return delivered::file(u"update/data/soran.mdb"_s); }}) {
    for (NetInet* client : {&inet, &inet2})
      client->onRequest([this](const QUrl& url) { noteRequest(url.path()); });
  }

  /// Start, load and first activation; true where the terminal then takes input.
  bool start() {
    result = opening.start();
    if (result != Opening::Result::Started)
      return false;
    terminal.guarded([this] { terminal.start(opening.notice()); });
    return !terminal.ended();
  }
  /// As start(), and what it wrote and asked is forgotten.
  bool begin() {
    const bool started = start();
    shown();
    logged();
    asked();
    desk.takeSeen();
    return started;
  }

  void keys(const QString& characters) {
    for (const QChar c : characters)
      terminal.handleKey(c);
  }
  void type(const QString& line) { keys(line + u'\r'); }
  void tick(int seconds = 1) {
    for (int i = 0; i < seconds && !terminal.ended(); ++i) {
      world.clock.advance(1);
      timers.step();
    }
  }

  QString screen() const { return program.console.screen().text(); }
  QString panel2() const { return program.console.status().panel2(); }
  /// The text appended since the last call; the whole screen where it was replaced.
  QString shown() {
    const QString text = screen();
    const QString added = text.startsWith(former_) ? text.mid(former_.size()) : text;
    former_ = text;
    return added;
  }
  /// The log lines since the last call, oldest first.
  QStringList logged() {
    QStringList lines;
    const auto& rows = program.console.log().rows();
    for (size_t i = 0; i < rows.size() - logSeen_; ++i)
      lines.prepend(rows[i].message);
    logSeen_ = rows.size();
    return lines;
  }
  /// The requests since the last call: "M/RJTT", "T/RJTT", "C/05", and other paths as they are.
  QStringList asked() { return std::exchange(asked_, {}); }

  World& world;
  Shutdown shutdown;
  SteppedTimers timers;
  std::shared_ptr<QNetworkAccessManager> network = makeNetwork();
  NetInet inet{network, shutdown};
  NetInet inet2{network, shutdown};
  Headless desk;
  LoopWaiting waiting{shutdown};
  Program program;
  Opening opening{program};
  Terminal terminal{program};
  Opening::Result result = Opening::Result::NoDirectory;
  /// Called with each request as `asked` names it, before it is sent.
  std::function<void(const QString&)> onRequest = [](const QString&) {};

 private:
  void noteRequest(const QString& path) {
    QString name = path.endsWith(u".TXT") ? path.chopped(4) : path;
    name.replace(stationsPath, u"M/"_s).replace(forecastsPath, u"T/"_s).replace(cyclesPath, u"C/"_s);
    if (name.startsWith(u"C/"))
      name.chop(1); // the zone
    if (name.endsWith(u".sig"))
      return;
    asked_.append(name);
    const auto hook = onRequest; // it may set another in its place
    hook(name);
  }

  QString former_;
  size_t logSeen_ = 0;
  QStringList asked_;
};

/// The bytes of a file, none where it cannot be read.
inline QByteArray contents(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The texts of the dialogues since the last call, and the names of forms, sounds and pages.
inline QStringList textsOf(const QJsonArray& seen) {
  QStringList texts;
  for (const QJsonValue& value : seen)
    texts.append(value.isObject() ? value.toObject().value(u"text").toString() : value.toString());
  return texts;
}

} // namespace soran
