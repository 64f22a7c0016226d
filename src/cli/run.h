// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/standard_stream.h"
#include "start/launch.h"

namespace soran {

/// Starts the program, types each line and Enter, writes the screen's text with LF line ends, and stops. The
/// exit status: 0, 1 where the program could not start (the reason on `errors`), or 4 where the output is
/// lost.
int runLines(const LaunchOptions& options, DeliveredFile delivered, const QStringList& lines,
             StandardStream& output, StandardStream& errors);

} // namespace soran
