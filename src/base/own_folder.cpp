// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/own_folder.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>

namespace soran {

namespace {

/// statfs(2).
bool isServedByOthers(const QByteArray& path) {
  constexpr unsigned long cifs = 0xFF534D42;
  constexpr unsigned long smb2 = 0xFE534D42;
  constexpr unsigned long fuse = 0x65735546;
  constexpr unsigned long ceph = 0x00C36400;
  constexpr unsigned long served[] = {
      NFS_SUPER_MAGIC, SMB_SUPER_MAGIC, AFS_SUPER_MAGIC, CODA_SUPER_MAGIC, cifs, smb2, fuse, ceph};
  struct statfs system {};
  return ::statfs(path.constData(), &system) != 0 ||
         std::ranges::find(served, static_cast<unsigned long>(system.f_type) & 0xFFFFFFFFUL) !=
             std::end(served);
}

bool isOurs(const QString& folder, bool isLast) {
  struct stat status {};
  if (::lstat(QFile::encodeName(folder).constData(), &status) != 0 || !S_ISDIR(status.st_mode) ||
      (status.st_uid != 0 && status.st_uid != ::geteuid()))
    return false;
  const bool isShared = (status.st_mode & (S_IWGRP | S_IWOTH)) != 0;
  return !isShared || (!isLast && (status.st_mode & S_ISVTX) != 0);
}

} // namespace

bool isOwnFolder(const QString& path) {
  QString folder = QFileInfo(path).canonicalFilePath();
  if (folder.isEmpty() || isServedByOthers(QFile::encodeName(folder)))
    return false;
  for (bool isLast = true; isOurs(folder, isLast); isLast = false) {
    if (folder == u"/")
      return true;
    folder = QFileInfo(folder).path();
  }
  return false;
}

} // namespace soran
