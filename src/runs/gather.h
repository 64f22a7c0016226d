// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "runs/gathered_run.h"
#include "runs/program.h"

namespace soran {

/// Fetches and lays out every station of a run. A full load rebuilds the station table and keeps the stamps
/// there; screen and log are written by `progress` alone. Waits in the event loop; throws Unwind where the
/// program was closed meanwhile.
GatheredRun gather(Program& program, RunRequest request, RunProgress& progress);

} // namespace soran
