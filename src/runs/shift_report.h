// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "runs/program.h"

#include <QString>
#include <optional>

namespace soran {

/// Does what SHIFT asks and tells what was done; nothing where the words are none of its. They are the hours
/// to look back, 12 where there are none, and what is to become of the log: nothing to be told, PRINT, CSV or
/// JSON, for which the user is asked for a file. Throws Unwind where the program was closed meanwhile.
std::optional<QString> shiftText(Program& program, const QString& words);

} // namespace soran
