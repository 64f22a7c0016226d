// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/standard_stream.h"
#include "start/launch.h"

namespace soran {

/// `export FILE` and `import FILE`: the user's data of the program's directory as one JSON file. The program
/// must not be running there. The exit status: 0, or 1 with the reason on `errors`.
int exportCall(const LaunchOptions& options, const QString& file, StandardStream& errors);
int importCall(const LaunchOptions& options, const QString& file, StandardStream& errors);

} // namespace soran
