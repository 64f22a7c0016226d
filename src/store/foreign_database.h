// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace soran {

/// What a database that came from elsewhere may hold at most.
inline constexpr qint64 largestForeignDatabase = 64LL << 20; ///< bytes, of the file and of all its values
inline constexpr qsizetype largestForeignValue = 1 << 20;    ///< bytes, of a text or a picture
inline constexpr int mostForeignRows = 100'000;              ///< in a table

/// Makes the database file `own` anew and fills it with the rows of a database that came from elsewhere,
/// which is read as data and never as the program's own: it holds the tables, optional ones or not, their
/// indexes of plain columns and nothing else, and one row of settings. Columns that this program does not
/// know are left out, settings that it lacks have their standard value. Throws StoreError where it is none or
/// beyond the bounds; there is no `own` then.
void copyForeignDatabase(const QString& foreign, const QString& own);

} // namespace soran
