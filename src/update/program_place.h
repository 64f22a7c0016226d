// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/file_lock.h"

#include <QByteArray>
#include <QDir>
#include <QString>
#include <QStringList>

namespace soran {

/// The directory in which the program lies, and lib/soran/plugins beside it. New files are put beside the old
/// ones whole, and then exchanged by renaming: whenever it ends, every file is the former one or the new one,
/// whole. A file that was replaced stays under its name with ".former".
class ProgramPlace {
 public:
  /// Takes the place for itself. Throws UpdateError where there is no program, or where the place cannot be
  /// written.
  explicit ProgramPlace(const QString& program);
  /// Deletes what was staged and not exchanged.
  ~ProgramPlace();
  ProgramPlace(const ProgramPlace&) = delete;
  ProgramPlace& operator=(const ProgramPlace&) = delete;

  /// The program's file, links resolved.
  const QString& program() const { return program_; }
  /// Where a file lies whose place is told from the program's folder.
  QString pathOf(const QString& name) const { return QDir::cleanPath(directory_ + u'/' + name); }

  /// True where the file exists and holds exactly these bytes, by their SHA-256.
  bool holds(const QString& name, const QByteArray& sha256) const;

  /// Writes a new file beside the old one and to the disk, with the old one's mode. Throws UpdateError.
  void stage(const QString& name, const QByteArray& bytes);

  /// Renames all that is staged over the former files, the program itself last. Throws UpdateError where a
  /// file cannot be exchanged; those exchanged before are the former ones again.
  void exchange();

 private:
  bool exchangeOne(const QString& name) const;
  bool syncFolders(const QStringList& names) const;
  void rollBack(const QStringList& names) const;

  QString program_;
  QString directory_;
  FileLock lock_;
  QStringList staged_;
};

} // namespace soran
