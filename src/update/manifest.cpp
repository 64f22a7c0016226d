// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/manifest.h"

#include "update/update_error.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QSet>
#include <QSysInfo>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype sha256Length = 32;

bool matches(const QString& text, const QString& pattern) {
  return QRegularExpression(QRegularExpression::anchoredPattern(pattern)).match(text).hasMatch();
}

ProgramFile readFile(const QJsonObject& entry) {
  ProgramFile file;
  file.name = entry[u"name"_s].toString();
  file.path = entry[u"path"_s].toString();
  file.size = entry[u"size"_s].toInteger();
  const QString sum = entry[u"sha256"_s].toString();
  file.sha256 = QByteArray::fromHex(sum.toLatin1());
  // So no file of data can be meant, and no former or half-written program either.
  if (!matches(file.name, u"soran(-[a-z0-9]+)*|\\.\\./lib/soran/plugins/soran(-[a-z0-9]+)*\\.so"_s))
    throw UpdateError(u"更新情報のファイル名が不正です: " + file.name);
  if (!matches(file.path, u"[A-Za-z0-9_-][A-Za-z0-9._-]*(/[A-Za-z0-9_-][A-Za-z0-9._-]*)*"_s))
    throw UpdateError(u"更新情報のパスが不正です: " + file.path);
  if (file.size <= 0 || file.size > largestProgramFile)
    throw UpdateError(u"更新ファイルの大きさが範囲外です: " + file.name);
  if (!matches(sum, u"[0-9a-fA-F]{64}"_s) || file.sha256.size() != sha256Length)
    throw UpdateError(u"更新情報のチェックサムが不正です: " + file.name);
  return file;
}

} // namespace

QString thisSystem() {
  return QSysInfo::kernelType() + u'-' + QSysInfo::buildCpuArchitecture();
}

QString manifestPath(const QString& system) {
  return u"/data/program/" + system + u"/manifest.json";
}

bool isVersion(const QString& text) {
  constexpr qsizetype length = 4;
  return text.size() == length && matches(text, u"[0-9]+\\.[0-9]+"_s);
}

Manifest readManifest(const QByteArray& json, const QString& system) {
  const QJsonObject root = QJsonDocument::fromJson(json).object();
  if (root[u"product"_s] != u"soran"_s || root[u"system"_s] != system)
    throw UpdateError(u"更新情報がこのシステムのものではありません"_s);
  Manifest manifest;
  manifest.version = root[u"version"_s].toString();
  if (!isVersion(manifest.version))
    throw UpdateError(u"更新情報のバージョンが不正です"_s);
  const QJsonArray entries = root[u"files"_s].toArray();
  if (entries.isEmpty() || entries.size() > mostProgramFiles)
    throw UpdateError(u"更新情報のファイル数が不正です"_s);
  QSet<QString> names;
  for (const QJsonValue entry : entries) {
    manifest.files.append(readFile(entry.toObject()));
    names.insert(manifest.files.last().name);
  }
  if (names.size() != manifest.files.size())
    throw UpdateError(u"更新情報に同じファイルが二度あります"_s);
  return manifest;
}

} // namespace soran
