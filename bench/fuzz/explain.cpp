// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "interpret/explain_selection.h"

using namespace soran;

// The first bytes choose the zone, the day and the selection, the rest is the screen.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const Dictionaries tables({{QStringLiteral("RJTT"), QStringLiteral("東京　国際")}},
                                   {{QStringLiteral("RA"), QStringLiteral("雨(Rain)")}},
                                   {{QStringLiteral("BR"), QStringLiteral("もや")}});
  constexpr size_t head = 4;
  if (size < head)
    return 0;
  SettingsRecord settings =
      SettingsRecord::standard(data[0] % 2 == 0 ? QStringLiteral("+9") : QStringLiteral("-9"));
  settings.set(key::LOCAL使用, data[0] % 4 < 2);
  const QString screen =
      QString::fromUtf8(reinterpret_cast<const char*>(data) + head, static_cast<qsizetype>(size - head));
  const QDate today = QDate(2024, 1, 1).addDays(data[1]);
  const auto explanation =
      ExplainSelection(screen, static_cast<int8_t>(data[2]), data[3] % 32 - 1, today, settings, tables);
  if (explanation && explanation->text.isEmpty())
    std::abort();
  return 0;
}
