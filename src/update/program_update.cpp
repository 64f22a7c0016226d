// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/program_update.h"

#include "base/files.h"
#include "base/own_folder.h"
#include "base/skip.h"
#include "base/text.h"
#include "platform/net_inet.h"
#include "store/daily_backup.h"
#include "store/foreign_database.h"
#include "update/accepted_version.h"
#include "update/carry_over.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcUpdate, "soran.store", QtInfoMsg)

constexpr QStringView modulePath = u"update.exe";
constexpr QStringView acceptedModule = u"module.version";
constexpr QStringView moduleAddress = u"/data/update.exe";
constexpr QStringView databaseAddress = u"/data/soran.mdb";

QByteArray contents(const QString& path) {
  return readPlainFile(path, NetInet::largestBody).bytes;
}

bool isUsersOwnMachine(const QUrl& endpoint) {
  return (endpoint.isLocalFile() && isOwnFolder(endpoint.toLocalFile())) || endpoint.scheme() == u"qrc" ||
         isLoopback(endpoint);
}

bool takesUnsigned(const Endpoints& endpoints) {
  return !endpoints.signedUpdates && isUsersOwnMachine(QUrl(endpoints.update));
}

QByteArray sumOf(const QByteArray& bytes) {
  return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256);
}

bool isOlder(const Services& services, const QByteArray& module) {
  return leadingNumber(moduleVersion(module)) < acceptedVersion(services.path(acceptedModule));
}

bool isSameVersion(double one, double other) {
  return float(one) == float(other);
}

} // namespace

EndpointVersions readVersions(QStringView text) {
  const auto lines = text.split(u'\n');
  const auto number = [&lines](qsizetype i) { return i < lines.size() ? leadingNumber(lines[i]) : 0; };
  return {number(0), number(1), number(2)};
}

QString versionText(double version) {
  return plainNumber(version, 7);
}

bool ProgramUpdate::fetchFile(const QString& remote, const QString& local) {
  const Reply reply = services_.inet.open(QUrl(baseUrl_ + remote));
  if (!reply.isAnswer()) {
    // An endpoint need not serve everything.
    qCDebug(lcUpdate) << "passed over: fetching" << remote;
    return false;
  }
  const bool written =
      remote == moduleAddress ? writeModule(local, reply.body) : writeWhole(local, reply.body, true);
  if (!written)
    qCWarning(lcUpdate) << "passed over: writing" << local;
  return written;
}

bool ProgramUpdate::writeModule(const QString& local, const QByteArray& module) {
  const Reply reply = services_.inet.open(QUrl(baseUrl_ + moduleAddress + u".sig"));
  // A signature may begin with any byte.
  const bool answered = reply.isAnswer() || (reply.ok && reply.body.size() == signatureSize);
  const QByteArray signature = answered ? reply.body : QByteArray();
  const bool isSigned = signatureFits(module, signature, publicKey_);
  const bool unsignedToo = takesUnsigned(services_.endpoints);
  if (isSigned && !unsignedToo && isOlder(services_, module)) {
    qCWarning(lcUpdate) << "passed over: an update module older than the one before";
    return false;
  }
  // The signature goes first: a module that is there is not fetched again, so it must never lack its own.
  QFile::remove(local + u".sig");
  if (!signature.isEmpty() && !writeWhole(local + u".sig", signature, true))
    return false;
  if (!writeWhole(local, module, true))
    return false;
  services_.copiedModule = unsignedToo ? sumOf(module) : QByteArray();
  const QString version = moduleVersion(module);
  const QString accepted = services_.path(acceptedModule);
  return !isSigned || leadingNumber(version) <= acceptedVersion(accepted) || acceptVersion(accepted, version);
}

bool ProgramUpdate::fetchDatabase(const QString& local) {
  const QString foreign = local + u".fetched";
  const auto remove = qScopeGuard([&foreign] { QFile::remove(foreign); });
  QFile::remove(local);
  return fetchFile(databaseAddress.toString(), foreign) &&
         passOver(lcUpdate(), "taking the rows of a database over",
                  [&] { copyForeignDatabase(foreign, local); });
}

