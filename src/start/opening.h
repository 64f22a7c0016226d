// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/file_lock.h"
#include "runs/program.h"
#include "start/own_directory.h"
#include "store/database.h"
#include "update/program_update.h"

#include <QDateTime>
#include <QTemporaryDir>
#include <memory>
#include <optional>

namespace soran {

/// The update address that the text of server.dat tells: one of http, https or a folder, without trailing
/// slash. Nothing where it tells none.
std::optional<QString> serverAddress(const QString& text);

/// The start of the program: instance lock, network check, directories, missing files, database, versions.
class Opening {
 public:
  explicit Opening(Program& program)
      : program_(program), update_(program.services, program.tables, program.services.endpoints.update),
        directory_(program.services.directory), lock_(program.services.path(u"soran.lock")) {}

  enum class Result {
    Started,        ///< the main window may come up
    AlreadyRunning, ///< another instance has the directory; the user was told
    NoEndpoints,    ///< the file that says whom to ask cannot be read
    NoNetwork,      ///< no answer of the update endpoint; the user was told
    NoDirectory,    ///< the program's directory cannot be made, or holds what is not the program's own
    NoDatabase,     ///< the database cannot be opened, and is not known to be damaged; or there is none
    OtherFormat,    ///< the database is one, but not of the program's format
  };

  /// Runs the start to its end; where it does not come to it, the user was told and nothing is left that was
  /// not there. Waits in the event loop; throws Unwind where it was closed meanwhile.
  Result start();

  /// Why the last start did not come to its end, in words; empty where it did.
  const QString& failure() const { return failure_; }

  /// What the start has to tell on the screen, in lines; empty where there is nothing.
  const QString& notice() const { return notice_; }

 private:
  Result failed(Result result, const QString& why);
  void withdraw();
  bool networkIsThere();
  void fetchMissing();
  Result openDatabase();
  bool restoreDatabase();
  bool putAside(const QString& database, const QString& damaged);
  void tellRestoration(const QString& damaged);
  /// Where a database was taken from in the place of the lost one.
  struct Origin {
    QString name;   // BACKUP or DELIVERED FILE; empty where there was none
    QDateTime made; // of a backup
  };
  Origin restorationSource(const QString& target);
  void recordVersion();
  void renewFiles();
  void takeServerAddress();
  QString databasePath() const {
    return spare_ ? spare_->filePath(QStringLiteral("soran.mdb")) : program_.services.path(u"soran.mdb");
  }

  Program& program_;
  ProgramUpdate update_;
  OwnDirectory directory_;
  FileLock lock_;
  Origin origin_;
  std::unique_ptr<QTemporaryDir> spare_; // holds the database where the directory cannot
  QString versionText_;
  QString notice_;
  QString failure_;
  bool firstStart_ = false;
};

} // namespace soran
