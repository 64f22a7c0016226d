// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <linux/capability.h>

namespace soran {

/// As long as it lives, the modes of files bind this thread as they bind anybody, though it be root's.
class OrdinaryUser {
 public:
  OrdinaryUser();
  ~OrdinaryUser();
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;

 private:
  __user_cap_data_struct before_[_LINUX_CAPABILITY_U32S_3]{};
};

} // namespace soran
