// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The first bytes choose the zone, the day and the selection, the rest is the screen.
#include "reports/explain_selection.h"

#include "targets.h"

namespace soran::fuzz {

void explain(QByteArrayView input) {
  static const Dictionaries tables({{QStringLiteral("RJTT"), QStringLiteral("東京　国際")}},
                                   {{QStringLiteral("RA"), QStringLiteral("雨(Rain)")}},
                                   {{QStringLiteral("BR"), QStringLiteral("もや")}});
  constexpr qsizetype head = 4;
  if (input.size() < head)
    return;
  const SettingsRecord settings = settingsIn(input[0] & 2 ? u"-9" : u"+9", static_cast<uint8_t>(input[0]));
  const QString screen = textOf(input.sliced(head));
  const QDate today = QDate(2024, 1, 1).addDays(static_cast<uint8_t>(input[1]));
  const auto start = static_cast<int8_t>(input[2]);
  const int length = static_cast<uint8_t>(input[3]) % 32 - 1;
  const auto explanation = ExplainSelection(screen, start, length, today, settings, tables);
  require(!explanation || !explanation->text.isEmpty(), "an explanation tells something");
  require(ExplainSelection(screen, start, length, today, settings, tables) == explanation,
          "the same selection is explained the same way");
}

} // namespace soran::fuzz
