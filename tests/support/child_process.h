// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <optional>
#include <sys/types.h>

struct rusage;
struct winsize;

namespace soran {

/// A process that this one started. It is killed with the object, and where this process ends before.
class ChildProcess {
 public:
  using Deed = std::function<void()>;

  /// Does the deed in a process of its own, which ends behind it. Throws std::system_error where none can be
  /// had.
  explicit ChildProcess(const Deed& deed);
  /// The same on a new terminal of that size, whose other end is `terminal`; the caller closes it.
  ChildProcess(const Deed& deed, int& terminal, const winsize& size);
  ~ChildProcess();
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  /// 0 once it was waited for.
  pid_t id() const { return id_; }

  /// False, and nobody is signalled, where it was waited for already.
  bool signal(int number) const;

  /// Its status as waitpid() tells it, once it has ended.
  std::optional<int> ended();
  /// Waits for its end. A status is nothing where it was waited for already.
  std::optional<int> wait(rusage* used = nullptr);

 private:
  void adopt(pid_t forked, pid_t parent, const Deed& deed);
  std::optional<int> reap(int options, rusage* used);

  pid_t id_ = 0;
};

} // namespace soran
