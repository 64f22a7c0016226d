// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace soran {

/// The program's directory with the folders that it empties at its exit. A folder is the program's own where
/// the program made it, which a marker inside tells; a directory of an earlier release, which carries the
/// marker itself, is taken over where its folders hold nothing but what the program leaves there. Links are
/// followed nowhere below the directory.
class OwnDirectory {
 public:
  explicit OwnDirectory(QString directory) : directory_(std::move(directory)) {}

  enum class Result {
    Claimed,
    Foreign,    ///< a folder of that name is somebody else's, or no folder
    Impossible, ///< the directory does not exist and cannot be made
  };
  /// Makes what is missing and marks it. Where a folder is not the program's own nothing is made. A directory
  /// that cannot be written is used as it is.
  Result claim();
  /// The folder for which claim() refused.
  const QString& foreignFolder() const { return foreign_; }

  /// Takes away what claim() made, as long as nothing else lies there.
  void withdraw();

 private:
  bool make(const QString& folder);
  void mark(const QString& folder);

  QString directory_;
  QString foreign_;
  QStringList madeFolders_; // in the order in which they were made
  QStringList madeMarks_;
};

/// Makes a folder of the program's directory that is emptied at the exit. False where it cannot be made.
bool makeScratchFolder(const QString& folder);

/// Deletes the files that the program left in a folder of its own and the folder itself, which stays where it
/// still holds something.
void removeScratchFolder(const QString& directory, const QString& folder);

} // namespace soran
