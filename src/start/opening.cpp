// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "start/opening.h"

#include "base/files.h"
#include "base/skip.h"
#include "base/text.h"
#include "base/version.h"
#include "start/own_directory.h"
#include "store/cipher.h"
#include "store/daily_backup.h"

#include <QDir>
#include <QFile>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcTerminal, "soran.terminal")

/// Whether a failure is one of what the file holds, and not of the moment.
bool isSaidOfTheFile(StoreError::Kind kind) {
  using enum StoreError::Kind;
  return kind == Corrupt || kind == NotADatabase || kind == Other;
}

/// Only what the library found to be damaged, in a file of which every byte could be read, is to be replaced
/// by an older copy; an empty one holds nothing that could be lost. Whatever cannot be opened just now is
/// whole for all that is known.
bool isLost(const QString& database, const std::optional<StoreError>& error) {
  constexpr qint64 largestDatabase = 1LL << 30; // bytes
  if (!nameIsTaken(database))
    return true;
  const FileBytes file = readPlainFile(database, largestDatabase);
  if (!file.ok() || file.bytes.isEmpty() || !error)
    return file.ok() && file.bytes.isEmpty();
  // Another key, or, in an early release of the library, a page whose code is wrong: its codes decide.
  return error->kind() == StoreError::Kind::Corrupt ||
         (isSaidOfTheFile(error->kind()) && !cipher::isUndamaged(file.bytes));
}

} // namespace

std::optional<QString> serverAddress(const QString& text) {
  const QString address = text.trimmed();
  const QUrl url(address, QUrl::StrictMode);
  const bool onHost = (url.scheme() == u"http" || url.scheme() == u"https") && !url.host().isEmpty();
  // Names are put behind the address.
  const bool isBase =
      !address.contains(u'\n') && !address.endsWith(u'/') && !url.hasQuery() && !url.hasFragment();
  if ((onHost || url.isLocalFile()) && url.isValid() && isBase)
    return address;
  return std::nullopt;
}

Opening::Result Opening::start() {
  if (!program_.services.fault.isEmpty())
    return failed(Result::NoEndpoints, program_.services.fault);
  switch (directory_.claim()) {
  case OwnDirectory::Result::Claimed:
    break;
  case OwnDirectory::Result::Foreign:
    return failed(Result::NoDirectory,
                  u"SORAN のものではないファイルがあるため、このディレクトリは使えません: "_s +
                      QDir::toNativeSeparators(directory_.foreignFolder()));
  case OwnDirectory::Result::Impossible:
    return failed(Result::NoDirectory, u"プログラムのディレクトリを作成できません: "_s +
                                           QDir::toNativeSeparators(program_.services.directory));
  }
  // Where the directory cannot be written there is nothing that two instances could spoil.
  switch (lock_.take()) {
  case FileLock::Result::Held:
    program_.services.dialogs.message(u" 確認"_s, u"SORAN はすでに起動しています  "_s);
    failure_ = u"SORAN はすでに起動しています"_s;
    return Result::AlreadyRunning;
  case FileLock::Result::Foreign:
    return failed(Result::NoDirectory,
                  faultText(FileFault::NotPlain) + u": " + program_.services.path(u"soran.lock"));
  default:
    break;
  }
  program_.services.inet.setRequestTimeout(60);
  program_.networkAvailable = networkIsThere();
  if (!program_.networkAvailable && program_.services.endpoints.probe.isEmpty()) {
    program_.services.forms.showModal(form::NoConnection{});
    failure_ = u"インターネットに接続できません"_s;
    withdraw();
    return Result::NoNetwork;
  }
  fetchMissing();
  if (const Result opened = openDatabase(); opened != Result::Started)
    return opened;
  recordVersion();
  renewFiles();
  takeServerAddress();
  for (const QString& remark : program_.services.endpoints.remarks)
    notice_ += (notice_.isEmpty() ? QString() : crlf.toString()) + remark;
  return Result::Started;
}

