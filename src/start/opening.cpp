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
#include <cstdio>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcTerminal, "soran.terminal")

/// True where the answer is text of the endpoint and no error page.
bool isAnswer(const Reply& reply) {
  return reply.ok && !reply.body.isEmpty() && !reply.body.startsWith('<');
}

/// The first name that no earlier damaged database has; the last one is used again and again.
QString damagedName(const QString& database) {
  constexpr int mostKept = 9;
  QString name = database + u".damaged";
  const auto isThere = [](const QString& file) { return fileExists(file) || fileExists(file + u"-journal"); };
  for (int i = 2; i <= mostKept && isThere(name); ++i)
    name = database + u".damaged" + QString::number(i);
  return name;
}

bool replaceFile(const QString& from, const QString& to) {
  return std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
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
  const QString& directory = program_.services.directory;
  if (!claimDirectory(directory))
    return failed(Result::NoDirectory, u"プログラムのディレクトリを作成できません"_s);
  // Where the directory cannot be written there is nothing that two instances could spoil.
  if (lock_.take() == FileLock::Result::Held) {
    program_.services.dialogs.message(u" 確認"_s, u"SORAN はすでに起動しています  "_s);
    return failed(Result::AlreadyRunning, u"SORAN はすでに起動しています"_s);
  }
  program_.services.inet.setRequestTimeout(60);
  program_.networkAvailable = networkIsThere();
  if (!program_.networkAvailable && program_.services.endpoints.probe.isEmpty()) {
    program_.services.forms.showModal(form::NoConnection{});
    return failed(Result::NoNetwork, u"インターネットに接続できません"_s);
  }
  for (const QString& folder : {u"sound"_s, u"data"_s}) {
    if (!makePrivateDirectory(directory + u'/' + folder))
      qCWarning(lcTerminal) << "passed over: making the folder" << folder;
  }
  fetchMissing();
  if (const Result opened = openDatabase(); opened != Result::Started)
    return opened;
  recordVersion();
  renewFiles();
  takeServerAddress();
  return Result::Started;
}

bool Opening::networkIsThere() {
  const Reply version = program_.services.inet.open(QUrl(program_.baseUrl + u"/data/version.dat"));
  if (isAnswer(version))
    versionText_ = version.text();
  const QString& probe = program_.services.endpoints.probe;
  return probe.isEmpty() ? isAnswer(version) : isAnswer(program_.services.inet.open(QUrl(probe)));
}

void Opening::fetchMissing() {
  const QString database = databasePath();
  // Where there is a copy of one, it is lost and to be restored.
  firstStart_ = !fileExists(database) && backupsOf(program_.services.path(u"soran.mdb")).isEmpty();
  if (firstStart_) {
    const QString fetched = database + u".new";
    if (update_.fetchDatabase(fetched))
      replaceFile(fetched, database);
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
  return result;
}

Opening::Result Opening::openDatabase() {
  auto why = StoreError::Kind::Other;
  const auto openTables = [this, &why] {
    try {
      program_.tables.openAllTables(databasePath());
    } catch (const StoreError& e) {
      why = e.kind();
      throw;
    }
  };
  const auto open = [this, &openTables] {
    return passOver(lcTerminal(), "opening the database", openTables) &&
           program_.tables.byName(table::設定)->recordCount() == 1;
  };
  if (open())
    return Result::Started;
  program_.tables.closeAll();
  if (why == StoreError::Kind::NotADatabase && cipher::isDatabaseOfAnotherFormat(databasePath())) {
    const QString text = u"データベースの形式が異なるため、開くことができません　　\r\n\r\n" +
                         QDir::toNativeSeparators(databasePath());
    program_.services.dialogs.message(u" 確認"_s, text);
    return failed(Result::OtherFormat,
                  u"データベースの形式が異なるため、開くことができません: " + databasePath());
  }
  // One that cannot be opened just now, held by another process or not to be read, is whole for all that is
  // known, and is not to be replaced by an older one.
  const bool isLost = !fileExists(databasePath()) || why == StoreError::Kind::Corrupt ||
                      why == StoreError::Kind::NotADatabase || why == StoreError::Kind::Other;
  if (isLost && restoreDatabase() && open())
    return Result::Started;
  return failed(Result::NoDatabase, u"データベースを開けません: " + databasePath());
}

QString Opening::restorationSource(const QString& target) {
  QFile::remove(target);
  for (const QString& backup : backupsOf(program_.services.path(u"soran.mdb"))) {
    if (isWholeDatabase(backup) && QFile::copy(backup, target))
      return u"BACKUP"_s;
  }
  if (update_.fetchDatabase(target))
    return u"DELIVERED FILE"_s;
  if (writeWhole(target, program_.services.deliveredDatabase(), true) && isWholeDatabase(target))
    return u"DELIVERED FILE"_s;
  QFile::remove(target);
  return {};
}

bool Opening::restoreDatabase() {
  QString source = restorationSource(databasePath() + u".new");
  if (source.isEmpty()) {
    // The directory cannot be written: the weather can be read all the same, from a database that goes at
    // exit.
    spare_ = std::make_unique<QTemporaryDir>();
    source = restorationSource(databasePath());
    notice_ = u"DATABASE CANNOT BE WRITTEN / NOTHING WILL BE STORED"_s;
    return !source.isEmpty();
  }
  const QString database = databasePath();
  // What cannot be read today may be mended by hand tomorrow.
  const QString damaged = damagedName(database);
  if (fileExists(database))
    replaceFile(database, damaged);
  // Its journal goes with it: beside the restored file it would be rolled back into that one.
  QFile::remove(damaged + u"-journal");
  if (fileExists(database + u"-journal"))
    replaceFile(database + u"-journal", damaged + u"-journal");
  if (!replaceFile(database + u".new", database))
    return false;
  QFile::setPermissions(database, QFile::ReadOwner | QFile::WriteOwner);
  if (!firstStart_)
    notice_ = u"DATABASE RESTORED FROM " + source;
  return true;
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
  if (const auto address = isAnswer(reply) ? serverAddress(reply.text()) : std::nullopt)
    program_.baseUrl = *address;
  if (program_.settings()[key::BASEurl] != program_.baseUrl)
    program_.settings().store(key::BASEurl, program_.baseUrl);
}

} // namespace soran
