// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "start/launch.h"

#include <QIODevice>

namespace soran {

/// Starts the program, types each line and Enter, writes the screen's text with LF line ends, and stops. The
/// exit status: 0, or 1 where the program could not start (the reason on `errors`).
int runLines(const LaunchOptions& options, DeliveredFile delivered, const QStringList& lines,
             QIODevice& output, QIODevice& errors);

} // namespace soran
