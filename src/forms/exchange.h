// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/tables.h"

#include <QByteArray>
#include <QString>

namespace soran {

/// All that is the user's own as one JSON object in UTF-8: the lists 飛行場情報, 自動デコード, カンパニー,
/// 気象略語 and 日本語解析 as rows of two texts, 空港別制限 where it has rows, and the settings but for those
/// that belong to one installation (versions, dates, the update address, the counter of exits).
QByteArray exportedData(const Tables& tables);

/// Takes such an object over: each list and each setting that it holds. It is checked whole before anything
/// is written, and written in one transaction. Throws InputError where it is not what an export writes,
/// StoreError where it cannot be stored; the database is then as it was.
void importData(Tables& tables, const QByteArray& json);

/// The same from a plain file of largestListFile bytes at most; the error names it. One that holds a database
/// is told as such.
void importFile(Tables& tables, const QString& path);

} // namespace soran
