// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/ordinary_user.h"

#include <algorithm>
#include <cerrno>
#include <iterator>
#include <sys/syscall.h>
#include <system_error>
#include <unistd.h>

namespace soran {

namespace {

void check(long result) {
  if (result != 0)
    throw std::system_error(errno, std::generic_category(), "root cannot be bound by the modes of files");
}

__user_cap_header_struct ownThread() {
  return {.version = _LINUX_CAPABILITY_VERSION_3, .pid = 0};
}

} // namespace

OrdinaryUser::OrdinaryUser() {
  __user_cap_header_struct thread = ownThread();
  check(::syscall(SYS_capget, &thread, before_));
  decltype(before_) bound;
  std::copy(std::begin(before_), std::end(before_), bound);
  for (__user_cap_data_struct& capabilities : bound)
    capabilities.effective = 0;
  check(::syscall(SYS_capset, &thread, bound));
}

OrdinaryUser::~OrdinaryUser() {
  __user_cap_header_struct thread = ownThread();
  ::syscall(SYS_capset, &thread, before_);
}

} // namespace soran
