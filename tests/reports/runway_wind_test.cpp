// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/runway_wind.h"

#include "delivered.h"
#include "support/printing.h"

#include <cmath>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace soran;

namespace {

/// "34L 12 L5": runway, headwind and crosswind in whole knots, with its side.
QString windOn(Runways& runways, const QString& code, QStringView text) {
  const auto wind = runwayWind(readElements(text, {0, text.size()}), runways.of(StationCode(code)));
  if (!wind)
    return u"-"_s;
  return wind->runway + u' ' + QString::number(std::lround(wind->headwind)) + u' ' +
         u"LRX"[size_t(wind->side)] + QString::number(std::lround(wind->crosswind));
}

TEST(RunwayWind, IsThatOfTheRunwayInUse) {
  Runways runways(
      "\nAAAA\t18\t178\nAAAA\t36\t358\nBBBB\t05\t42\nBBBB\t16L\t150\nBBBB\t16R\t150\nBBBB\t23\t222\n"
      "BBBB\t34L\t330\nBBBB\t34R\t330\n");
  const struct {
    QString code;
    QStringView text;
    QString told;
  } cases[] = {
      {u"BBBB"_s, u"33012KT", u"34L 12 X0"_s}, // the first of two that are parallel
      {u"BBBB"_s, u"35010KT", u"34L 9 R3"_s},
      {u"BBBB"_s, u"31010G30KT", u"34L 28 L10"_s}, // by the gusts
      {u"BBBB"_s, u"21010KT", u"23 10 L2"_s},
      {u"AAAA"_s, u"36020KT", u"36 20 R1"_s},
      {u"AAAA"_s, u"00120KT", u"36 20 R1"_s},
      {u"AAAA"_s, u"35020KT", u"36 20 L3"_s},
      {u"AAAA"_s, u"09010KT", u"18 0 L10"_s},
      {u"AAAA"_s, u"35010KT 310V040", u"36 10 X7"_s}, // worst at 310 and on both sides
      {u"AAAA"_s, u"02010KT 350V110", u"36 9 X10"_s}, // across in between
      {u"AAAA"_s, u"03010KT 010V050", u"36 8 R8"_s},
      {u"AAAA"_s, u"09010MPS", u"18 1 L19"_s},
      {u"AAAA"_s, u"360P99KT", u"36 100 R3"_s},
      {u"AAAA"_s, u"VRB03G15KT", u" 0 X15"_s},
      {u"AAAA"_s, u"00000KT", u"-"_s},
      {u"AAAA"_s, u"///10KT", u"-"_s},
      {u"AAAA"_s, u"360//KT", u"-"_s},
      {u"AAAA"_s, u"CAVOK", u"-"_s},
      {u"AAA"_s, u"36010KT", u"-"_s},
      {u"CCCC"_s, u"36010KT", u"-"_s},
  };
  for (const auto& c : cases)
    EXPECT_EQ(windOn(runways, c.code, c.text), c.told) << c.text.toUtf8().toStdString();
}

TEST(RunwayWind, DeliveredRunwaysAgreeWithTheirNumbers) {
  Runways runways(delivered::runways());
  EXPECT_EQ(windOn(runways, u"RJTT"_s, u"33015KT"), u"34L 15 X0"_s);
  EXPECT_EQ(windOn(runways, u"ROAH"_s, u"18015KT"), u"18 15 R1"_s);
  int airports = 0;
  for (const Airport& airport : delivered::airports()) {
    const std::vector<RunwayEnd>& ends = runways.of(StationCode(airport.code));
    airports += ends.empty() ? 0 : 1;
    for (const RunwayEnd& end : ends) {
      const int off = (end.bearing - 10 * end.designator.left(2).toInt() + 540) % 360 - 180;
      // The magnetic north lies 4 to 10 degrees west of the true one in Japan, and numbers are rounded.
      EXPECT_LE(std::abs(off + 7), 14) << airport.code.toStdString() << end.designator.toStdString();
      EXPECT_EQ(ends.size() % 2, 0U);
    }
  }
  EXPECT_GT(airports, 70);
}

} // namespace