bool ProgramUpdate::databaseIsReadOnly() const {
  const QFileInfo database(services_.path(u"soran.mdb"));
  // The mode counts for root too, who may write everything.
  return database.exists() && !(database.isWritable() && database.permission(QFile::WriteOwner));
}

void ProgramUpdate::renewModule(double version) {
  Settings& settings = tables_.settings();
  if (isSameVersion(settings[key::UPDATEバージョン].value_or(0), version) || databaseIsReadOnly())
    return;
  const QString fetched = services_.path(u"update$.exe");
  const QString module = services_.path(modulePath);
  if (!fetchFile(moduleAddress.toString(), fetched) || !renameOver(fetched, module))
    return;
  const bool isSigned = fileExists(fetched + u".sig");
  if (!renameOver(fetched + u".sig", module + u".sig")) {
    QFile::remove(module + u".sig");
    if (isSigned)
      return;
  }
  passOver(lcUpdate(), "recording the version of the update module", [&] {
    settings.set(key::UPDATEバージョン, version);
    settings.set(key::UPDATE更新日, dateText(services_.clock));
    settings.update();
  });
  if (settings[key::更新確認メッセージ] == true)
    services_.dialogs.message(u" 更新"_s, u"自動アップデートモジュールを更新しました　　\r\n\r\nVersion " +
                                              versionText(settings[key::UPDATEバージョン].value_or(0)));
  services_.shutdown.check();
}

void ProgramUpdate::renewDatabase(double version) {
  Settings& settings = tables_.settings();
  if (isSameVersion(settings[key::DBバージョン].value_or(0), version) || databaseIsReadOnly())
    return;
  const QString fetched = services_.path(u"data/soran$.mdb");
  const auto remove = qScopeGuard([&fetched] { QFile::remove(fetched); });
  if (!fetchDatabase(fetched))
    return;
  if (!swapDatabase(fetched)) {
    qCWarning(lcUpdate) << "passed over: renewing the database";
    return;
  }
  if (settings[key::DBバージョン].value_or(0) == 0)
    services_.dialogs.message(u" 確認"_s, u"データベースを初期化しました　　"_s);
  else if (settings[key::更新確認メッセージ] == true)
    services_.dialogs.message(u" 更新"_s,
                              u"データベースを更新しました　　\r\n\r\nVersion " + versionText(version));
  services_.shutdown.check();
  recordDatabase(version);
}

void ProgramUpdate::recordDatabase(double version) {
  Settings& settings = tables_.settings();
  passOver(lcUpdate(), "recording the version of the database", [&] {
    settings.set(key::DBバージョン, version);
    settings.set(key::DB更新日, dateText(services_.clock));
    settings.update();
  });
}

bool ProgramUpdate::swapDatabase(const QString& newFile) {
  const QString database = services_.path(u"soran.mdb");
  const QString backup = database + u".bak";
  const bool carried =
      passOver(lcUpdate(), "carrying the data over", [&] { carryOverData(tables_, newFile); });
  if (!carried)
    return false;
  tables_.closeAll();
  const QByteArray former = hasHotJournal(database) ? QByteArray() : contents(database);
  const bool swapped = !former.isEmpty() && makeRoomForCopy(backup, services_.clock) &&
                       writeWhole(backup, former, true) && renameOver(newFile, database);
  passOver(lcUpdate(), "opening the database", [&] { tables_.openAllTables(database); });
  return swapped;
}

bool ProgramUpdate::readyModule() {
  if (moduleMayRun(services_, publicKey_))
    return true;
  const QString module = services_.path(modulePath);
  if (!services_.handsOver || !takesUnsigned(services_.endpoints) || QFileInfo(module).size() == 0)
    return false;
  if (!services_.startsModule)
    return true;
  return fetchFile(moduleAddress.toString(), module) && moduleMayRun(services_, publicKey_);
}

bool ProgramUpdate::moduleMayRun(const Services& services, const QByteArray& publicKey) {
  const QString module = services.path(modulePath);
  const QByteArray bytes = contents(module);
  if (!services.handsOver || bytes.isEmpty())
    return false;
  if (takesUnsigned(services.endpoints) && sumOf(bytes) == services.copiedModule)
    return true;
  return signatureFits(bytes, contents(module + u".sig"), publicKey) && !isOlder(services, bytes);
}

} // namespace soran
