// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStringDecoder>
#include <cstdio>

namespace soran {

bool fileExists(const QString& path) {
  return QFileInfo::exists(path);
}

bool makePrivateDirectory(const QString& path) {
  if (QFileInfo(path).isDir())
    return true;
  constexpr QFile::Permissions ownerOnly = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;
  const QString parent = QFileInfo(QDir::cleanPath(path)).absolutePath();
  if (parent != path && !QFileInfo(parent).isDir() && !makePrivateDirectory(parent))
    return false;
  return QDir().mkdir(path, ownerOnly) || QFileInfo(path).isDir();
}

bool writeWhole(const QString& path, const QByteArray& bytes, bool isPrivate) {
  return replaceWhole(path, bytes, isPrivate, Links::Refused) == FileFault::None;
}

FileFault replaceWhole(const QString& path, const QByteArray& bytes, bool isPrivate, Links links) {
  if (const FileFault fault = replaceable(path, links); fault != FileFault::None)
    return fault;
  QSaveFile file(path);
  const auto failed = [&] {
    const QFileDevice::FileError error = file.error();
    file.cancelWriting();
    if (error == QFileDevice::OpenError && !QFileInfo(QFileInfo(path).absolutePath()).isDir())
      return FileFault::NoFolder;
    return error == QFileDevice::PermissionsError || error == QFileDevice::OpenError ? FileFault::NoPermission
           : error == QFileDevice::ResourceError                                     ? FileFault::NoSpace
                                                                                     : FileFault::Failed;
  };
  if (!file.open(QIODevice::WriteOnly))
    return failed();
  if (isPrivate && !file.setPermissions(QFile::ReadOwner | QFile::WriteOwner))
    return failed();
  // A small file is written only when the buffer goes, and of an error there the commit tells nothing.
  if (file.write(bytes) != bytes.size() || !file.flush())
    return failed();
  return file.commit() ? FileFault::None : failed();
}

bool renameOver(const QString& from, const QString& to) {
  return std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
}

QString textOfBytes(const QByteArray& bytes) {
  QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
  QString text = decoder(bytes);
  // An unfinished sequence at the end leaves no error behind, only a shorter text.
  if (decoder.hasError() || text.toUtf8().size() != bytes.size())
    return QString::fromLatin1(bytes);
  return text;
}

} // namespace soran
