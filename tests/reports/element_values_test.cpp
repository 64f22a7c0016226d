// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/element_values.h"

#include "support/printing.h"

#include <QStringList>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace soran;

namespace {

ElementValues valuesOf(QStringView text) {
  return readElements(text, observationIn(text));
}

/// The values as a line: what is missing does not stand in it.
QString told(QStringView text, const ElementValues& values) {
  QStringList parts;
  const auto bound = [](Bound b) { return b == Bound::Exact ? u""_s : b == Bound::Below ? u"<"_s : u">"_s; };
  const auto speed = [&](const Speed& s) -> QString { return bound(s.bound) + QString::number(s.value); };
  if (const auto& wind = values.wind) {
    QString line = wind->isVariable ? u"VRB"_s : wind->direction ? QString::number(*wind->direction) : u"?"_s;
    line += u'/' + (wind->speed ? speed(*wind->speed) : u"?"_s);
    if (wind->gust)
      line += u'G' + speed(*wind->gust);
    parts += line + (wind->unit == SpeedUnit::Knots             ? u""_s
                     : wind->unit == SpeedUnit::MetresPerSecond ? u"m"_s
                                                                : u"k"_s);
  }
  if (values.sector)
    parts += QString::number(values.sector->from) + u'V' + QString::number(values.sector->to);
  if (values.cavok)
    parts += u"cavok"_s;
  if (values.visibility)
    parts += u"vis "_s + bound(values.visibility->bound) + QString::number(values.visibility->metres);
  if (const RunwayRange* range = values.leastRunwayRange())
    parts += range->runway.in(text) + u' ' + bound(range->bound) + QString::number(range->metres) +
             (range->tendency.isNull() ? QString() : QString(range->tendency));
  for (const Words& weather : values.weather)
    parts += weather.in(text).toString();
  if (values.noWeather)
    parts += u"nsw"_s;
  if (const Ceiling* ceiling = values.ceiling())
    parts += u"ceil "_s + (ceiling->isHeightMissing ? u"?"_s : QString::number(ceiling->feet));
  if (values.temperatures) {
    const auto degrees = [](std::optional<int> t) { return t ? QString::number(*t) : u"?"_s; };
    parts += degrees(values.temperatures->air) + u'|' + degrees(values.temperatures->dewPoint);
  }
  if (values.pressure)
    parts += u'Q' + QString::number(values.pressure->hectopascals, 'f', 1);
  return parts.join(u", ");
}

TEST(ElementValues, ReadsEachElementOfAnObservation) {
  const struct {
    QStringView text, values;
  } cases[] = {
      {u"RJTT 220630Z COR 34012G24KT 310V010 9999 -SHRA FEW015 BKN025 OVC040 24/M01 Q1008 NOSIG RMK 5CU010 "
       u"A2979",
       u"340/12G24, 310V10, vis 9999, -SHRA, ceil 2500, 24|-1, Q1008.0"},
      {u"2026/11/24 05:00\nRJAA 220700Z AUTO 00000KT 0150 R34L/M0050V0600U R34R/0450N FG VV001 12/ Q1019=",
       u"0/0, vis 150, 34L <50U, FG, ceil 100, 12|?, Q1019.0"},
      {u"RJSS 220642Z VRB02KT CAVOK M00/M05 Q0998 BECMG 3000", u"VRB/2, cavok, 0|-5, Q998.0"},
      {u"RJTT 220630Z /////KT //// // ////// ///// Q////", u""},
      {u"RJTT 220630Z ///05KT 9999NDV NCD XX/10", u"?/5, vis 9999, ?|10"},
      {u"RJTT 220630Z AUTO 160P99G//KT 0000 VV///", u"160/>99, vis 0, ceil ?"},
      {u"UUEE 220630Z 16004MPS 4000 2000 1200NE BKN007CB BKN/// OVC010/// 10/08",
       u"160/4m, vis 2000, ceil 700, 10|8"},
      {u"RJTY 220656Z 16009KT 1 1/2SM BR BKN002 A2992 RMK AO2", u"160/9, vis 2414, BR, ceil 200, Q1013.2"},
      {u"RJTY 220656Z 16009KMH M1/4SM FZFG 1/0SM", u"160/9k, vis <402, FZFG"},
      {u"RJOI 220556Z 16009KT 10SM R20/5500VP6000FT RETS WS R20 +TSRAGR VCSH 33/24 A2989 Q1012",
       u"160/9, vis 16093, 20 1676, +TSRAGR, VCSH, 33|24, Q1012.0"},
      // What is to come in another country's form, and another report, are no part of it.
      {u"YSSY 220630Z 33015KT 9999 -UP 25/12 Q1013 FM0700 18020G40KT 0500 FG BKN001",
       u"330/15, vis 9999, -UP, 25|12, Q1013.0"},
      {u"YSSY 220630Z 33015KT 9999 INTER 0630/0730 0500 FG", u"330/15, vis 9999"},
      {u"RJTT 220630Z 33015KT 9999\nRJAA 220630Z 18005KT 0300 FG", u"330/15, vis 9999"},
      {u"RJTT NIL", u""},
      {u"", u""},
  };
  for (const auto& [text, values] : cases)
    EXPECT_EQ(told(text, valuesOf(text)), values) << text.toUtf8().toStdString();
}

TEST(ElementValues, NotesBehindAForecastAreNoElements) {
  const QStringView notes[] = {u"COR 0528",
                               u"LAST NO AMDS AFT 2214 NEXT 2221",
                               u"TX30/2205 TN2/2204 1000",
                               u"TXM05/2205Z 1000",
                               u"RTD 0120",
                               u"RMK 0300 FG",
                               u"RJAA 220630Z 0300 FG",
                               u"= 0300"};
  for (const QStringView note : notes) {
    const QString text = u"16008KT 9999 BKN020 "_s + note;
    EXPECT_EQ(told(text, readElements(text, {0, text.size()})), u"160/8, vis 9999, ceil 2000");
  }
}

TEST(ElementValues, AChangeReplacesWhatItTells) {
  const struct {
    QStringView earlier, later, merged;
  } cases[] = {
      {u"16008KT 3000 RA BKN005", u"20010G20KT", u"200/10G20, vis 3000, RA, ceil 500"},
      {u"16008KT 150V200 3000", u"20010KT", u"200/10, vis 3000"},
      {u"16008KT 3000 RA BKN005", u"9999 NSW", u"160/8, vis 9999, nsw, ceil 500"},
      {u"16008KT 3000 RA BKN005 QNH2992INS", u"CAVOK", u"160/8, cavok, Q1013.2"},
      {u"16008KT CAVOK", u"4000 BR", u"160/8, vis 4000, BR"},
      {u"CAVOK", u"20010KT NSW", u"200/10, cavok, nsw"},
      // What else a CAVOK said still holds.
      {u"16008KT CAVOK", u"BKN010", u"160/8, vis >9999, ceil 1000"},
      {u"CAVOK", u"-RA", u"vis >9999, -RA"},
      {u"3000 RA VV001", u"NSC", u"vis 3000, RA"},
      {u"3000 NSW BKN005", u"-RA FEW010", u"vis 3000, -RA"},
  };
  for (const auto& c : cases) {
    const QString text = c.earlier + u'\n' + c.later;
    const auto earlier = readElements(text, {0, c.earlier.size()});
    const auto later = readElements(text, {c.earlier.size(), 1 + c.later.size()});
    EXPECT_EQ(told(text, mergedOver(earlier, later)), c.merged) << c.later.toUtf8().toStdString();
  }
}

TEST(ElementValues, SpeedsInKnots) {
  EXPECT_NEAR(inKnots({10}, SpeedUnit::MetresPerSecond), 19.44, 0.01);
  EXPECT_NEAR(inKnots({10}, SpeedUnit::KilometresPerHour), 5.40, 0.01);
  EXPECT_EQ(inKnots({10}, SpeedUnit::Knots), 10);
}

} // namespace
