// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace soran {

class Terminal;

/// Runs a typed line, trimmed and in upper case, through the chain of commands: the first that fits decides.
void runCommand(Terminal& terminal, const QString& text);

} // namespace soran
