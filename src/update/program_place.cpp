// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/program_place.h"

#include "base/files.h"
#include "update/update_error.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView newEnding = u".new";
constexpr QStringView formerEnding = u".former";
constexpr mode_t programMode = 0755;

QByteArray nameOf(const QString& path) {
  return QFile::encodeName(path);
}

mode_t modeOf(const QString& path) {
  struct stat info {};
  constexpr mode_t permissions = 0777;
  return ::lstat(nameOf(path).constData(), &info) == 0 ? info.st_mode & permissions : programMode;
}

bool writeAll(int file, const QByteArray& bytes) {
  qsizetype written = 0;
  while (written < bytes.size()) {
    const ssize_t count = ::write(file, bytes.constData() + written, size_t(bytes.size() - written));
    if (count < 0 && errno == EINTR)
      continue;
    if (count <= 0)
      return false;
    written += count;
  }
  return true;
}

bool writeNew(const QString& path, const QByteArray& bytes, mode_t mode) {
  // A file of an update that was ended is in the way; a link of that name is not followed.
  ::unlink(nameOf(path).constData());
  constexpr mode_t ownerOnly = 0600;
  const int file = ::open(nameOf(path).constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, ownerOnly);
  if (file < 0)
    return false;
  const bool whole = writeAll(file, bytes) && ::fchmod(file, mode) == 0 && ::fsync(file) == 0;
  return ::close(file) == 0 && whole;
}

bool syncDirectory(const QString& directory) {
  const int file = ::open(nameOf(directory).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (file < 0)
    return false;
  const bool synced = ::fsync(file) == 0;
  ::close(file);
  return synced;
}

/// Gives the file a second name, so that it never goes from its own place.
bool keepFormer(const QString& path) {
  const QString former = path + formerEnding;
  ::unlink(nameOf(former).constData());
  if (::link(nameOf(path).constData(), nameOf(former).constData()) == 0)
    return true;
  return QFile::copy(path, former);
}

} // namespace

ProgramPlace::ProgramPlace(const QString& program)
    : program_(QFileInfo(program).canonicalFilePath()), directory_(QFileInfo(program_).absolutePath()),
      lock_(directory_ + u"/soran-update.lock") {
  if (program_.isEmpty() || !QFileInfo(program_).isFile())
    throw UpdateError(u"SORAN のプログラムが見つかりません: " + program);
  const FileLock::Result lock = lock_.take();
  if (lock == FileLock::Result::Taken)
    return;
  if (lock == FileLock::Result::Held)
    throw UpdateError(u"別の更新が実行中です"_s);
  throw UpdateError(u"プログラムの場所に書き込めないため、更新できません: " + directory_ +
                    u"\nパッケージで導入した SORAN は、パッケージの更新で新しくしてください");
}

ProgramPlace::~ProgramPlace() {
  for (const QString& name : staged_)
    ::unlink(nameOf(pathOf(name) + newEnding).constData());
}

bool ProgramPlace::holds(const QString& name, const QByteArray& sha256) const {
  QFile file(pathOf(name));
  QCryptographicHash hash(QCryptographicHash::Sha256);
  return file.open(QIODevice::ReadOnly) && hash.addData(&file) && hash.result() == sha256;
}

void ProgramPlace::stage(const QString& name, const QByteArray& bytes) {
  const QFileInfo present(pathOf(name));
  if (present.isSymLink() || (present.exists() && !present.isFile()))
    throw UpdateError(u"ファイルを置き換えられません: " + name);
  staged_.append(name);
  if (!QDir().mkpath(present.absolutePath()) ||
      !writeNew(pathOf(name) + newEnding, bytes, modeOf(pathOf(name))))
    throw UpdateError(u"新しいファイルを書き込めません: " + name);
}

void ProgramPlace::exchange() {
  const QString programName = QFileInfo(program_).fileName();
  // As long as the program is the former one, it goes on telling that there is a newer one.
  std::stable_partition(staged_.begin(), staged_.end(),
                        [&programName](const QString& name) { return name != programName; });
  if (!syncFolders(staged_))
    throw UpdateError(u"ディスクに書き込めません: " + directory_);
  QStringList exchanged;
  for (const QString& name : std::as_const(staged_)) {
    if (!exchangeOne(name)) {
      rollBack(exchanged);
      throw UpdateError(u"ファイルを置き換えられません: " + name);
    }
    exchanged.append(name);
  }
  staged_.clear();
  syncFolders(exchanged);
}

bool ProgramPlace::syncFolders(const QStringList& names) const {
  return std::all_of(names.begin(), names.end(), [this](const QString& name) {
    return syncDirectory(QFileInfo(pathOf(name)).absolutePath());
  });
}

bool ProgramPlace::exchangeOne(const QString& name) const {
  const QString path = pathOf(name);
  if (fileExists(path) ? !keepFormer(path)
                       : ::unlink(nameOf(path + formerEnding).constData()) != 0 && errno != ENOENT)
    return false;
  return renameOver(path + newEnding, path);
}

void ProgramPlace::rollBack(const QStringList& names) const {
  for (const QString& name : names) {
    const QString path = pathOf(name);
    if (fileExists(path + formerEnding))
      renameOver(path + formerEnding, path);
    else
      ::unlink(nameOf(path).constData());
  }
}

} // namespace soran
