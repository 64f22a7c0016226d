// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/database.h"

namespace soran {

/// The columns of one of the tables as this program makes it, in order; empty for any other.
QStringList columnsOf(QStringView table);

/// Makes one of the tables, without a row. Throws StoreError.
void createTable(Database& database, QStringView table);

/// Adds the columns that an open database of an earlier program lacks in 設定, with their standard values,
/// all or none. Throws StoreError.
void addMissingSettings(Database& database);

/// Adds a row, as `table` has its columns. Throws StoreError.
void insertRow(Database& database, QStringView table, const QVariantList& row);

/// The row of a 設定 that nobody has changed yet.
QVariantList standardRow();

} // namespace soran
