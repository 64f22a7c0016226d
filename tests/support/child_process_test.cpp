// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/child_process.h"

#include <QString>
#include <cerrno>
#include <csignal>
#include <gtest/gtest.h>
#include <memory>
#include <pty.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

using soran::ChildProcess;

namespace {

// Asks whether a signal would reach anybody and sends none, so that a fault here hurts nobody.
constexpr int none = 0;

void pauseForEver() {
  for (;;)
    ::pause();
}

/// As long as it lives no file, and so no terminal, can be opened.
class NoFiles {
 public:
  NoFiles() {
    ::getrlimit(RLIMIT_NOFILE, &before_);
    const rlimit nothing{0, before_.rlim_max};
    ::setrlimit(RLIMIT_NOFILE, &nothing);
  }
  ~NoFiles() { ::setrlimit(RLIMIT_NOFILE, &before_); }
  NoFiles(const NoFiles&) = delete;
  NoFiles& operator=(const NoFiles&) = delete;

 private:
  rlimit before_{};
};

bool isGone(pid_t id) {
  return ::waitpid(id, nullptr, WNOHANG) == -1 && errno == ECHILD;
}

} // namespace

TEST(ChildProcess, IsSignalledUntilItWasWaitedFor) {
  ChildProcess child(pauseForEver);
  const pid_t id = child.id();
  EXPECT_TRUE(child.signal(none));
  EXPECT_EQ(child.ended(), std::nullopt);
  EXPECT_TRUE(child.signal(SIGTERM));
  const int status = child.wait().value_or(0);
  EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGTERM) << status;
  EXPECT_TRUE(isGone(id));
  EXPECT_FALSE(child.signal(none));
  EXPECT_EQ(child.ended(), std::nullopt);
  EXPECT_EQ(child.wait(), std::nullopt);
}

TEST(ChildProcess, OfWhichNothingIsLeftIsNotSignalled) {
  ChildProcess child([] {});
  // Somebody else waits for it: its number may be anybody's from now on.
  ASSERT_EQ(::waitpid(child.id(), nullptr, 0), child.id());
  EXPECT_FALSE(child.signal(none));
  EXPECT_EQ(child.wait(), std::nullopt);
}

TEST(ChildProcess, ThatCannotBeHadIsNobody) {
  std::string refusal;
  std::unique_ptr<ChildProcess> child;
  {
    const NoFiles nothing;
    int terminal = -1;
    try {
      child = std::make_unique<ChildProcess>(pauseForEver, terminal, winsize{});
    } catch (const std::system_error& error) {
      refusal = error.what();
    }
  }
  EXPECT_NE(refusal.find("no terminal"), std::string::npos) << refusal;
  if (child) {
    EXPECT_FALSE(child->signal(none)) << child->id();
    // At its end it would signal whoever it takes for its process.
    static_cast<void>(child.release());
  }
}

TEST(ChildProcess, EndsWithItsObject) {
  pid_t id = 0;
  {
    int terminal = -1;
    const ChildProcess child(
        [] {
          std::signal(SIGHUP, SIG_IGN);
          std::signal(SIGTERM, SIG_IGN);
          pauseForEver();
        },
        terminal, winsize{});
    id = child.id();
    ::close(terminal);
  }
  EXPECT_TRUE(isGone(id));
}

TEST(ChildProcess, EndsWithTheProcessThatStartedIt) {
  int line[2];
  ASSERT_EQ(::pipe(line), 0);
  ChildProcess parent([&line] {
    const ChildProcess child(pauseForEver);
    ::close(line[0]);
    pauseForEver();
  });
  ::close(line[1]);
  EXPECT_TRUE(parent.signal(SIGKILL));
  parent.wait();
  // The line ends with the last process that holds it.
  char byte = 0;
  EXPECT_EQ(::read(line[0], &byte, 1), 0);
  ::close(line[0]);
}
