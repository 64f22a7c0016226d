// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace soran {

/// Has the process and its children read and write UTF-8 where the environment names a locale that does not,
/// or one that is not installed; all else of the locale stays. Called before the application object is made:
/// Qt switches by itself there, and newer releases say so on standard error.
void useUtf8();

} // namespace soran
