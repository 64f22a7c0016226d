// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace soran {

class Terminal;

/// Writes all that is the user's own (lists, groups, dictionaries, settings) to a JSON file that the user
/// chooses.
void exportUserData(Terminal& terminal);

/// Takes such a file over, after a question. What is not whole is refused with a message, and nothing
/// changes.
void importUserData(Terminal& terminal);

} // namespace soran
