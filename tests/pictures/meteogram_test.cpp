// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/utc.h"
#include "pictures/meteogram_drawing.h"
#include "support/printing.h"
#include "support/sample_reports.h"

#include <gtest/gtest.h>

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

const QDateTime now = inUtc({2026, 8, 22}, {6, 0});
const SettingsRecord settings = SettingsRecord::standard(u"9"_s);
const Limits limits = Limits::of(settings);

Drawing drawn(const Meteogram& meteogram) {
  return meteogramDrawing(meteogram, settings, 1000, 600);
}

/// The shapes of an element, as "kind value words".
QStringList shapesOf(const Drawing& drawing, const QString& element) {
  constexpr QStringView kinds[] = {u"line", u"dashed", u"area", u"hatched", u"dot", u"circle", u"text"};
  QStringList told;
  for (const Shape& shape : drawing.shapes) {
    if (shape.element == element)
      told += QString(kinds[size_t(shape.kind)] + u' ' + QString::number(shape.value) + u' ' + shape.words);
  }
  return told;
}

const QString taf = u"TAF RJTT 220505Z 2206/2312 16008G20KT 9999 FEW030 BECMG 2208/2210 3000 BKN008 "
                    u"TEMPO 2212/2215 0400 FG VV001"_s;

} // namespace

TEST(Meteogram, PutsReportsOfADayInOrder) {
  const QStringList metars = {u"RJTT 220530Z 16008KT CAVOK 30/20 Q1010"_s,
                              u"2026/08/22 05:00\nRJTT 220500Z 16008KT 9999 30/20 Q1010\n"_s,
                              u"RJTT 220530Z COR 16009KT CAVOK 30/20 Q1010"_s, u"RJTT 210530Z 16008KT 9999"_s,
                              u"no report"_s};
  const Meteogram meteogram = meteogramOf(StationCode(u"RJTT"_s), metars, taf, now, limits);
  QStringList times;
  for (const Observed& report : meteogram.observed)
    times += report.time.toString(u"ddHHmm"_s);
  EXPECT_EQ(times, (QStringList{u"220500"_s, u"220530"_s}));
  EXPECT_EQ(meteogram.observed.back().values.wind->speed->value, 9);
  EXPECT_EQ(meteogram.from, inUtc({2026, 8, 22}, {5, 0}));
  EXPECT_EQ(meteogram.to, inUtc({2026, 8, 23}, {12, 0}));
  // Sunset at 1823 and sunrise at 0506 in Japan.
  ASSERT_EQ(meteogram.nights.size(), 2U);
  EXPECT_EQ(meteogram.nights[0].from.toString(u"ddHHmm"_s), u"220923");
  EXPECT_EQ(meteogram.nights[0].to.toString(u"ddHHmm"_s), u"222006");
  EXPECT_TRUE(
      meteogramOf(StationCode(u"KJFK"_s), {}, u"TAF RJTT 220505Z 2206/2312 CNL"_s, now, limits).taf.empty());
}

TEST(Meteogram, TellsWhyNothingIsForecastAndThatACeilingIsNotKnown) {
  const std::pair<QString, QString> cases[] = {
      {taf, QString()},
      {QString(), u"NO TAF"_s},
      {u"TAF RJTT 220505Z 2206/2312 NIL"_s, u"TAF NIL"_s},
      {u"TAF RJTT 220505Z 2206/2312 CNL"_s, u"TAF CNL"_s},
      {u"TAF RJTT 212305Z 2200/2206 16008KT 9999"_s, u"TAF EXPIRED"_s},
      {u"TAF RJTT"_s, u"TAF NOT READ"_s},
  };
  const QStringList metars = {u"RJTT 220530Z 16008KT 9999 FEW020 BKN/// 30/20 Q1010"_s};
  for (const auto& [text, note] : cases) {
    const Meteogram meteogram = meteogramOf(StationCode(u"RJTT"_s), metars, text, now, limits);
    EXPECT_EQ(meteogram.tafNote, note) << text.toStdString();
    EXPECT_TRUE(meteogramText(meteogram, settings).contains(u"BKN///"));
    EXPECT_EQ(shapesOf(drawn(meteogram), u"CIG"_s).filter(u"dot"_s), QStringList());
  }
}

TEST(Meteogram, TheLowestCeilingOfAPartIsSeen) {
  const QString lowest = u"TAF RJTT 220505Z 2206/2312 16008KT 9999 TEMPO 2212/2215 0050 FG VV000"_s;
  int hatched = 0;
  for (const Shape& shape : drawn(meteogramOf(StationCode(u"RJTT"_s), {}, lowest, now, limits)).shapes) {
    if (shape.kind == ShapeKind::Hatched) {
      ++hatched;
      EXPECT_GE(shape.points.back().y - shape.points.front().y, 4) << shape.element.toStdString();
    }
  }
  EXPECT_EQ(hatched, 2);
}

