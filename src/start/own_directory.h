// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace soran {

/// Makes the program's directory and marks it as the program's own. A directory that already holds a `data`
/// or `help` folder with foreign files is used, but not marked. False where the directory does not exist and
/// cannot be made.
bool claimDirectory(const QString& directory);

/// Deletes the plain files of a folder of the program's directory and the folder itself. Nothing happens in a
/// directory that is not marked as the program's own; links are neither followed nor deleted, and a folder
/// that still holds something stays.
void removeScratchFolder(const QString& directory, const QString& folder);

} // namespace soran
