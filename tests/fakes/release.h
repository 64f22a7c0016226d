// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/files.h"
#include "delivered.h"
#include "fakes/test_key.h"
#include "store/tables.h"
#include "support/own_folder.h"
#include "update/updater.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>

namespace soran {

inline QByteArray bytesOf(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// A release as makers lay it out: what an endpoint serves, by path.
struct Release {
  QJsonObject manifest;
  QMap<QString, QByteArray> files; ///< by path behind the manifest's folder

  static Release of(const QString& version, const QMap<QString, QByteArray>& programs) {
    Release release;
    QJsonArray list;
    for (auto i = programs.cbegin(); i != programs.cend(); ++i) {
      const QString path = version + u'/' + i.key().section(u'/', -1);
      release.files.insert(path, i.value());
      const QByteArray sum = QCryptographicHash::hash(i.value(), QCryptographicHash::Sha256).toHex();
      list.append(QJsonObject{{QStringLiteral("name"), i.key()},
                              {QStringLiteral("path"), path},
                              {QStringLiteral("size"), i.value().size()},
                              {QStringLiteral("sha256"), QString::fromLatin1(sum)}});
    }
    release.manifest = {{QStringLiteral("product"), QStringLiteral("soran")},
                        {QStringLiteral("system"), thisSystem()},
                        {QStringLiteral("version"), version},
                        {QStringLiteral("files"), list}};
    return release;
  }

  /// Sets a field of the file "soran" in the manifest.
  void setField(const QString& name, const QJsonValue& value) {
    QJsonArray list = manifest[QStringLiteral("files")].toArray();
    for (QJsonValueRef entry : list) {
      QJsonObject file = entry.toObject();
      if (file[QStringLiteral("name")].toString() != u"soran")
        continue;
      file[name] = value;
      entry = file;
      break;
    }
    manifest[QStringLiteral("files")] = list;
  }

  QByteArray json() const { return QJsonDocument(manifest).toJson(); }

  /// Everything by its path under the endpoint, signed with `key`.
  QMap<QString, QByteArray> served(const TestKey& key) const {
    const QString path = manifestPath(thisSystem());
    QMap<QString, QByteArray> all = {{path, json()}, {path + QStringLiteral(".sig"), key.sign(json())}};
    for (auto i = files.cbegin(); i != files.cend(); ++i)
      all.insert(path.section(u'/', 0, -2) + u'/' + i.key(), i.value());
    return all;
  }
};

/// An installed program of two files in a place of its own, with its directory beside.
class Installation {
 public:
  Installation() {
    QDir().mkpath(home());
    QDir().mkpath(place());
    writeWhole(home() + QStringLiteral("/soran.mdb"),
               delivered::file(QStringLiteral("update/data/soran.mdb")), true);
    Tables tables;
    tables.openAllTables(home() + QStringLiteral("/soran.mdb"));
    tables.settings().store(key::SORANバージョン, 4.31);
    for (auto i = former.cbegin(); i != former.cend(); ++i)
      writeWhole(at(i.key()), i.value());
    QFile::setPermissions(at(QStringLiteral("soran")), QFile::ReadOwner | QFile::WriteOwner |
                                                           QFile::ExeOwner | QFile::ReadGroup |
                                                           QFile::ExeGroup);
  }

  QString home() const { return folder_.filePath(QStringLiteral("home")); }
  QString place() const { return folder_.filePath(QStringLiteral("place")); }
  QString at(const QString& name) const { return place() + u'/' + name; }
  QString path(const QString& name) const { return folder_.filePath(name); }

  void setEndpoint(const QString& address) const {
    writeWhole(home() + QStringLiteral("/endpoints.ini"), "[endpoints]\nupdate=" + address.toUtf8() + '\n');
  }

  double storedVersion() const {
    Tables tables;
    tables.openAllTables(home() + QStringLiteral("/soran.mdb"));
    return tables.settings()[key::SORANバージョン].value_or(-1);
  }

  QStringList filesOfPlace() const { return QDir(place()).entryList(QDir::Files | QDir::Hidden, QDir::Name); }

  UpdateJob job(const QByteArray& publicKey) const {
    return {.home = home(),
            .endpointsFile = {},
            .program = at(QStringLiteral("soran")),
            .publicKey = publicKey,
            .waitForEnd = 100};
  }

  const QMap<QString, QByteArray> former = {{QStringLiteral("soran"), QByteArray(30'000, 'o')},
                                            {QStringLiteral("soran-cli"), QByteArray(20'000, 'p')}};

 private:
  OwnFolder folder_;
};

} // namespace soran
