// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shutdown.h"

namespace soran {

void Shutdown::request() {
  if (requested_)
    return;
  requested_ = true;
  emit closing();
}

} // namespace soran
