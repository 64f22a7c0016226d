// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/utc.h"
#include "reports/raw_lines.h"

#include "support/printing.h"

#include <gtest/gtest.h>

using namespace soran;
using namespace Qt::StringLiterals;

TEST(RawLines, BecomeTheStationFilesThatAnotherSourceServes) {
  const QDateTime now = inUtc(QDate(2026, 11, 30), QTime(23, 50));
  const struct {
    const char* name;
    QString body;
    QString file; ///< of RJTT; empty where it has none
    ReportKind kind = ReportKind::Metar;
    std::optional<bool> isSpecial = std::nullopt;
  } cases[] = {
      {"bare", u"RJTT 302300Z 36010KT Q1018\n"_s, u"2026/11/30 23:00\nRJTT 302300Z 36010KT Q1018\n"_s},
      {"its kind ahead", u"METAR RJTT 302300Z AUTO 36010KT\r\n"_s,
       u"2026/11/30 23:00\nRJTT 302300Z AUTO 36010KT\n"_s, ReportKind::Metar, false},
      {"special", u"SPECI RJTT 302312Z 36010KT"_s, u"2026/11/30 23:12\nRJTT 302312Z 36010KT\n"_s,
       ReportKind::Metar, true},
      {"corrected", u"METAR COR RJTT 302300Z 36010KT"_s, u"2026/11/30 23:00\nRJTT 302300Z COR 36010KT\n"_s,
       ReportKind::Metar, false},
      {"of next month", u"RJTT 010000Z 36010KT"_s, u"2026/12/01 00:00\nRJTT 010000Z 36010KT\n"_s},
      {"of last month", u"RJTT 312300Z 36010KT"_s, u"2026/10/31 23:00\nRJTT 312300Z 36010KT\n"_s},
      {"the newest of several", u"RJTT 302300Z A\nRJAA 302330Z B\nRJTT 302330Z C\nRJTT 302200Z D\n"_s,
       u"2026/11/30 23:30\nRJTT 302330Z C\n"_s},
      {"no such day", u"RJTT 322300Z 36010KT\n"_s, {}},
      {"no time", u"RJTT 2300Z 36010KT\nRJTT\nMETAR\n\n"_s, {}},
      {"a page", u"<html>RJTT 302300Z</html>"_s, {}},
      {"a forecast among reports", u"TAF RJTT 302305Z 0100/0206 36010KT\n"_s, {}},
      {"forecast on one line",
       u"TAF RJTT 302305Z 0100/0206 36010KT BECMG 0103/0106 18010KT PROB30 TEMPO 0108/0110 TSRA FM011200 CALM\n"_s,
       u"2026/11/30 23:05\nTAF RJTT 302305Z 0100/0206 36010KT\n     BECMG 0103/0106 18010KT\n     PROB30 TEMPO 0108/0110 TSRA\n     FM011200 CALM\n"_s,
       ReportKind::Taf},
      {"forecast on several lines",
       u"TAF AMD RJTT 302305Z 0100/0206\n  36010KT\n\tTEMPO 0103/0106 BR\nTAF RJAA 302305Z X\n"_s,
       u"2026/11/30 23:05\nTAF AMD RJTT 302305Z 0100/0206 36010KT\n     TEMPO 0103/0106 BR\n"_s,
       ReportKind::Taf},
      {"forecast without its kind", u"RJTT 302305Z 0100/0206 36010KT\n"_s,
       u"2026/11/30 23:05\nTAF RJTT 302305Z 0100/0206 36010KT\n"_s, ReportKind::Taf},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    const RawReport report = readRawLines(c.body, c.kind, now).value(u"RJTT"_s);
    EXPECT_EQ(report.file, c.file);
    EXPECT_EQ(report.isSpecial, c.isSpecial);
  }
}
