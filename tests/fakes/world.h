// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/files.h"
#include "delivered.h"
#include "http/endpoint_server.h"
#include "platform/clock.h"
#include "platform/endpoints.h"
#include "store/tables.h"
#include "support/own_folder.h"

#include <QDir>
#include <QFile>
#include <functional>
#include <gtest/gtest.h>

namespace soran {

using namespace Qt::StringLiterals;

inline const QString stationsPath = u"/pub/data/observations/metar/stations/"_s;
inline const QString forecastsPath = u"/pub/data/forecasts/taf/stations/"_s;
inline const QString cyclesPath = u"/pub/data/observations/metar/cycles/"_s;
inline const QString ready = u"\r\nREADY / PRESS ESC TO EXIT"_s;

/// The bytes of a file, none where it cannot be read.
inline QByteArray contents(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// What outlives a run of the program: its directory, the endpoint with its files, the clock.
class World {
 public:
  World() {
    EXPECT_TRUE(server.start());
    for (const QString& name : {u"soran.mdb"_s, u"error.wav"_s, u"ring.wav"_s})
      server.setFile(u"/data/" + name, delivered::file(u"update/data/" + name));
    setVersions("4.31\n1.00\n1.00\n");
    server.setFile(u"/data/update.exe"_s, "module");
    endpoints = Endpoints::builtIn(QString());
    endpoints.sources.clear();
    endpoints.sigmet.clear();
    endpoints.update = endpoints.home = server.baseAddress();
    endpoints.metar = server.baseAddress() + stationsPath;
    endpoints.taf = server.baseAddress() + forecastsPath;
    endpoints.cycles = server.baseAddress() + cyclesPath;
  }

  QString home() const { return folder.filePath(u"home"_s); }
  QString path(const QString& name) const { return home() + u'/' + name; }
  static QByteArray deliveredDatabase() { return delivered::file(u"update/data/soran.mdb"_s); }
  void setVersions(const QByteArray& text) { server.setFile(u"/data/version.dat"_s, text); }

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

/// Makes the automatic list of these codes, four letters each with a blank between them.
inline void setAutoList(Tables& tables, const QString& codes) {
  std::vector<QVariantList> rows;
  for (const QString& code : codes.split(u' '))
    rows.push_back({int(rows.size()) + 1, code, code});
  tables.rewrite(table::自動デコード, rows);
}

} // namespace soran
