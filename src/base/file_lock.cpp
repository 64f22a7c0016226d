// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/file_lock.h"

#include "base/plain_file.h"

#include <QDeadlineTimer>
#include <QFile>
#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace soran {

namespace {

/// True where the file that is open is still the one of that name.
bool isThere(int file, const QByteArray& name) {
  struct stat opened {};
  struct stat named {};
  return ::fstat(file, &opened) == 0 && ::stat(name.constData(), &named) == 0 &&
         opened.st_ino == named.st_ino && opened.st_dev == named.st_dev;
}

/// Locks the open file without waiting. Some network folders know only the locks of the second kind.
bool lockNow(int file) {
  if (::flock(file, LOCK_EX | LOCK_NB) == 0)
    return true;
  if (errno == EWOULDBLOCK || errno == EINTR)
    return false;
  struct flock whole {};
  whole.l_type = F_WRLCK;
  whole.l_whence = SEEK_SET;
  return ::fcntl(file, F_OFD_SETLK, &whole) == 0;
}

} // namespace

FileLock::Result FileLock::take(int milliseconds) {
  constexpr std::chrono::milliseconds pause(20);
  constexpr mode_t ownerOnly = 0600;
  constexpr mode_t ownerAndGroup = 0660;
  release();
  const QByteArray name = QFile::encodeName(path_);
  const QDeadlineTimer deadline(milliseconds);
  int tries = 3; // at least: one that lets go may be between its two steps
  for (;;) {
    if (replaceable(path_) == FileFault::NotPlain)
      return Result::Foreign;
    const int file =
        ::open(name.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, ownerOnly);
    if (file < 0)
      return Result::Impossible;
    // Whoever made it may do so, and nobody else needs to.
    if (for_ == For::Group && ::fchmod(file, ownerAndGroup) != 0 && errno != EPERM)
      errno = 0;
    const bool locked = lockNow(file);
    const bool held = locked || errno == EWOULDBLOCK || errno == EAGAIN || errno == EACCES || errno == EINTR;
    // Whoever held it may have deleted it meanwhile; another one then locks another file.
    if (locked && isThere(file, name)) {
      file_ = file;
      return Result::Taken;
    }
    ::close(file);
    if (!held)
      return Result::Impossible;
    if (deadline.hasExpired() && --tries <= 0)
      return Result::Held;
    std::this_thread::sleep_for(pause);
  }
}

void FileLock::release() {
  if (file_ < 0)
    return;
  const QByteArray name = QFile::encodeName(path_);
  if (isThere(file_, name))
    ::unlink(name.constData());
  ::close(file_);
  file_ = -1;
}

} // namespace soran
