// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "screen/untold_text.h"

#include <gtest/gtest.h>

namespace soran {

using namespace Qt::StringLiterals;

TEST(UntoldText, IsWhatStandsBehindTheLinesThatWereTold) {
  struct Case {
    QString told;
    QString now;
    QString untold;
  };
  const Case cases[] = {
      {u""_s, u"SYSTEM INITIALIZED\r\nREADY"_s, u"SYSTEM INITIALIZED\nREADY"_s},
      {u"A\r\nREADY"_s, u"A\r\nREADY"_s, u""_s},
      {u"A\r\nREADY"_s, u"A\r\nREADY\r\n"_s, u""_s},
      {u"A\r\nREADY\r\n"_s, u"A\r\nREADY"_s, u""_s},
      {u"A\r\nREADY"_s, u"A\r\nREADY\r\nSYNTAX ERROR\r\nREADY"_s, u"SYNTAX ERROR\nREADY"_s},
      // A run takes the prompt away.
      {u"A\r\nREADY"_s, u"A\r\n\r\n*** RJTT ***\r\nRJTT  METAR\n  9999\r\nREADY"_s,
       u"*** RJTT ***\nRJTT  METAR\n9999\nREADY"_s},
      {u"A\r\nLOADING RJTT RJCC"_s, u"A\r\nREADY"_s, u"READY"_s},
      {u"A\r\nLOADING RJTT"_s, u"A\r\nLOADING RJTT RJCC"_s, u"LOADING RJTT RJCC"_s},
      {u"RJTT 100"_s, u"RJTT 1000\r\nREADY"_s, u"RJTT 1000\nREADY"_s},
      {u"RJTT 1000"_s, u"RJTT 100\r\nREADY"_s, u"RJTT 100\nREADY"_s},
      {u"A\r\nB"_s, u" \r\nREADY"_s, u"READY"_s},
      {u"A\r\nB"_s, u""_s, u""_s},
  };
  for (const Case& c : cases)
    EXPECT_EQ(untoldText(c.told, c.now), c.untold) << qPrintable(c.told) << " -> " << qPrintable(c.now);
}

} // namespace soran
