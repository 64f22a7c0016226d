// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "pictures/station_positions.h"

#include "delivered.h"

#include <QByteArrayList>
#include <gtest/gtest.h>

#include <cmath>

using namespace soran;
using namespace Qt::StringLiterals;

TEST(StationPositions, KnowsJapanAndTheWorld) {
  const StationPositions positions(delivered::file(u"positions.tsv"_s));
  const std::pair<QString, QString> cases[] = {
      {u"RJTT"_s, u"3533N 13947E"_s}, {u"RJGG"_s, u"3452N 13648E"_s}, {u"KJFK"_s, u"4038N 07346W"_s},
      {u"EGLL"_s, u"5129N 00027W"_s}, {u"YSSY"_s, u"3357S 15111E"_s}, {u"NZAA"_s, u"3701S 17448E"_s},
  };
  for (const auto& [code, text] : cases) {
    const std::optional<EarthPosition> position = positions.find(code);
    ASSERT_TRUE(position) << code.toStdString();
    EXPECT_EQ(positionText(*position), text);
  }
  for (const QStringView code : {u"ZZZZ", u"RJT", u"RJTTX", u"", u"羽田空港", u"#   "})
    EXPECT_FALSE(positions.find(code)) << code.toString().toStdString();
  EXPECT_TRUE(StationPositions().find(u"RJTT"));
}

TEST(StationPositions, PassesOverRowsThatTellNone) {
  const StationPositions positions(
      "# KAAA\t1\t2\nKBBB\t91\t0\nKCCC\t1\t181\nKDDD\tx\t2\nKEEE\t1\nKFFF\t-1.5\t2.25\n"
      "KGGG\tnan\t0\nKHHH\t1\t2\t3\n");
  EXPECT_EQ(positions.find(u"KFFF"), (EarthPosition{-1.5, 2.25}));
  for (const QStringView code : {u"KAAA", u"KBBB", u"KCCC", u"KDDD", u"KEEE", u"KGGG", u"KHHH"})
    EXPECT_FALSE(positions.find(code)) << code.toString().toStdString();
}
