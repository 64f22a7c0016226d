// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "interpret/translate_report.h"

using namespace soran;

// The first byte chooses code and zone, the next five are the time, the rest is the report.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const Dictionaries tables({{QStringLiteral("RJTT"), QStringLiteral("東京　国際")}},
                                   {{QStringLiteral("RA"), QStringLiteral("雨(Rain)")},
                                    {QStringLiteral("SH"), QStringLiteral("しゅう雨性")}},
                                   {{QStringLiteral("BR"), QStringLiteral("もや")}});
  constexpr size_t timeLength = 5;
  if (size < 1 + timeLength)
    return 0;
  SettingsRecord settings =
      SettingsRecord::standard(data[0] % 2 == 0 ? QStringLiteral("+9") : QStringLiteral("-9"));
  settings.set(key::LOCAL使用, data[0] % 4 < 2);
  const QString time = QString::fromLatin1(reinterpret_cast<const char*>(data) + 1, timeLength);
  const QString body = QString::fromUtf8(reinterpret_cast<const char*>(data) + 1 + timeLength,
                                         static_cast<qsizetype>(size - 1 - timeLength));
  const QString text = TranslateReport(u"RJTT", time, body, settings, tables);
  if (text != untranslatable && !text.endsWith(u"\r\n"))
    std::abort();
  return 0;
}
