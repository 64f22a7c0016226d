// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "runs/program.h"

namespace soran {

/// Fetches every station of the table and compares the stamps with those seen last. Sets `cycleChanged`,
/// stores new stamps, adds changed stations to the echo pad and logs them. Waits in the event loop.
///
/// A file that is refused counts as changed; a transfer that failed and a report older than the latest known
/// are passed over and keep the stamp. A report ahead of its time is shown and not announced.
void checkForChanges(Program& program);

} // namespace soran
