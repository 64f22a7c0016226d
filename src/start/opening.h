// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/file_lock.h"
#include "runs/program.h"
#include "store/database.h"
#include "update/program_update.h"

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
        lock_(program.services.path(u"soran.lock")) {}

  enum class Result {
    Started,        ///< the main window may come up
    AlreadyRunning, ///< another instance has the directory; the user was told
    NoNetwork,      ///< no answer of the update endpoint; the user was told
    NoDirectory,    ///< the program's directory cannot be made
    NoDatabase,     ///< no database could be opened, not even the delivered one
    OtherFormat,    ///< the database is one, but not of the program's format; the user was told
  };

  /// Runs the start to its end. Waits in the event loop; throws Unwind where it was closed meanwhile.
  Result start();

  /// Why the last start did not come to its end, in words; empty where it did.
  const QString& failure() const { return failure_; }

  /// What the start has to tell on the screen, empty where there is nothing.
  const QString& notice() const { return notice_; }

 private:
  Result failed(Result result, const QString& why);
  bool networkIsThere();
  void fetchMissing();
  Result openDatabase();
  bool restoreDatabase();
  QString restorationSource(const QString& target);
  void recordVersion();
  void renewFiles();
  void takeServerAddress();
  QString databasePath() const {
    return spare_ ? spare_->filePath(QStringLiteral("soran.mdb")) : program_.services.path(u"soran.mdb");
  }

  Program& program_;
  ProgramUpdate update_;
  FileLock lock_;
  std::unique_ptr<QTemporaryDir> spare_; // holds the database where the directory cannot
  QString versionText_;
  QString notice_;
  QString failure_;
  bool firstStart_ = false;
};

} // namespace soran
