// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/plain_file.h"

#include <QFile>
#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

constexpr mode_t ownerOnly = 0600;
constexpr qint64 kilobyte = 1024;

FileFault faultOf(int error) {
  switch (error) {
  case ENOENT:
  case ENOTDIR:
    return FileFault::Missing;
  case ELOOP:
  case EISDIR:
  case ENXIO:
    return FileFault::NotPlain;
  case EACCES:
  case EPERM:
  case EROFS:
    return FileFault::NoPermission;
  case ENOSPC:
  case EDQUOT:
  case EFBIG:
    return FileFault::NoSpace;
  default:
    return FileFault::Failed;
  }
}

/// An open file that closes itself.
class Descriptor {
 public:
  Descriptor(const QString& path, int flags, Links links)
      : number_(opened(QFile::encodeName(path).constData(), flags | O_CLOEXEC | O_NONBLOCK | O_NOCTTY |
                                                                (links == Links::Refused ? O_NOFOLLOW : 0))) {
    struct stat status {};
    if (number_ < 0) {
      fault_ = faultOf(errno);
      return;
    }
    if (::fstat(number_, &status) != 0)
      fault_ = faultOf(errno);
    else if (!S_ISREG(status.st_mode))
      fault_ = FileFault::NotPlain;
    size_ = status.st_size;
  }
  ~Descriptor() {
    if (number_ >= 0)
      ::close(number_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  int number() const { return number_; }
  FileFault fault() const { return fault_; }
  qint64 size() const { return size_; }

 private:
  static int opened(const char* path, int flags) {
    for (;;) {
      const int number = ::open(path, flags, ownerOnly);
      if (number >= 0 || errno != EINTR)
        return number;
    }
  }

  int number_;
  FileFault fault_ = FileFault::None;
  qint64 size_ = 0;
};

QString bound(qint64 limit) {
  return limit >= kilobyte * kilobyte ? QString::number(limit / kilobyte / kilobyte) + u" MB"
                                      : QString::number(limit / kilobyte) + u" kB";
}

FileFault writeAll(const Descriptor& file, const QByteArray& bytes) {
  for (qsizetype done = 0; done < bytes.size();) {
    const ssize_t written = ::write(file.number(), bytes.constData() + done, size_t(bytes.size() - done));
    if (written < 0 && errno != EINTR)
      return faultOf(errno);
    done += std::max<ssize_t>(written, 0);
  }
  return FileFault::None;
}

} // namespace

FileBytes readPlainFile(const QString& path, qint64 limit, Links links) {
  const Descriptor file(path, O_RDONLY, links);
  if (file.fault() != FileFault::None)
    return {.fault = file.fault()};
  if (file.size() > limit)
    return {.fault = FileFault::TooLarge};
  FileBytes read;
  constexpr qsizetype piece = qsizetype(64) * kilobyte;
  for (;;) {
    const qsizetype before = read.bytes.size();
    read.bytes.resize(before + std::max<qsizetype>(piece, qsizetype(file.size()) + 1 - before));
    const ssize_t got = ::read(file.number(), read.bytes.data() + before, size_t(read.bytes.size() - before));
    const int error = errno;
    read.bytes.truncate(before + std::max<ssize_t>(got, 0));
    if (got < 0 && error != EINTR)
      return {.fault = faultOf(error)};
    // It may grow meanwhile.
    if (read.bytes.size() > limit)
      return {.fault = FileFault::TooLarge};
    if (got == 0)
      return read;
  }
}

FileFault appendToPlainFile(const QString& path, const QByteArray& bytes) {
  const Descriptor file(path, O_WRONLY | O_APPEND | O_CREAT, Links::Refused);
  return file.fault() == FileFault::None ? writeAll(file, bytes) : file.fault();
}

FileFault appendLines(const QString& path, const QByteArray& lines) {
  const Descriptor file(path, O_RDWR | O_APPEND | O_CREAT, Links::Refused);
  if (file.fault() != FileFault::None)
    return file.fault();
  char last = 0;
  const bool isEnded =
      file.size() == 0 || (::pread(file.number(), &last, 1, file.size() - 1) == 1 && last == '\n');
  return writeAll(file, isEnded ? lines : '\n' + lines);
}

FileFault replaceable(const QString& path, Links links) {
  const QByteArray name = QFile::encodeName(path);
  struct stat status {};
  const int result =
      links == Links::Refused ? ::lstat(name.constData(), &status) : ::stat(name.constData(), &status);
  if (result != 0)
    return errno == ENOENT && !(links == Links::Followed && nameIsTaken(path)) ? FileFault::None
                                                                               : faultOf(errno);
  return S_ISREG(status.st_mode) ? FileFault::None : FileFault::NotPlain;
}

bool nameIsTaken(const QString& path) {
  struct stat status {};
  return ::lstat(QFile::encodeName(path).constData(), &status) == 0 || (errno != ENOENT && errno != ENOTDIR);
}

QString faultText(FileFault fault, qint64 limit) {
  switch (fault) {
  case FileFault::None:
    return {};
  case FileFault::Missing:
    return u"ファイルがありません"_s;
  case FileFault::NotPlain:
    return u"通常のファイルではありません"_s;
  case FileFault::TooLarge:
    return u"ファイルが大きすぎます(上限 "_s + bound(limit) + u')';
  case FileFault::NoPermission:
    return u"読み書きする権限がありません"_s;
  case FileFault::NoFolder:
    return u"フォルダーがありません"_s;
  case FileFault::NoSpace:
    return u"ディスクの空き容量がありません"_s;
  case FileFault::Failed:
    break;
  }
  return u"読み書きできません"_s;
}

QString faultLine(FileFault fault, qint64 limit) {
  switch (fault) {
  case FileFault::None:
    return {};
  case FileFault::Missing:
    return u"no such file"_s;
  case FileFault::NotPlain:
    return u"not a plain file"_s;
  case FileFault::TooLarge:
    return u"larger than "_s + bound(limit);
  case FileFault::NoPermission:
    return u"permission denied"_s;
  case FileFault::NoFolder:
    return u"no such folder"_s;
  case FileFault::NoSpace:
    return u"no space left"_s;
  case FileFault::Failed:
    break;
  }
  return u"cannot be read or written"_s;
}

QString freeName(const QString& path) {
  QString name = path;
  for (int i = 2; nameIsTaken(name); ++i)
    name = path + u'-' + QString::number(i);
  return name;
}

} // namespace soran
