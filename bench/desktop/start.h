// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace soran::bench {

/// The argument that makes this program start the window once, in the directory that follows it.
inline const QString startWord = QStringLiteral("--start-window");

/// Starts the window on the embedded endpoint as `soran --demo` does, tells on standard output the instants
/// at which it was first painted and at which it took input (nanoseconds of the monotonic clock), and the
/// most memory used (MB), then ends. The exit status.
int startWindow(const QString& home);

} // namespace soran::bench
