// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/tables.h"

namespace soran {

/// Copies what is the user's from the open tables into a newer database file, in one transaction: every
/// setting, and each of the lists 飛行場情報, 自動デコード, カンパニー, 気象略語, 空港別制限 that has rows.
/// 日本語解析 and データ stay those of the new file. Throws StoreError; the new file is then as it was.
void carryOverData(const Tables& live, const QString& newFile);

} // namespace soran
