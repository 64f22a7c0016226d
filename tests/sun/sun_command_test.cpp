// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "sun/sun_command.h"
#include "support/printing.h"

#include <gtest/gtest.h>

using namespace soran;

TEST(SunCommand, GivesOneLineForEachCode) {
  const QDate date(2010, 12, 21);
  const auto lines = sunCommandLines(u"RJTT rjtt KJFK RJSS", date);
  ASSERT_TRUE(lines);
  ASSERT_EQ(lines->size(), 4);
  EXPECT_EQ(lines->at(0), u"RJTT  SUNRISE 06:46  SUNSET 16:32   ELV 21  ⊿H -6");
  EXPECT_EQ(lines->at(1), u"rjtt  NOT FOUND POSITION DATA");
  EXPECT_EQ(lines->at(2), u"KJFK  NOT FOUND POSITION DATA");
  EXPECT_TRUE(lines->at(3).endsWith(u"   ELV 5.6  ⊿H +9.4"));
  EXPECT_EQ(sunCommandScreenText({QStringLiteral("A"), QStringLiteral("B")}), u"\r\n\r\nA\r\nB\r\n");
}

TEST(SunCommand, RefusesWhatIsNoCodeList) {
  for (const QStringView list : {u"RJTTRJBB", u"RJT", u"RJTT ", u" RJTT", u"RJTT  RJBB", u"RJ1T", u""})
    EXPECT_FALSE(sunCommandLines(list, QDate(2010, 1, 1))) << list.toUtf8().toStdString();
}

TEST(SunCommand, EyeHeightDifferenceKeepsOneDecimal) {
  const struct {
    QStringView elevation, shown;
  } cases[] = {
      {u"21", u"-6"},      {u"15", u"±0"},      {u"5.6", u"+9.4"},    {u"14.8", u"+0.2"},
      {u"15.26", u"-0.3"}, {u"14.96", u"±0"},   {u"0", u"+15"},       {u"158.5", u"-143.5"},
      {u"58.4", u"-43.4"}, {u"1220", u"-1205"}, {u"111.9", u"-96.9"}, {u"4.6", u"+10.4"},
  };
  for (const auto& c : cases)
    EXPECT_EQ(eyeHeightDifference(c.elevation), c.shown) << c.elevation.toUtf8().toStdString();
}
