// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/signal_watch.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace soran {

namespace {

constexpr std::array watched = {SIGINT, SIGTERM, SIGHUP, SIGWINCH, SIGCONT};

// A handler is a plain function; all that it may touch is this end of the pipe.
std::atomic<int> writeEnd = -1;

void passOn(int number) {
  const int kept = errno;
  const auto byte = static_cast<unsigned char>(number);
  // A full pipe already holds what is to be told.
  [[maybe_unused]] const ssize_t written = ::write(writeEnd, &byte, 1);
  errno = kept;
}

void handle(int number, void (*handler)(int)) {
  struct sigaction action = {};
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART;
  sigemptyset(&action.sa_mask);
  sigaction(number, &action, nullptr);
}

} // namespace

SignalWatch::SignalWatch() {
  if (pipe2(pipe_.data(), O_CLOEXEC | O_NONBLOCK) != 0)
    return;
  writeEnd = pipe_[1];
  notifier_ = std::make_unique<QSocketNotifier>(pipe_[0], QSocketNotifier::Read);
  connect(notifier_.get(), &QSocketNotifier::activated, this, [this] { readSignals(); });
  for (const int number : watched)
    handle(number, passOn);
  // What is written to a closed line fails; that is enough.
  handle(SIGPIPE, SIG_IGN);
}

SignalWatch::~SignalWatch() {
  for (const int number : watched)
    handle(number, SIG_DFL);
  writeEnd = -1;
  notifier_.reset();
  for (const int end : pipe_) {
    if (end >= 0)
      ::close(end);
  }
}

void SignalWatch::readSignals() {
  unsigned char number = 0;
  while (::read(pipe_[0], &number, 1) == 1) {
    if (number == SIGWINCH)
      emit resized();
    else if (number == SIGCONT)
      emit resumed();
    else
      emit closing();
  }
}

} // namespace soran
