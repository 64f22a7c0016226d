// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/utc.h"
#include "reports/sigmet.h"

#include "support/printing.h"

#include <gtest/gtest.h>

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

const QDateTime now = inUtc(QDate(2026, 11, 30), QTime(23, 50));

QStringList inside(const Sigmet& sigmet) {
  const struct {
    QString code;
    EarthPosition position;
  } fields[] = {{u"RJCC"_s, positionOf(u"424630", u"1414133")},
                {u"RJTT"_s, positionOf(u"353312", u"1394652")},
                {u"RJBB"_s, positionOf(u"342603", u"1351358")},
                {u"RJFF"_s, positionOf(u"333504", u"1302702")},
                {u"ROAH"_s, positionOf(u"261145", u"1273845")}};
  QStringList codes;
  for (const auto& field : fields) {
    if (sigmet.covers(field.position))
      codes.append(field.code);
  }
  return codes;
}

} // namespace

TEST(Sigmet, TellsWhichAirportsLieInItsArea) {
  const struct {
    const char* name;
    QString area;
    QStringList airports;
    bool isPlaced = true;
  } cases[] = {
      {"a polygon",
       u"SEV TURB OBS WI N3700 E13900 - N3700 E14100 - N3500 E14100 - N3500 E13900 - N3700 E13900 FL330/390"_s,
       {u"RJTT"_s}},
      {"degrees alone",
       u"SEV ICE FCST WI N36 E134 - N36 E141 - N33 E141 - N33 E134 FL100/180"_s,
       {u"RJTT"_s, u"RJBB"_s}},
      {"round a place", u"VA CLD OBS WI 60NM OF N3335 E13027 SFC/FL200"_s, {u"RJFF"_s}},
      {"in kilometres", u"VA CLD OBS WI 100KM OF N3335 E13027"_s, {u"RJFF"_s}},
      {"round a cyclone",
       u"TC MAN-YI PSN N2600 E12800 CB OBS AT 0000Z WI 120NM OF TC CENTRE TOP FL520"_s,
       {u"ROAH"_s}},
      {"all of it", u"VA CLD ENTIRE FIR"_s, {u"RJCC"_s, u"RJTT"_s, u"RJBB"_s, u"RJFF"_s, u"ROAH"_s}},
      {"a line", u"EMBD TS FCST N OF LINE N3500 E13500 - N3600 E14000"_s, {}, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    const auto sigmets = readSigmets(
        QString(u"RJJJ SIGMET A01 VALID 302300/010300 RJTD-\nRJJJ FUKUOKA FIR " + c.area + u"=\n"), u"RJJJ",
        now);
    ASSERT_EQ(sigmets.size(), 1);
    EXPECT_EQ(inside(sigmets[0]), c.airports);
    EXPECT_EQ(sigmets[0].isPlaced(), c.isPlaced);
  }
}

TEST(Sigmet, ListsThoseInForceOrToComeOnce) {
  const QString body =
      u"WSJP31 RJTD 302200\nRJJJ SIGMET B02 VALID 010100/010500 RJTD-\nRJJJ FUKUOKA FIR SEV TURB=\n"
      "RJJJ SIGMET B01 VALID 302200/010200 RJTD-\nRJJJ FUKUOKA FIR\n SEV  ICE=\n"
      "RJJJ SIGMET B01 VALID 302200/010200 RJTD-\nRJJJ FUKUOKA FIR SEV ICE=\n"
      "RKRR SIGMET C01 VALID 302300/010300 RKSI-\nRKRR INCHEON FIR SEV TURB=\n"
      "RJJJ SIGMET D01 VALID 301800/302200 RJTD-\nRJJJ FUKUOKA FIR OVER=\n"
      "RJJJ SIGMET E01 VALID 302200/010200 RJTD-\nRJJJ FUKUOKA FIR SEV TURB=\n"
      "RJJJ SIGMET E02 VALID 302300/010200 RJTD-\nRJJJ FUKUOKA FIR CNL SIGMET E01 302200/010200=\n"
      "RJJJ SIGMET F01 VALID 302300/"_s;
  QStringList seen;
  for (const Sigmet& sigmet : readSigmets(body, u"RJJJ", now))
    seen.append(sigmet.heading + sigmet.from.toString(u" MMddHHmm"_s) + sigmet.to.toString(u" MMddHHmm "_s) +
                sigmet.text);
  EXPECT_EQ(seen, (QStringList{u"RJJJ SIGMET B01 11302200 12010200 RJJJ FUKUOKA FIR SEV ICE"_s,
                               u"RJJJ SIGMET B02 12010100 12010500 RJJJ FUKUOKA FIR SEV TURB"_s}));
  EXPECT_TRUE(readSigmets(u"<html>", u"RJJJ", now).isEmpty());
}

TEST(Sigmet, AnAreaAcrossTheDateLineHoldsWhatLiesThere) {
  const QString text =
      u"RJJJ SIGMET D01 VALID 240500/240900 RJTD-\nRJJJ FUKUOKA FIR SEV TURB FCST WI N4200 E16000 - "
      "N4200 W17500 - N3000 W17500 - N3000 E16000 - N4200 E16000 FL280/380=\n"_s;
  const QList<Sigmet> sigmets = readSigmets(text, u"RJJJ", inUtc({2026, 11, 24}, {6, 0}));
  ASSERT_EQ(sigmets.size(), 1);
  EXPECT_TRUE(sigmets[0].covers({35, 170}));
  EXPECT_TRUE(sigmets[0].covers({35, 180}));
  EXPECT_TRUE(sigmets[0].covers({35, -178}));
  EXPECT_FALSE(sigmets[0].covers({35.55, 139.78}));
  EXPECT_FALSE(sigmets[0].covers({35, -170}));
}
