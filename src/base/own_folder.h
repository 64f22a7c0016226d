// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace soran {

/// True where nobody but this user and root can change what lies in the folder: it and all above it belong to
/// one of them, and nobody else may write there. A folder where everybody may write counts where its sticky
/// bit keeps others from touching what is in it, as in /tmp, but not as the last one. What another machine
/// serves, and what a file system of a user's own making shows, does not count.
bool isOwnFolder(const QString& path);

} // namespace soran