bool Opening::networkIsThere() {
  const Reply version = program_.services.inet.open(QUrl(program_.baseUrl + u"/data/version.dat"));
  if (version.isAnswer())
    versionText_ = version.text();
  const QString& probe = program_.services.endpoints.probe;
  return probe.isEmpty() ? version.isAnswer() : program_.services.inet.open(QUrl(probe)).isAnswer();
}

void Opening::fetchMissing() {
  const QString database = databasePath();
  // Where there is a copy of one, it is lost and to be restored.
  firstStart_ = !nameIsTaken(database) && backupsOf(program_.services.path(u"soran.mdb")).isEmpty();
  if (firstStart_) {
    const QString fetched = database + u".new";
    if (update_.fetchDatabase(fetched))
      renameOver(fetched, database);
    QFile::remove(fetched);
  }
  const std::pair<QString, QString> files[] = {{u"/data/update.exe"_s, u"update.exe"_s},
                                               {u"/data/error.wav"_s, u"sound/error.wav"_s},
                                               {u"/data/ring.wav"_s, u"sound/ring.wav"_s}};
  for (const auto& [remote, local] : files) {
    const QString path = program_.services.path(local);
    if (!fileExists(path))
      update_.fetchFile(remote, path);
  }
}

Opening::Result Opening::failed(Result result, const QString& why) {
  failure_ = why;
  withdraw();
  program_.services.dialogs.message(u" 確認"_s, why);
  return result;
}

void Opening::withdraw() {
  lock_.release();
  directory_.withdraw();
}

Opening::Result Opening::openDatabase() {
  std::optional<StoreError> error;
  const auto openTables = [&] {
    try {
      program_.tables.openAllTables(databasePath());
      // Most of the file is pictures, which a run seldom shows: they are looked over once a day.
      if (isDailyCopyDue(databasePath(), program_.services.clock))
        program_.tables.readPictures();
    } catch (const StoreError& e) {
      error = e;
      throw;
    }
  };
  const auto open = [&] {
    return passOver(lcTerminal(), "opening the database", openTables) &&
           program_.tables.byName(table::設定)->recordCount() == 1;
  };
  if (open())
    return Result::Started;
  program_.tables.closeAll();
  // The library of Debian 13 tells a read that failed as a damaged page: only what it says again is so.
  if (error && isSaidOfTheFile(error->kind())) {
    error.reset();
    if (open())
      return Result::Started;
    program_.tables.closeAll();
  }
  const QString database = databasePath();
  if (error && error->kind() == StoreError::Kind::NotADatabase && cipher::isDatabaseOfAnotherFormat(database))
    return failed(Result::OtherFormat, u"データベースの形式が異なるため、開くことができません　　\r\n\r\n" +
                                           QDir::toNativeSeparators(database));
  if (isLost(database, error) && restoreDatabase() && open())
    return Result::Started;
  const StoreError why = error.value_or(StoreError("rows are missing", StoreError::Kind::Other));
  return failed(Result::NoDatabase,
                u"データベースを開けません: " + storeFailure(why, QDir::toNativeSeparators(database)));
}

Opening::Origin Opening::restorationSource(const QString& target) {
  QFile::remove(target);
  for (const QString& backup : backupsOf(program_.services.path(u"soran.mdb"))) {
    const QDateTime made = QFileInfo(backup).lastModified();
    if (isWholeDatabase(backup) && QFile::copy(backup, target))
      return {u"BACKUP"_s, made};
  }
  if (update_.fetchDatabase(target))
    return {u"DELIVERED FILE"_s, {}};
  if (writeWhole(target, program_.services.deliveredDatabase(), true) && isWholeDatabase(target))
    return {u"DELIVERED FILE"_s, {}};
  QFile::remove(target);
  return {};
}

