// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace soran {

/// A file that one process at a time holds. The system itself lets go of it when the process ends, however
/// that comes about, so that what a killed process left is never in the way.
class FileLock {
 public:
  enum class For { Owner, Group }; ///< whose processes may take it
  explicit FileLock(QString path, For whom = For::Owner) : path_(std::move(path)), for_(whom) {}
  ~FileLock() { release(); }
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;

  enum class Result {
    Taken,
    Held,       ///< by another one
    Foreign,    ///< what has the file's name is no plain file
    Impossible, ///< the file cannot be made or locked
  };
  /// Takes the lock; waits up to that many milliseconds for another one to let it go.
  Result take(int milliseconds = 0);
  /// Lets go of it and deletes the file.
  void release();

 private:
  QString path_;
  For for_;
  int file_ = -1;
};

} // namespace soran
