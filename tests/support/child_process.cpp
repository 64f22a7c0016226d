// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/child_process.h"

#include <cerrno>
#include <csignal>
#include <exception>
#include <pty.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace soran {

namespace {

constexpr int notDone = 127;

[[noreturn]] void become(pid_t parent, const ChildProcess::Deed& deed) {
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
  // The parent may have gone before it could be told.
  if (::getppid() == parent) {
    try {
      deed();
      ::_exit(0);
    } catch (const std::exception&) {
      // Nothing of the parent's unwinds here.
    }
  }
  ::_exit(notDone);
}

} // namespace

ChildProcess::ChildProcess(const Deed& deed) {
  const pid_t parent = ::getpid();
  adopt(::fork(), parent, deed);
}

ChildProcess::ChildProcess(const Deed& deed, int& terminal, const winsize& size) {
  const pid_t parent = ::getpid();
  adopt(::forkpty(&terminal, nullptr, nullptr, &size), parent, deed);
}

ChildProcess::~ChildProcess() {
  if (signal(SIGKILL))
    wait();
}

void ChildProcess::adopt(pid_t forked, pid_t parent, const Deed& deed) {
  if (forked == 0)
    become(parent, deed);
  // The -1 of a failure would mean everybody to kill().
  if (forked < 0)
    throw std::system_error(errno, std::generic_category(), "no process, or no terminal for it, can be had");
  id_ = forked;
}

bool ChildProcess::signal(int number) const {
  // Its number belongs to nobody else before it was waited for, and somebody else may have done that.
  siginfo_t state{};
  return id_ > 0 && ::waitid(P_PID, id_t(id_), &state, WEXITED | WNOHANG | WNOWAIT) == 0 &&
         ::kill(id_, number) == 0;
}

std::optional<int> ChildProcess::ended() {
  return reap(WNOHANG, nullptr);
}

std::optional<int> ChildProcess::wait(rusage* used) {
  return reap(0, used);
}

std::optional<int> ChildProcess::reap(int options, rusage* used) {
  int status = 0;
  pid_t done = -1;
  do {
    if (id_ > 0)
      done = ::wait4(id_, &status, options, used);
  } while (id_ > 0 && done < 0 && errno == EINTR);
  if (done != id_ || id_ == 0)
    return std::nullopt;
  id_ = 0;
  return status;
}

} // namespace soran
