// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Preloaded into a program under test, it counts the calls that change files below one folder, or all calls
// on them, and makes one of them go wrong. The environment tells how:
//
//   SORAN_FAULT_FOLDER  the folder; calls on other files are neither counted nor touched
//   SORAN_FAULT_TRACE   a file that gets the name of each counted call and its path, one a line
//   SORAN_FAULT_AT      the number, from 1, of the call that goes wrong; 0 for none
//   SORAN_FAULT_KIND    kill: the process ends before the call; torn: a write ends in its middle, and the
//                       process with it; full: no call from there on gets space; error: that call alone
//                       fails. EIO, ENOSPC, EMFILE, EACCES, EINTR: that call alone fails so; short: it reads
//                       or writes a part. With these, opening and reading are counted too

#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <string>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

enum class Kind { Kill, Torn, Full, Error, Short };
/// What a call does: only what writes can be torn, and only what writes or makes something wants space.
enum class Does { Write, Read, Make, Other };

struct Plan {
  std::string folder;
  std::string trace;
  long at = 0;
  Kind kind = Kind::Kill;
  int error = EIO;        ///< what an Error says
  bool countsAll = false; ///< opening and reading too
};

constexpr struct {
  const char* name;
  int error;
} namedErrors[] = {
    {"eio", EIO}, {"enospc", ENOSPC}, {"emfile", EMFILE}, {"eacces", EACCES}, {"eintr", EINTR}};

std::string variable(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

const Plan& plan() {
  static const Plan read = [] {
    const std::string kind = variable("SORAN_FAULT_KIND");
    Plan p{variable("SORAN_FAULT_FOLDER"), variable("SORAN_FAULT_TRACE"),
           std::atol(variable("SORAN_FAULT_AT").c_str()),
           kind == "torn"    ? Kind::Torn
           : kind == "full"  ? Kind::Full
           : kind == "error" ? Kind::Error
           : kind == "short" ? Kind::Short
                             : Kind::Kill};
    p.countsAll = kind == "short";
    for (const auto& named : namedErrors) {
      if (kind == named.name)
        p.kind = Kind::Error, p.error = named.error, p.countsAll = true;
    }
    return p;
  }();
  return read;
}

bool isBelowFolder(const char* path) {
  const std::string& folder = plan().folder;
  return path && !folder.empty() && std::strncmp(path, folder.c_str(), folder.size()) == 0 &&
         (folder.back() == '/' || path[folder.size()] == '/' || path[folder.size()] == '\0');
}

std::string pathOf(int file) {
  char path[PATH_MAX] = {};
  const std::string link = "/proc/self/fd/" + std::to_string(file);
  return ::readlink(link.c_str(), path, sizeof path - 1) > 0 ? path : "";
}

void trace(const char* call, const char* path) {
  if (plan().trace.empty())
    return;
  const int file = int(
      ::syscall(SYS_openat, AT_FDCWD, plan().trace.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600));
  const std::string line = std::string(call) + ' ' + path + '\n';
  ::syscall(SYS_write, file, line.data(), line.size());
  ::syscall(SYS_close, file);
}

[[noreturn]] void die() {
  ::raise(SIGKILL);
  std::abort();
}

/// Counts one call; true where it shall not be made, with errno set.
bool goesWrong(const char* call, const char* path, Does does) {
  static long count = 0;
  if (!isBelowFolder(path))
    return false;
  ++count;
  trace(call, path);
  const Plan& p = plan();
  if (p.at == 0 || count < p.at || (count > p.at && p.kind != Kind::Full))
    return false;
  switch (p.kind) {
  case Kind::Full:
    errno = ENOSPC;
    return does != Does::Other;
  case Kind::Error:
    errno = p.error;
    return true;
  case Kind::Short:
    return does == Does::Write || does == Does::Read;
  case Kind::Torn:
    if (does == Does::Write)
      return true;
    break;
  case Kind::Kill:
    break;
  }
  die();
}

ssize_t writeAt(int file, const void* bytes, size_t size, off_t offset) {
  return offset < 0 ? ::syscall(SYS_write, file, bytes, size)
                    : ::syscall(SYS_pwrite64, file, bytes, size, offset);
}

ssize_t writing(int file, const void* bytes, size_t size, off_t offset) {
  if (!goesWrong("write", pathOf(file).c_str(), Does::Write))
    return writeAt(file, bytes, size, offset);
  if (plan().kind == Kind::Torn) {
    writeAt(file, bytes, size / 2, offset);
    die();
  }
  return plan().kind == Kind::Short ? writeAt(file, bytes, (size + 1) / 2, offset) : -1;
}

ssize_t readAt(int file, void* bytes, size_t size, off_t offset) {
  return offset < 0 ? ::syscall(SYS_read, file, bytes, size)
                    : ::syscall(SYS_pread64, file, bytes, size, offset);
}

ssize_t reading(int file, void* bytes, size_t size, off_t offset) {
  if (!plan().countsAll || !goesWrong("read", pathOf(file).c_str(), Does::Read))
    return readAt(file, bytes, size, offset);
  return plan().kind == Kind::Short ? readAt(file, bytes, (size + 1) / 2, offset) : -1;
}

int opening(int folder, const char* path, int flags, mode_t mode) {
  // One that is there needs no space to be opened.
  const bool changes =
      (flags & (O_CREAT | O_TRUNC)) != 0 && ((flags & O_TRUNC) != 0 || ::access(path, F_OK) != 0);
  if (changes ? goesWrong("create", path, Does::Make)
              : plan().countsAll && goesWrong("open", path, Does::Other))
    return -1;
  return int(::syscall(SYS_openat, folder, path, flags, mode));
}

template <class... Arguments>
int onPath(const char* call, Does does, const char* path, long number, Arguments... arguments) {
  return goesWrong(call, path, does) ? -1 : int(::syscall(number, arguments...));
}

template <class... Arguments>
int onFile(const char* call, int file, long number, Arguments... arguments) {
  return onPath(call, Does::Other, pathOf(file).c_str(), number, file, arguments...);
}

} // namespace

