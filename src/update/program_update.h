// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/services.h"
#include "store/tables.h"
#include "update/signature.h"

namespace soran {

/// The three versions that an update endpoint tells, one a line. What is missing reads 0. Those of the module
/// and of the database count in single precision.
struct EndpointVersions {
  double program = 0;
  double module = 0;
  double database = 0;
};
EndpointVersions readVersions(QStringView text);

/// The text of a version as it is shown.
QString versionText(double version);

/// Keeps the database and the update module current at the start. A download that failed, is empty or begins
/// with "<" is written nowhere and raises no version. Where the database is read-only nothing is renewed.
class ProgramUpdate {
 public:
  ProgramUpdate(Services& services, Tables& tables, const QString& baseUrl,
                QByteArray publicKey = builtInPublicKey())
      : services_(services), tables_(tables), baseUrl_(baseUrl), publicKey_(std::move(publicKey)) {}

  /// Fetches the file into the program's directory through a temporary file; with its signature where it is
  /// the update module. False where nothing was written.
  bool fetchFile(const QString& remote, const QString& local);

  /// Fetches the database and makes the file `local` of its rows. False where there is none, or none that is
  /// data alone; `local` is gone then.
  bool fetchDatabase(const QString& local);

  /// Renews the update module where its version differs. A signed one that is older, by the version inside
  /// it, than the signed one before is not taken.
  void renewModule(double version);

  /// Renews the database where its version differs: the user's data is carried over, the replaced file stays
  /// as soran.mdb.bak. At every moment there is a whole database.
  void renewDatabase(double version);

  /// Notes that the database is of this version, as of today.
  void recordDatabase(double version);

  /// Sees to it that the update module may be run: one that an earlier run copied from the user's own machine
  /// is copied again, as nobody knows any more where the file came from. False where it may not.
  bool readyModule();

  /// True where the update module exists and may be run: signed with the program's key and not older than the
  /// signed one before, or copied in this run from the user's own machine (a folder, or loopback) unless
  /// signatures are asked for there too.
  static bool moduleMayRun(const Services& services, const QByteArray& publicKey = builtInPublicKey());

 private:
  bool writeModule(const QString& local, const QByteArray& module);
  bool databaseIsReadOnly() const;
  bool swapDatabase(const QString& newFile);

  Services& services_;
  Tables& tables_;
  const QString& baseUrl_;
  QByteArray publicKey_;
};

} // namespace soran
