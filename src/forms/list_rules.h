// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/tables.h"

namespace soran {

/// What the editors of the lists write when they close: trimmed and upper-case texts, dropped rows, the
/// ranks. A row is the pair of its two columns. Each throws StoreError where the table cannot be written.
using EditedRow = std::pair<QString, QString>;

void storeAirports(Tables& tables, const std::vector<EditedRow>& rows);
/// Turns 自動デコード有効 off where the list is empty.
void storeAutoList(Tables& tables, const std::vector<EditedRow>& rows);
/// As storeAutoList, for rows that were stored before: nothing is cut off a name behind a code of one letter.
void restoreAutoList(Tables& tables, const std::vector<EditedRow>& rows);
/// A row with an empty cell is dropped; the ranks keep its gap.
void storeGroups(Tables& tables, const std::vector<EditedRow>& rows);
/// `table` is 気象略語 or 日本語解析.
void storeDictionary(Tables& tables, QStringView table, const std::vector<EditedRow>& rows);

/// The rows as they are, ranked in their order.
void storeLimits(Tables& tables, const QList<AirportLimits>& rows);

/// The editor's write-back of a list table by its name; false where the table is none of two texts a
/// row.
bool storeList(Tables& tables, QStringView table, const std::vector<EditedRow>& rows);

} // namespace soran
