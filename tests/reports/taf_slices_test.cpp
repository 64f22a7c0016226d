// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/taf_slices.h"

#include "base/utc.h"
#include "support/printing.h"
#include "support/sample_reports.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace soran;

namespace {

const QDateTime now = inUtc({2026, 8, 22}, {6, 0});

QString nameOf(const ForecastSlice& slice) {
  constexpr QStringView names[] = {u"", u"FM", u"HALF", u"TEMPO", u"PROB", u"PROBTEMPO"};
  const QString name = names[size_t(slice.kind)].toString();
  return slice.probability == 0 ? name : name + QString::number(slice.probability);
}

/// "2206-2210 KIND wind vis CEIL weather": each in the words that it comes from.
QString told(QStringView text, const ForecastSlice& slice) {
  QStringList parts{slice.from.toString(u"ddHHmm"_s) + u'-' + slice.to.toString(u"ddHHmm"_s)};
  const auto add = [&](const auto& element) {
    if (element)
      parts += element->words.in(text).toString();
  };
  if (const QString name = nameOf(slice); !name.isEmpty())
    parts += name;
  add(slice.values.wind);
  if (slice.values.cavok)
    parts += u"CAVOK"_s;
  add(slice.values.visibility);
  for (const Words& weather : slice.values.weather)
    parts += weather.in(text).toString();
  for (const Words& cloud : slice.values.clouds)
    parts += cloud.in(text).toString();
  return parts.join(u' ');
}

QStringList told(QStringView text, const std::vector<ForecastSlice>& slices) {
  QStringList lines;
  for (const ForecastSlice& slice : slices)
    lines += told(text, slice);
  return lines;
}

struct Case {
  QString text;
  QStringList slices;
  QStringList unread = {};
};

void expectTaf(const Case& c, const QDateTime& at = now) {
  const std::optional<Taf> taf = readTaf(c.text, at);
  ASSERT_TRUE(taf) << c.text.toStdString();
  EXPECT_EQ(told(c.text, taf->slices), c.slices) << c.text.toStdString();
  QStringList unread;
  for (const Words& words : taf->unread)
    unread += words.in(c.text).toString();
  EXPECT_EQ(unread, c.unread) << c.text.toStdString();
}

TEST(TafSlices, ChangesPutOneOverTheOther) {
  const Case cases[] = {
      {u"TAF RJTT 220505Z 2206/2312 16008KT 9999 FEW030"_s, {u"220600-231200 16008KT 9999 FEW030"_s}},
      {u"TAF RJTT 220505Z 2206/2312 16008KT 9999 FEW030 BECMG 2208/2210 3000 -RA BKN008"_s,
       {u"220600-221000 16008KT 9999 FEW030"_s, u"220800-221000 HALF 16008KT 3000 -RA BKN008"_s,
        u"221000-231200 16008KT 3000 -RA BKN008"_s}},
      {u"TAF RJTT 220505Z 2206/2312 16008KT 3000 RA BKN008 BECMG 2208/2209 20010KT BECMG 2208/2210 9999 NSW NSC"_s,
       {u"220600-220900 16008KT 3000 RA BKN008"_s, u"220800-220900 HALF 20010KT 3000 RA BKN008"_s,
        u"220800-221000 HALF 20010KT 9999 NSC"_s, u"220900-221000 20010KT 3000 RA BKN008"_s,
        u"221000-231200 20010KT 9999 NSC"_s}},
      {u"TAF RJTT 220505Z 2206/2312 16008KT 3000 RA BKN008 BECMG 2208/2210 CAVOK FM221130 VRB02KT 0800 FG VV001"_s,
       {u"220600-221000 16008KT 3000 RA BKN008"_s, u"220800-221000 HALF 16008KT CAVOK"_s,
        u"221000-221130 16008KT CAVOK"_s, u"221130-231200 FM VRB02KT 0800 FG VV001"_s}},
      {u"TAF RJTT 220505Z 2206/2312 16008KT 9999 SKC BECMG 2208/2212 BKN008 FM221000 20010KT 9999 NSC"_s,
       {u"220600-221000 16008KT 9999 SKC"_s, u"220800-221000 HALF 16008KT 9999 BKN008"_s,
        u"221000-231200 FM 20010KT 9999 NSC"_s}},
      {u"TAF RJTT 220505Z 2206/2312 16008KT 9999 FEW030 TEMPO 2208/2210 3000 TSRA PROB30 2209/2211 0800 FG "
       u"PROB40 TEMPO "
       "2212/2300 +TSRA BKN010CB"_s,
       {u"220600-231200 16008KT 9999 FEW030"_s, u"220800-221000 TEMPO 3000 TSRA"_s,
        u"220900-221100 PROB30 0800 FG"_s, u"221200-230000 PROBTEMPO40 +TSRA BKN010CB"_s}},
      // Two changes that come to their end at the same time, and one that has ended as the forecast begins.
      {u"TAF RJTT 220505Z 2206/2312 16008KT 9999 BECMG 2204/2206 3000 BECMG 2208/2210 BKN005 BECMG 2208/2210 RA"_s,
       {u"220400-220600 HALF 16008KT 3000"_s, u"220600-221000 16008KT 3000"_s,
        u"220800-221000 HALF 16008KT 3000 BKN005"_s, u"220800-221000 HALF 16008KT 3000 RA BKN005"_s,
        u"221000-231200 16008KT 3000 RA BKN005"_s}},
  };
  for (const Case& c : cases)
    expectTaf(c);
}

TEST(TafSlices, TemporaryByAnotherWordAndRemarks) {
  expectTaf({u"TAF YSSY 220505Z 2206/2312 16008KT 9999 FEW030 INTER 2208/2210 3000 TSRA RMK 0500 FG"_s,
             {u"220600-231200 16008KT 9999 FEW030"_s, u"220800-221000 TEMPO 3000 TSRA"_s}});
}

TEST(TafSlices, FormsOfTheSameForecast) {
  const QStringList slices{u"220600-231200 16008KT 9999 FEW030"_s, u"220800-221000 TEMPO 3000 TSRA"_s,
                           u"221000-231200 FM 20010KT CAVOK"_s};
  const QString forms[] = {
      u"2026/08/22 05:05\nTAF RJTT 220505Z 2206/2312 16008KT 9999 FEW030\n     TEMPO 2208/2210 3000 TSRA\n     FM221000 20010KT CAVOK\n"_s,
      u"TAF AMD RJTT 220505Z 2206/2312 16008KT\r\n  9999 FEW030\r\n\tTEMPO 2208/2210\r\n 3000 TSRA FM221000\r\n 20010KT CAVOK="_s,
      u"TAF TAF COR RJTT 220505Z COR 2206/2312 16008KT 9999 FEW030 TX31/2206Z TN22/2221Z TEMPO 2208/2210 "
      u"3000 TSRA FM221000 "
      "20010KT CAVOK TX31/2206Z COR 0528= TAF RJAA 220505Z 2206/2312 0100"_s,
      u"RJTT 220505Z 2206/2312 16008KT 9999 FEW030 520009 QNH2992INS TEMPO 2208/2210 3000 TSRA FM221000 "
      u"20010KT CAVOK "
      "LAST NO AMDS AFT 2214 NEXT 2221"_s,
  };
  for (const QString& text : forms) {
    QStringList expected = slices;
    if (text.contains(u"FM221000"))
      expected[0] = u"220600-221000 16008KT 9999 FEW030"_s;
    expectTaf({text, expected});
  }
}

TEST(TafSlices, DaysAreThoseOfTheMonthAtHand) {
  const struct {
    QDateTime now;
    QString validity, first, last;
    QString written = {};
  } cases[] = {
      {inUtc({2026, 8, 31}, {23, 30}), u"312305Z 0100/0206"_s, u"2026-09-01 00:00"_s, u"2026-09-02 06:00"_s},
      {inUtc({2026, 9, 1}, {0, 30}), u"312305Z 0100/0206"_s, u"2026-09-01 00:00"_s, u"2026-09-02 06:00"_s},
      {inUtc({2026, 12, 31}, {18, 0}), u"311705Z 3118/0124"_s, u"2026-12-31 18:00"_s, u"2027-01-02 00:00"_s},
      {inUtc({2028, 2, 28}, {18, 0}), u"281705Z 2818/2924"_s, u"2028-02-28 18:00"_s, u"2028-03-01 00:00"_s},
      {inUtc({2026, 3, 1}, {0, 0}), u"282305Z 2824/0106"_s, u"2026-03-01 00:00"_s, u"2026-03-01 06:00"_s},
      {inUtc({2026, 8, 22}, {1, 0}), u"220100Z 2121/2221"_s, u"2026-08-21 21:00"_s, u"2026-08-22 21:00"_s},
      // None is of a time to come, and a file tells when it was written.
      {inUtc({2026, 8, 22}, {1, 0}), u"231105Z 2312/2418"_s, u"2026-07-23 12:00"_s, u"2026-07-24 18:00"_s},
      {inUtc({2026, 8, 22}, {1, 0}), u"220100Z 2201/2307"_s, u"2025-06-22 01:00"_s, u"2025-06-23 07:00"_s,
       u"2025/06/22 01:00\n"_s},
  };
  for (const auto& c : cases) {
    const QString text = c.written + u"TAF RJTT " + c.validity + u" 16008KT";
    const std::optional<Taf> taf = readTaf(text, c.now);
    ASSERT_TRUE(taf) << c.validity.toStdString();
    EXPECT_EQ(taf->from.toString(u"yyyy-MM-dd HH:mm"_s), c.first);
    EXPECT_EQ(taf->to.toString(u"yyyy-MM-dd HH:mm"_s), c.last);
  }
}

TEST(TafSlices, WhatCannotBeReadIsTold) {
  EXPECT_FALSE(readTaf(u"TAF RJTT 220560Z 2206/2312 16008KT", now));
  const QString base = u"TAF RJTT 220505Z 2206/2312 16008KT 9999"_s;
  const QStringView parts[] = {
      u"BECMG 2210/2208 BKN005", u"BECMG 3000",         u"TEMPO 2408/2410 3000", u"TEMPO 2208/2210",
      u"TEMPO 2208/2210 XYZ",    u"FM222500 3000",      u"FM220500 3000",        u"PROB30",
      u"PROB30 TEMPO 22/23 RA",  u"BECMG 2299/2310 RA", u"TEMPO 2204/2206 3000", u"BECMG 2312/2314 3000",
      u"FM0800 0500 FG",         u"FM 240800 0500 FG",  u"PROB 30 2208/2210 FG", u"PROB30TEMPO 2208/2210 FG"};
  for (const QStringView part : parts)
    expectTaf({base + u' ' + part, {u"220600-231200 16008KT 9999"_s}, {part.toString()}});

  for (const QStringView text :
       {u"", u"TAF RJTT", u"TAF RJTT 220505Z", u"TAF RJTT 220505Z 16008KT", u"TAF RJTT 320505Z 2206/2312",
        u"TAF RJTT 220505Z 2206/2206 16008KT", u"TAF RJTT 220505Z 2206/3312 16008KT"})
    EXPECT_FALSE(readTaf(text, now)) << text.toUtf8().toStdString();
}

TEST(TafSlices, CancelledAndMissing) {
  const struct {
    QStringView text;
    Taf::State state;
    bool isAmended;
  } cases[] = {
      {u"TAF AMD RJTT 220605Z 2206/2312 CNL=", Taf::State::Cancelled, true},
      {u"TAF RJTT 220605Z NIL=", Taf::State::Missing, false},
      {u"TAF RJTT 220605Z 2206/2312 NIL", Taf::State::Missing, false},
  };
  for (const auto& c : cases) {
    const std::optional<Taf> taf = readTaf(c.text, now);
    ASSERT_TRUE(taf);
    EXPECT_EQ(taf->state, c.state);
    EXPECT_EQ(taf->isAmended, c.isAmended);
    EXPECT_TRUE(taf->slices.empty());
    EXPECT_EQ(taf->station->in(c.text), u"RJTT");
  }
}

TEST(MetarTrend, TwoHoursFromTheObservation) {
  const QString metar = u"RJTT 222330Z 16008KT 9999 FEW030 24/18 Q1012 "_s;
  const QString still = u"222330-230130 16008KT 9999 FEW030"_s;
  const Case cases[] = {
      {metar + u"NOSIG RMK 1CU030 BECMG 0100"_s, {still}},
      {metar + u"RMK 1CU030 A2990"_s, {}},
      {metar + u"TEMPO 3000 TSRA BECMG AT2400 20010KT="_s,
       {u"222330-230000 16008KT 9999 FEW030"_s, u"222330-230130 TEMPO 3000 TSRA"_s,
        u"230000-230130 20010KT 9999 FEW030"_s}},
      {metar + u"BECMG FM2345 TL0030 BKN005"_s,
       {u"222330-230030 16008KT 9999 FEW030"_s, u"222345-230030 HALF 16008KT 9999 BKN005"_s,
        u"230030-230130 16008KT 9999 BKN005"_s}},
      {metar + u"BECMG 20010KT"_s, {still, u"222330-230130 HALF 20010KT 9999 FEW030"_s}},
      {metar + u"TEMPO TL0000 -RA TEMPO FM0200 RA BECMG"_s,
       {still, u"222330-230000 TEMPO -RA"_s},
       {u"TEMPO FM0200 RA"_s, u"BECMG"_s}},
  };
  for (const Case& c : cases) {
    const std::optional<MetarReading> read = readMetar(c.text, inUtc({2026, 8, 23}, {0, 10}));
    ASSERT_TRUE(read);
    EXPECT_EQ(told(c.text, read->slices), c.slices) << c.text.toStdString();
    EXPECT_EQ(read->hasTrend, !c.slices.isEmpty());
    QStringList unread;
    for (const Words& words : read->unread)
      unread += words.in(c.text).toString();
    EXPECT_EQ(unread, c.unread) << c.text.toStdString();
    EXPECT_EQ(read->values.temperatures->air, 24);
  }
  EXPECT_FALSE(readMetar(u"RJTT 16008KT", now));
}

// What holds of every forecast of the samples: one prevailing slice at each time of the validity, no part
// left unread, and every word of a part where its figures are from.
TEST(TafSlices, CoverTheValidityOfEverySample) {
  int read = 0;
  for (const SampleReport& report : sampleReports()) {
    if (!report.isForecast)
      continue;
    const std::optional<Taf> taf = readTaf(report.text, report.issued.isValid() ? report.issued : now);
    ASSERT_TRUE(taf) << report.text.toStdString();
    if (report.issued.isValid()) {
      EXPECT_LE(std::abs(taf->issued.secsTo(report.issued)), 3600) << report.text.toStdString();
    }
    EXPECT_TRUE(taf->unread.empty()) << report.text.toStdString();
    QDateTime reached = taf->from;
    for (const ForecastSlice& slice : taf->slices) {
      EXPECT_LT(slice.from, slice.to);
      EXPECT_FALSE(slice.values.isEmpty());
      if (slice.kind != SliceKind::Prevailing && slice.kind != SliceKind::From)
        continue;
      EXPECT_EQ(slice.from, reached) << report.text.toStdString();
      EXPECT_TRUE(slice.values.wind && (slice.values.visibility || slice.values.cavok))
          << report.text.toStdString();
      reached = slice.to;
    }
    EXPECT_EQ(reached, taf->to) << report.text.toStdString();
    const auto changes =
        report.text.count(u"BECMG") + report.text.count(u"TEMPO") + report.text.count(u" FM");
    EXPECT_GE(qsizetype(taf->slices.size()), 1 + changes) << report.text.toStdString();
    ++read;
  }
  EXPECT_GT(read, qEnvironmentVariableIsSet("SORAN_REPORTS") ? -1 : 100);
}

} // namespace
