// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/clock.h"

#include <QString>
#include <QStringList>

namespace soran {

/// The copy that is there is not of the last 24 hours.
bool isDailyCopyDue(const QString& database, const Clock& clock);

/// Copies the closed database file to its name with ".day", where that is due (isDailyCopyDue,
/// makeRoomForCopy). A file that is not a whole database replaces no copy; what cannot be written
/// leaves the former one.
void backUpDaily(const QString& database, const Clock& clock);

/// Makes room for a new copy of that name: one of another format, or of a later time than it is now, is kept
/// under a name with the date. False where that cannot be done.
bool makeRoomForCopy(const QString& copy, const Clock& clock);

/// The copies of a database that there are, the newest first: that of the day, and that before its last
/// renewal.
QStringList backupsOf(const QString& database);

} // namespace soran
