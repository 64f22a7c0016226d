// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/standard_stream.h"

#include "base/foreign_text.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace soran {

StandardStream::StandardStream(int descriptor) : descriptor_(descriptor) {
  open(WriteOnly | Unbuffered);
}

bool StandardStream::tell(const QString& text) {
  return writeAll(cleaned(text).toUtf8());
}

qint64 StandardStream::writeData(const char* bytes, qint64 size) {
  qint64 done = 0;
  while (done < size) {
    const ssize_t count = ::write(descriptor_, bytes + done, size_t(size - done));
    if (count >= 0) {
      done += count;
      continue;
    }
    const int reason = errno;
    // Whoever shares the stream may have made it one that does not wait.
    pollfd full = {.fd = descriptor_, .events = POLLOUT, .revents = 0};
    const bool mayGoOn = reason == EINTR || (reason == EAGAIN && ::poll(&full, 1, -1) >= 0);
    if (!mayGoOn) {
      setErrorString(qt_error_string(reason));
      return done > 0 ? done : -1;
    }
  }
  return done;
}

void guardStandardStreams() {
  std::signal(SIGPIPE, SIG_IGN);
  for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    // The lowest number is given out first. To a file that is only read nothing can be written.
    if (::fcntl(descriptor, F_GETFD) < 0 && errno == EBADF)
      (void)::open("/dev/null", O_RDONLY);
  }
}

} // namespace soran
