// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/utc.h"
#include "reports/station_text.h"

#include "support/printing.h"

#include <gtest/gtest.h>

using namespace soran;
using namespace Qt::StringLiterals;

TEST(StationText, IsAReportOfTheStationOrIsRefused) {
  using enum StationText::Kind;
  const QString metar = u"2026/11/24 05:00\nRJTT 240500Z 36010KT 9999 15/08 Q1013\n"_s;
  const struct {
    const char* name;
    QString body;
    StationText::Kind kind;
    QString text = {};
    QString other = {};
  } cases[] = {
      {"whole", metar, Report, metar},
      {"without its line end", metar.chopped(1), Report, metar},
      {"behind a mark and blanks", u"\uFEFF \r\n\t"_s + metar, Report, metar},
      {"behind a mark of bytes that are no UTF-8", u"\u00EF\u00BB\u00BF"_s + metar, Report, metar},
      {"forecast", u"2026/11/24 05:05\nTAF AMD RJTT 240505Z 2406/2512"_s, Report,
       u"2026/11/24 05:05\nTAF AMD RJTT 240505Z 2406/2512\n"_s},
      {"no time at all", u"RJTT NIL="_s, Report, u"RJTT NIL=\n"_s},
      {"with controls", u"RJTT \u202E240500Z\x1B[2J\n"_s, Report, u"RJTT ·240500Z·[2J\n"_s},
      {"of another", QString(metar).replace(u"RJTT"_s, u"RJAA"_s), OfAnother, {}, u"RJAA"_s},
      {"of another first", u"METAR RJAA 240500Z =\nMETAR RJTT 240500Z ="_s, OfAnother, {}, u"RJAA"_s},
      {"of another that names it", u"KJFK 240500Z RMK RJTT"_s, OfAnother, {}, u"KJFK"_s},
      {"of it, naming another", u"RJTT 240500Z RMK RJAA 240500Z"_s, Report,
       u"RJTT 240500Z RMK RJAA 240500Z\n"_s},
      {"empty", {}, NoReport},
      {"blank", u" \n \n"_s, NoReport},
      {"maintenance", u"The service is under maintenance\n"_s, NoReport},
      {"the code within a word", u"XRJTT RJTT7"_s, NoReport},
      {"in small letters", u"rjtt 240500z"_s, NoReport},
      {"page", u"<html>RJTT</html>"_s, Page, u"<html>RJTT</html>"_s},
      {"page behind a blank", u" <html>RJTT</html>"_s, NoReport},
      {"page behind a mark", u"\uFEFF<html>RJTT</html>"_s, NoReport},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    const StationText found = readStationText(StationCode(u"RJTT"_s), c.body);
    EXPECT_EQ(found.kind, c.kind);
    EXPECT_EQ(found.text, c.text);
    EXPECT_EQ(found.other, c.other);
  }
  EXPECT_TRUE(readStationText(StationCode(u"rjtt"_s), metar).isReport());
  EXPECT_EQ(readStationText(StationCode(u"RJTT"_s), metar).time, inUtc({2026, 11, 24}, {5, 0}));
  EXPECT_FALSE(readStationText(StationCode(u"RJTT"_s), u"2026/13/24 05:00\nRJTT").time.isValid());
}