#define EXPORTED extern "C" __attribute__((visibility("default")))

EXPORTED int open(const char* path, int flags, ...) {
  va_list rest;
  va_start(rest, flags);
  const mode_t mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(rest, mode_t) : 0;
  va_end(rest);
  return opening(AT_FDCWD, path, flags, mode);
}
EXPORTED int open64(const char* path, int flags, ...) __attribute__((alias("open")));
EXPORTED int openat(int folder, const char* path, int flags, ...) {
  va_list rest;
  va_start(rest, flags);
  const mode_t mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(rest, mode_t) : 0;
  va_end(rest);
  return folder == AT_FDCWD ? opening(folder, path, flags, mode)
                            : opening(folder, (pathOf(folder) + '/' + path).c_str(), flags, mode);
}
EXPORTED int openat64(int folder, const char* path, int flags, ...) __attribute__((alias("openat")));
EXPORTED ssize_t read(int file, void* bytes, size_t size) {
  return reading(file, bytes, size, -1);
}
EXPORTED ssize_t pread64(int file, void* bytes, size_t size, off64_t offset) {
  return reading(file, bytes, size, offset);
}
EXPORTED ssize_t write(int file, const void* bytes, size_t size) {
  return writing(file, bytes, size, -1);
}
EXPORTED ssize_t pwrite64(int file, const void* bytes, size_t size, off64_t offset) {
  return writing(file, bytes, size, offset);
}
EXPORTED ssize_t sendfile(int, int, off_t*, size_t) noexcept {
  // Whoever copies falls back to writing, which is counted.
  errno = EINVAL;
  return -1;
}
EXPORTED int ftruncate64(int file, off64_t size) noexcept {
  return onFile("truncate", file, SYS_ftruncate, size);
}
EXPORTED int ftruncate(int file, off_t size) noexcept {
  return onFile("truncate", file, SYS_ftruncate, size);
}
EXPORTED int fsync(int file) {
  return onFile("sync", file, SYS_fsync);
}
EXPORTED int fdatasync(int file) {
  return onFile("sync", file, SYS_fdatasync);
}
EXPORTED int fchmod(int file, mode_t mode) noexcept {
  return onFile("chmod", file, SYS_fchmod, mode);
}
EXPORTED int chmod(const char* path, mode_t mode) noexcept {
  return onPath("chmod", Does::Other, path, SYS_chmod, path, mode);
}
EXPORTED int mkdir(const char* path, mode_t mode) noexcept {
  return onPath("mkdir", Does::Make, path, SYS_mkdir, path, mode);
}
EXPORTED int rmdir(const char* path) noexcept {
  return onPath("rmdir", Does::Other, path, SYS_rmdir, path);
}
EXPORTED int unlink(const char* path) noexcept {
  return ::access(path, F_OK) == 0 ? onPath("unlink", Does::Other, path, SYS_unlink, path)
                                   : int(::syscall(SYS_unlink, path));
}
EXPORTED int unlinkat(int folder, const char* path, int flags) noexcept {
  const std::string whole = folder == AT_FDCWD ? path : pathOf(folder) + '/' + path;
  return onPath("unlink", Does::Other, whole.c_str(), SYS_unlinkat, folder, path, flags);
}
EXPORTED int link(const char* from, const char* to) noexcept {
  return onPath("link", Does::Make, to, SYS_link, from, to);
}
EXPORTED int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) noexcept {
  return onPath("link", Does::Make, to, SYS_linkat, fromFolder, from, toFolder, to, flags);
}
EXPORTED int rename(const char* from, const char* to) noexcept {
  return onPath("rename", Does::Other, to, SYS_rename, from, to);
}
EXPORTED int renameat2(int fromFolder, const char* from, int toFolder, const char* to,
                       unsigned flags) noexcept {
  return onPath("rename", Does::Other, to, SYS_renameat2, fromFolder, from, toFolder, to, flags);
}