bool Opening::restoreDatabase() {
  const QString database = databasePath();
  origin_ = restorationSource(database + u".new");
  if (origin_.name.isEmpty()) {
    // The directory cannot be written: the weather can be read all the same, from a database that goes at
    // exit.
    spare_ = std::make_unique<QTemporaryDir>();
    if (restorationSource(databasePath()).name.isEmpty())
      return false;
    notice_ = u"DATABASE CANNOT BE WRITTEN / NOTHING WILL BE STORED"_s;
    // The screen is soon another one.
    program_.services.dialogs.message(
        u" 確認"_s, u"データベースを作成できません。入力した内容は、終了すると失われます　　\r\n\r\n" +
                        QDir::toNativeSeparators(database));
    program_.services.shutdown.check();
    return true;
  }
  const bool isThere = fileExists(database);
  const QString stamp = program_.services.clock.now().toString(u"yyyyMMdd-HHmmss");
  const QString damaged = freeName(database + u".damaged-" + stamp);
  if (!putAside(database, damaged) || !renameOver(database + u".new", database)) {
    QFile::remove(database + u".new");
    return false;
  }
  QFile::setPermissions(database, QFile::ReadOwner | QFile::WriteOwner);
  if (!firstStart_)
    tellRestoration(isThere ? damaged : QString());
  return true;
}

/// What cannot be read today may be mended by hand tomorrow. Its journal goes with it: beside the restored
/// file it would be rolled back into that one.
bool Opening::putAside(const QString& database, const QString& damaged) {
  const QString journal = database + u"-journal";
  return (!fileExists(journal) || renameOver(journal, damaged + u"-journal")) &&
         (!fileExists(database) || renameOver(database, damaged));
}

void Opening::tellRestoration(const QString& damaged) {
  const QDateTime now = program_.services.clock.now();
  const QString made = origin_.made.toOffsetFromUtc(now.offsetFromUtc()).toString(u"yyyy/MM/dd HH:mm");
  const bool isBackup = origin_.made.isValid();
  notice_ =
      u"DATABASE RESTORED FROM " + origin_.name + crlf +
      (isBackup ? u"COPY OF "_s + made + u" / LATER ENTRIES ARE MISSING" : u"YOUR ENTRIES ARE MISSING"_s);
  if (!damaged.isEmpty())
    notice_ += crlf + u"DAMAGED FILE KEPT AS " + QFileInfo(damaged).fileName();
  QString text = damaged.isEmpty() ? u"データベースがありません　　\r\n\r\n"_s
                                   : u"データベースが壊れています　　\r\n\r\n"_s;
  text += isBackup ? made + u" の控えから復元しました。それより後に入力した内容はありません　　"
                   : u"配布時のデータベースに戻しました。入力した内容はありません　　"_s;
  if (!damaged.isEmpty())
    text += u"\r\n壊れたファイルは次の名前で残してあります　　\r\n" + QDir::toNativeSeparators(damaged);
  program_.services.dialogs.message(u" 確認"_s, text);
  program_.services.shutdown.check();
}

void Opening::recordVersion() {
  Settings& settings = program_.settings();
  if (settings[key::SORANバージョン].value_or(0) != 0)
    return;
  passOver(lcTerminal(), "recording the version", [&] {
    settings.setValue(SettingIndex::SORANバージョン, programVersion.toString());
    settings.set(key::SORAN更新日, dateText(program_.services.clock));
    settings.update();
  });
}

void Opening::renewFiles() {
  if (versionText_.isEmpty())
    return;
  const EndpointVersions versions = readVersions(versionText_);
  // A newcomer's demonstration begins with its terminal and not with a notice about a database it just made.
  if (firstStart_ && program_.services.demonstration)
    update_.recordDatabase(versions.database);
  update_.renewModule(versions.module);
  // A database that lies elsewhere for this run is not the one to renew.
  if (!spare_)
    update_.renewDatabase(versions.database);
}

void Opening::takeServerAddress() {
  const Reply reply = program_.services.inet.open(QUrl(program_.baseUrl + u"/data/server.dat"));
  if (const auto address = reply.isAnswer() ? serverAddress(reply.text()) : std::nullopt)
    program_.baseUrl = *address;
  if (program_.settings()[key::BASEurl] != program_.baseUrl)
    program_.settings().store(key::BASEurl, program_.baseUrl);
}

} // namespace soran