TEST(Meteogram, TheGravestKeepsItsPlace) {
  QStringList metars;
  for (int i = 0; i < 48; ++i) {
    const QString time = now.addSecs(-1800LL * (i + 1)).toString(u"ddHHmm"_s) + u'Z';
    const bool isWorst = i == 17;
    metars += u"RJTT "_s + time + (isWorst ? u" 09065G95KT 1000 VCTS +TSRAGR" : u" 16008KT 4000 BR") +
              u" BKN010 30/20 Q1010";
  }
  const Drawing drawing = drawn(meteogramOf(StationCode(u"RJTT"_s), metars, taf, now, limits));
  EXPECT_FALSE(shapesOf(drawing, u"WX"_s).filter(u"+TSRAGR"_s).isEmpty());
  EXPECT_FALSE(shapesOf(drawing, u"BARB"_s).filter(u"09065G95KT"_s).isEmpty());
}

TEST(Meteogram, DrawsWhatIsForecast) {
  const Drawing drawing = drawn(meteogramOf(StationCode(u"RJTT"_s), {}, taf, now, limits));
  EXPECT_EQ(shapesOf(drawing, u"VIS"_s), (QStringList{u"line 9999 9999"_s, u"dashed 3000 3000"_s,
                                                      u"line 3000 3000"_s, u"hatched 400 0400"_s}));
  EXPECT_EQ(shapesOf(drawing, u"CIG"_s),
            (QStringList{u"dashed 800 BKN008"_s, u"line 800 BKN008"_s, u"hatched 100 VV001"_s}));
  EXPECT_EQ(shapesOf(drawing, u"GUST"_s).first(), u"line 20 16008G20KT");
  EXPECT_TRUE(shapesOf(drawing, u"QNH"_s).isEmpty());
  EXPECT_EQ(shapesOf(drawing, u"LIMIT"_s).size(), 6);
}

TEST(Meteogram, MissingElementsAndReportsLeaveGaps) {
  const QStringList metars = {
      u"RJTT 220100Z 16008KT 9999 30/20 Q1010"_s, u"RJTT 220130Z 16008KT //// 30/20 Q1010"_s,
      u"RJTT 220200Z 16008KT 5000 30/20 Q1010"_s, u"RJTT 220500Z 16008KT 6000 30/20 Q1010"_s,
      u"RJTT 220530Z 16008KT 7000 ///// Q////"_s};
  const Drawing drawing = drawn(meteogramOf(StationCode(u"RJTT"_s), metars, {}, now, limits));
  EXPECT_EQ(shapesOf(drawing, u"VIS"_s),
            (QStringList{u"dot 9999 9999"_s, u"dot 5000 5000"_s, u"dot 6000 6000"_s, u"dot 7000 7000"_s}));
  std::vector<size_t> lines;
  for (const Shape& shape : drawing.shapes) {
    if (shape.kind == ShapeKind::Line && shape.ink == Ink::Visibility)
      lines.push_back(shape.points.size());
  }
  EXPECT_EQ(lines, (std::vector<size_t>{1, 1, 2}));
  EXPECT_EQ(shapesOf(drawing, u"QNH"_s).size(), 4);
  EXPECT_EQ(meteogramText(meteogramOf(StationCode(u"RJTT"_s), {}, {}, now, limits), settings),
            u"NO REPORT\r\n");
}

// Every value of every sample stands in the picture as the readers of the reports give it, and no other.
TEST(Meteogram, DrawsTheValuesOfEverySample) {
  size_t values = 0;
  for (const auto& [text, isForecast, issued] : sampleReports()) {
    const std::optional<MetarReading> metar = readMetar(text, now);
    if (isForecast || !metar)
      continue;
    const Meteogram meteogram = meteogramOf(StationCode(u"RJTT"_s), {text}, {}, metar->observed, limits);
    const ElementValues& read = metar->values;
    const Ceiling* ceiling = read.ceiling();
    const std::pair<QString, std::optional<double>> expected[] = {
        {u"VIS"_s, read.cavok        ? 9999
                   : read.visibility ? std::optional(double(read.visibility->metres))
                                     : std::nullopt},
        {u"CIG"_s, ceiling ? std::optional(double(ceiling->feet)) : std::nullopt},
        {u"QNH"_s, read.pressure ? std::optional(read.pressure->hectopascals) : std::nullopt}};
    const Drawing drawing = drawn(meteogram);
    for (const auto& [element, value] : expected) {
      const QStringList shapes = shapesOf(drawing, element);
      ASSERT_EQ(shapes.size(), value ? 1 : 0) << text.toStdString();
      if (!value)
        continue;
      EXPECT_EQ(shapes[0].section(u' ', 1, 1), QString::number(*value));
      ++values;
    }
  }
  EXPECT_GT(values, 1000U);
}
