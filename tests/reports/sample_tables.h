// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "reports/dictionaries.h"
#include "store/settings_record.h"

namespace soran {

/// Small tables: a name with blanks, meanings with and without a remark in brackets, and keys twice.
inline const Dictionaries& sampleTables() {
  static const Dictionaries tables({{QStringLiteral("RJTT"), QStringLiteral("東京　国際 ")},
                                    {QStringLiteral("RJTT"), QStringLiteral("羽田")},
                                    {QStringLiteral("RJTF"), QStringLiteral("調布")},
                                    {QStringLiteral("PAKT"), QStringLiteral("ケチカン")},
                                    {QStringLiteral("R/12"), QStringLiteral("試験")}},
                                   {{QStringLiteral("SH"), QStringLiteral(" しゅう雨性 (Shower)")},
                                    {QStringLiteral("RA"), QStringLiteral("雨")},
                                    {QStringLiteral("RA"), QStringLiteral("あめ")},
                                    {QStringLiteral("BR"), QStringLiteral("もや(Mist)")},
                                    {QStringLiteral("Z"), QStringLiteral("協定世界時")},
                                    {QStringLiteral("RJTF"), QStringLiteral("飛行場(字)")}},
                                   {{QStringLiteral("-RA"), QStringLiteral("弱い雨")},
                                    {QStringLiteral("VCSH"), QStringLiteral("付近にしゅう雨")}});
  return tables;
}

/// Settings with LOCAL使用, 時差 and 規約読み as given.
inline SettingsRecord zoned(bool local, const QString& offset, bool byCode = false) {
  SettingsRecord record = SettingsRecord::standard(offset);
  record.set(key::LOCAL使用, local);
  record.set(key::規約読み, byCode);
  return record;
}

} // namespace soran
