// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The first byte chooses the zone, the next five are the time, the rest is the report.
#include "reports/translate_report.h"

#include "base/text.h"
#include "targets.h"

namespace soran::fuzz {

void translate(QByteArrayView input) {
  static const Dictionaries tables({{QStringLiteral("RJTT"), QStringLiteral("東京　国際")}},
                                   {{QStringLiteral("RA"), QStringLiteral("雨(Rain)")},
                                    {QStringLiteral("SH"), QStringLiteral("しゅう雨性")}},
                                   {{QStringLiteral("BR"), QStringLiteral("もや")}});
  constexpr qsizetype timeLength = 5;
  if (input.size() < 1 + timeLength)
    return;
  SettingsRecord settings = settingsIn(input[0] & 2 ? u"-9" : u"+9", static_cast<uint8_t>(input[0]));
  const QString time = textOf(input.sliced(1, timeLength));
  const QString body = textOf(input.sliced(1 + timeLength));
  const StationCode station(QStringLiteral("RJTT"));
  for (const bool byCode : {false, true}) {
    settings.set(key::規約読み, byCode);
    const QString text = TranslateReport(station, time, body, settings, tables);
    require(text.endsWith(crlf) || (text == untranslatable && !byCode), "the last line is ended");
    constexpr qsizetype phrase = 400; // more than any group's wording
    require(text.size() <= phrase * (body.size() + 1), "a group gives a phrase, not a book");
    require(TranslateReport(station, time, body, settings, tables) == text,
            "the same report is translated the same way");
  }
}

} // namespace soran::fuzz
