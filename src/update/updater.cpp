// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/updater.h"

#include "base/text.h"
#include "base/version.h"
#include "store/tables.h"
#include "update/accepted_version.h"
#include "update/signature.h"
#include "update/update_error.h"

#include <QCryptographicHash>
#include <QFileInfo>
#include <algorithm>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView acceptedVersionFile = u"update.version";

} // namespace

Endpoints endpointsOf(const UpdateJob& job) {
  const QString installed =
      QFileInfo(QFileInfo(job.program).canonicalPath() + u"/../share/soran/endpoints.ini")
          .canonicalFilePath();
  const QString own = job.endpointsFile.isEmpty() ? job.home + u"/endpoints.ini" : job.endpointsFile;
  FileFault fault = FileFault::None;
  const Endpoints endpoints = Endpoints().overriddenBy(installed).overriddenBy(own, &fault);
  // One that is there and cannot be read might name another endpoint.
  return fault == FileFault::None || fault == FileFault::Missing ? endpoints : Endpoints();
}

Updater::Updater(UpdateJob job, std::function<void(const QString&)> tell)
    : job_(std::move(job)), tell_(std::move(tell)), endpoint_(endpointsOf(job_).update) {}

Updater::Outcome Updater::run() {
  FileLock running(homePath(u"soran.lock"));
  if (const FileLock::Result lock = running.take(job_.waitForEnd); lock != FileLock::Result::Taken) {
    const bool held = lock == FileLock::Result::Held;
    tell_(held ? u"SORAN が終了しないため、更新できません"_s
               : u"プログラムのディレクトリに書き込めないため、更新できません: " + job_.home);
    return held ? Outcome::StillRunning : Outcome::Failed;
  }
  try {
    return update();
  } catch (const std::exception& e) {
    tell_(QString::fromUtf8(e.what()));
    tell_(u"更新は行われませんでした。SORAN は元のままです"_s);
    return Outcome::Failed;
  }
}

Updater::Outcome Updater::update() {
  ProgramPlace place(job_.program);
  const Manifest manifest = fetchManifest();
  refuseOlder(manifest.version);
  const auto inPlace = [&place](const ProgramFile& file) { return place.holds(file.name, file.sha256); };
  const bool current = std::all_of(manifest.files.begin(), manifest.files.end(), inPlace);
  if (!current)
    stageFiles(manifest, place);
  if (!acceptVersion(homePath(acceptedVersionFile), manifest.version))
    throw UpdateError(u"バージョンを記録できません"_s);
  // Before the exchange: a program whose version reads 0 records its own at the next start, be it the former
  // one or the new one. The other way round a new program could stand beside an old version for good.
  resetStoredVersion();
  if (current) {
    tell_(u"SORAN は最新版です: Version " + manifest.version);
    return Outcome::Current;
  }
  place.exchange();
  tell_(u"SORAN を Version " + manifest.version + u" に更新しました");
  return Outcome::Updated;
}

QByteArray Updater::fetch(const QString& path, qint64 limit, const QString& what) {
  constexpr int seconds = 900;
  NetInet inet(makeNetwork(), shutdown_, limit);
  inet.setRequestTimeout(seconds);
  const Reply reply = inet.open(QUrl(endpoint_ + path));
  if (!reply.ok || reply.body.isEmpty())
    throw UpdateError(what + u"をダウンロードできません");
  return reply.body;
}

Manifest Updater::fetchManifest() {
  if (endpoint_.isEmpty())
    throw UpdateError(u"アップデートサーバーが設定されていません"_s);
  if (job_.publicKey.isEmpty())
    throw UpdateError(u"署名を確かめる公開鍵がないため、更新できません"_s);
  const QString path = manifestPath(job_.system);
  const QByteArray manifest = fetch(path, largestManifest, u"更新情報"_s);
  const QByteArray signature = fetch(path + u".sig", largestManifest, u"更新情報の署名"_s);
  if (signature.size() != signatureSize || !signatureFits(manifest, signature, job_.publicKey))
    throw UpdateError(u"更新情報の署名が正しくありません"_s);
  return readManifest(manifest, job_.system);
}

void Updater::refuseOlder(const QString& version) const {
  double newest = leadingNumber(programVersion);
  // A program that never was updated has no such file.
  newest = std::max(newest, acceptedVersion(homePath(acceptedVersionFile)));
  if (leadingNumber(version) < newest)
    throw UpdateError(u"サーバーのバージョンが古いため、更新できません: Version " + version);
}

void Updater::stageFiles(const Manifest& manifest, ProgramPlace& place) {
  const QString folder = manifestPath(job_.system).section(u'/', 0, -2) + u'/';
  for (const ProgramFile& file : manifest.files) {
    // An update that ended in the middle has brought some of them already.
    if (place.holds(file.name, file.sha256))
      continue;
    tell_(u"ダウンロード中: " + file.name);
    const QByteArray bytes = fetch(folder + file.path, file.size, file.name);
    if (bytes.size() != file.size ||
        QCryptographicHash::hash(bytes, QCryptographicHash::Sha256) != file.sha256)
      throw UpdateError(u"ダウンロードしたファイルが壊れています: " + file.name);
    place.stage(file.name, bytes);
  }
}

void Updater::resetStoredVersion() const {
  try {
    Tables tables;
    tables.openAllTables(homePath(u"soran.mdb"));
    tables.settings().set(key::SORANバージョン, 0.0);
    tables.settings().update();
  } catch (const StoreError&) {
    throw UpdateError(u"データベースに書き込めません"_s);
  }
}

} // namespace soran
