// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/text.h"
#include "sun/positions.h"
#include "sun/sun_times.h"
#include "support/printing.h"

#include <QSet>
#include <cstdlib>
#include <gtest/gtest.h>

using namespace soran;

namespace {

int minutesOf(QStringView hhmm) {
  return leadingInteger(mid1(hhmm, 1, 2)) * 60 + leadingInteger(mid1(hhmm, 3, 2));
}

} // namespace

TEST(SunTimes, GiveTheAgreedDigits) {
  const struct {
    int year, month, day;
    QStringView latitude, longitude, sunrise, sunset;
  } cases[] = {
      {2010, 1, 1, u"353312", u"1394652", u"0650", u"1639"},
      {2010, 3, 21, u"353312", u"1394652", u"0544", u"1753"},
      {2010, 6, 21, u"353312", u"1394652", u"0425", u"1900"},
      {2010, 9, 23, u"353312", u"1394652", u"0529", u"1738"},
      {2010, 12, 21, u"353312", u"1394652", u"0646", u"1632"},
      {2100, 2, 29, u"353312", u"1394652", u"0611", u"1736"},
      // Minutes that round up to the full hour.
      {2010, 4, 22, u"353312", u"1394652", u"0500", u"1819"},
      {2010, 8, 16, u"353312", u"1394652", u"0500", u"1830"},
      // No sunset: the sidereal angle stays in place of the hour angle.
      {2010, 6, 21, u"660000", u"1394652", u"1744", u"4141"},
      {2010, 1, 21, u"890000", u"1394652", u"1803", u"4141"},
      // Malformed texts read as zero, and hours are not wrapped.
      {2010, 1, 21, u"abcdef", u"", u"1507", u"2715"},
      {2010, 1, 21, u"353312", u"0", u"1606", u"2616"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(::testing::Message() << c.year << '-' << c.month << '-' << c.day);
    EXPECT_EQ(SunriseTime(c.year, c.month, c.day, c.latitude, c.longitude), c.sunrise);
    EXPECT_EQ(SunsetTime(c.year, c.month, c.day, c.latitude, c.longitude), c.sunset);
  }
}

// Published by the National Astronomical Observatory of Japan for the prefectures' capitals.
TEST(SunTimes, AgreeWithTheAlmanac) {
  const struct {
    int month, day;
    QStringView latitude, longitude, sunrise, sunset;
  } cases[] = {
      {6, 21, u"261200", u"1274100", u"0538", u"1925"}, {12, 21, u"261200", u"1274100", u"0713", u"1743"},
      {6, 21, u"430400", u"1412100", u"0355", u"1918"}, {12, 21, u"430400", u"1412100", u"0703", u"1603"},
      {1, 1, u"344100", u"1353000", u"0705", u"1658"},  {1, 1, u"333500", u"1302400", u"0723", u"1721"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.latitude.toUtf8().toStdString());
    const QString rise = SunriseTime(2024, c.month, c.day, c.latitude, c.longitude);
    const QString set = SunsetTime(2024, c.month, c.day, c.latitude, c.longitude);
    EXPECT_LE(std::abs(minutesOf(rise) - minutesOf(c.sunrise)), 2);
    EXPECT_LE(std::abs(minutesOf(set) - minutesOf(c.sunset)), 2);
  }
}

TEST(Positions, EveryRowIsAPointInJapan) {
  ASSERT_EQ(codedPositions().size(), 128U);
  ASSERT_EQ(namedPositions().size(), 58U);
  QSet<QStringView> keys;
  for (const auto rows : {codedPositions(), namedPositions()}) {
    for (const FieldPosition& row : rows) {
      SCOPED_TRACE(row.key.toUtf8().toStdString());
      EXPECT_FALSE(keys.contains(row.key));
      keys.insert(row.key);
      ASSERT_EQ(row.latitude.size(), 6);
      ASSERT_EQ(row.longitude.size(), 7);
      EXPECT_TRUE(row.latitude >= u"240000" && row.latitude < u"460000");
      EXPECT_TRUE(row.longitude >= u"1220000" && row.longitude < u"1540000");
      for (const QStringView sixties : {row.latitude.last(4), row.longitude.last(4)}) {
        EXPECT_LT(leadingInteger(sixties.first(2)), 60);
        EXPECT_LT(leadingInteger(sixties.last(2)), 60);
      }
      EXPECT_EQ(plainNumber(static_cast<float>(leadingNumber(row.elevation)), 7), row.elevation);
    }
  }
}

TEST(Positions, OneTextHoldsLatitudeLongitudeElevation) {
  EXPECT_EQ(AirfieldPosition(u"RJTT"), u"353312139465221");
  EXPECT_EQ(AirfieldPosition(u"RJCH"), u"4146121404919111.9");
  EXPECT_EQ(AirfieldPosition(u"RJBK"), u"34352913356000");
  EXPECT_EQ(AirfieldPosition(u"RJKI"), u"281917129554115.26");
  for (const QStringView unknown : {u"rjtt", u"KJFK", u"", u"RJT"})
    EXPECT_EQ(AirfieldPosition(unknown), u"");
}
