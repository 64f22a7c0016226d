// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "pictures/station_plot.h"

#include "base/text.h"
#include "base/utc.h"
#include "desk/verdict.h"
#include "pictures/weather_symbol.h"
#include "support/sample_reports.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

const QDateTime boardTime = inUtc(QDate(2026, 11, 24), QTime(5, 12));

BoardRow rowOf(const QString& metar) {
  const BoardReports reports{.metar = metar, .time = boardTime.addSecs(-720)};
  return boardRow(StationCode(u"RJTT"_s), reports, Limits::of(SettingsRecord::standard(u"9"_s)), boardTime);
}

std::vector<Shape> plotOf(const QString& weather) {
  return stationPlot(rowOf(u"RJTT 240500Z "_s + weather), {}, 10, false);
}

const Shape* find(const std::vector<Shape>& shapes, QStringView element) {
  const auto found = std::ranges::find(shapes, element, &Shape::element);
  return found == shapes.end() ? nullptr : &*found;
}

QString textOf(const std::vector<Shape>& shapes, QStringView element) {
  const Shape* shape = find(shapes, element);
  return shape ? shape->text : u"-"_s;
}

/// The value that the shape of an element must have, from the row; nothing where there must be none.
std::optional<double> valueOf(const BoardRow& row, QStringView element) {
  const ElementValues& v = row.values;
  if (element == u"AIR" && v.temperatures && v.temperatures->air)
    return *v.temperatures->air;
  if (element == u"DEWPOINT" && v.temperatures && v.temperatures->dewPoint)
    return *v.temperatures->dewPoint;
  if (element == u"QNH" && v.pressure)
    return v.pressure->hectopascals;
  if (element == u"CIG" && v.ceiling())
    return v.ceiling()->feet;
  if (element == u"VIS" && (v.visibility || v.cavok))
    return v.visibility ? v.visibility->metres : 9999;
  const bool isArrow = v.wind && v.wind->speed && (v.wind->direction || v.wind->speed->value == 0);
  if (element == u"WIND" && isArrow && !v.wind->isVariable)
    return inKnots(*v.wind->speed, v.wind->unit);
  return std::nullopt;
}

} // namespace

TEST(StationPlot, HasEachFigureInItsPlace) {
  const std::vector<Shape> plot = plotOf(u"33015KT 0300 -SHRA BR FEW002 BKN005 08/M01 Q1008 NOSIG"_s);
  struct {
    QStringView element;
    QString text;
    double value;
    int right, down; // the sides of the circle that it lies on
  } const cases[] = {
      {u"AIR", u"8"_s, 8, -1, -1},     {u"DEWPOINT", u"-1"_s, -1, -1, 1}, {u"VIS", u"0300"_s, 300, -1, 1},
      {u"QNH", u"080"_s, 1008, 1, -1}, {u"CIG", u"BKN005"_s, 500, 1, 1},  {u"CODE", u"RJTT"_s, 3, 0, 1},
      {u"STATE", u"L3"_s, 3, 1, 1},
  };
  const auto side = [](double value) { return value < 0 ? -1 : value > 0 ? 1 : 0; };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.element.toString().toStdString());
    const Shape* shape = find(plot, c.element);
    ASSERT_TRUE(shape);
    EXPECT_EQ(shape->text, c.text);
    EXPECT_DOUBLE_EQ(shape->value, c.value);
    EXPECT_EQ(side(shape->points[0].x), c.right);
    EXPECT_EQ(side(shape->points[0].y), c.down);
  }
  EXPECT_EQ(find(plot, u"CODE")->ink, Ink::Limit3);
  std::set<QString> weather;
  for (const Shape& shape : plot) {
    if (shape.element == u"WX")
      weather.insert(shape.words);
  }
  EXPECT_EQ(weather, (std::set{u"-SHRA"_s, u"BR"_s}));
}

TEST(StationPlot, WritesPressuresAsChartsDo) {
  const std::pair<QString, QString> cases[] = {
      {u"Q1008"_s, u"080"_s}, {u"Q0995"_s, u"950"_s}, {u"Q1000"_s, u"000"_s},
      {u"A2992"_s, u"132"_s}, {u"A3000"_s, u"159"_s}, {u"Q////"_s, u"-"_s},
  };
  for (const auto& [group, text] : cases)
    EXPECT_EQ(textOf(plotOf(u"33015KT 9999 FEW030 10/05 "_s + group), u"QNH"), text) << group.toStdString();
}

TEST(StationPlot, FillsTheCircleByTheCloud) {
  const std::tuple<QString, std::optional<int>> cases[] = {
      {u"9999 FEW030"_s, 2},
      {u"9999 FEW030 SCT040"_s, 4},
      {u"9999 BKN030 FEW010"_s, 6},
      {u"9999 FEW010 BKN030 OVC040"_s, 8},
      {u"0200 FG VV001"_s, 9},
      {u"9999 SKC"_s, 0},
      {u"9999 NSC"_s, 0},
      {u"9999 NCD"_s, 0},
      {u"CAVOK"_s, 0},
      {u"9999"_s, std::nullopt},
      {u"9999 //////"_s, std::nullopt},
  };
  for (const auto& [sky, eighths] : cases) {
    SCOPED_TRACE(sky.toStdString());
    const std::vector<Shape> plot = plotOf(u"00000KT "_s + sky + u" 10/05 Q1010");
    const Shape* shape = find(plot, u"CLOUD");
    EXPECT_EQ(shape ? std::optional<int>(int(shape->value)) : std::nullopt, eighths);
    const auto area = std::ranges::find(plot, ShapeKind::Area, &Shape::kind);
    const bool isFilled = eighths.value_or(0) > 0 && eighths != 9;
    ASSERT_EQ(area != plot.end(), isFilled);
    if (!isFilled)
      continue;
    // The share of the disc that the polygon covers.
    double twice = 0;
    for (size_t i = 0; i < area->points.size(); ++i) {
      const Point& a = area->points[i];
      const Point& b = area->points[(i + 1) % area->points.size()];
      twice += a.x * b.y - a.y * b.x;
    }
    EXPECT_NEAR(twice / 2 / (M_PI * shape->size * shape->size), *eighths / 8.0, 0.03);
  }
}

TEST(StationPlot, SaysWhatTheReportsSay) {
  int figures = 0;
  for (const SampleReport& report : sampleReports()) {
    if (report.isForecast)
      continue;
    SCOPED_TRACE(report.text.toStdString());
    const BoardRow row = rowOf(report.text);
    const std::vector<Shape> plot = stationPlot(row, {100, 100}, 10, false);
    for (const QStringView element : {u"AIR", u"DEWPOINT", u"QNH", u"CIG", u"VIS", u"WIND"}) {
      const Shape* shape = find(plot, element);
      const std::optional<double> value = valueOf(row, element);
      ASSERT_EQ(shape != nullptr, value.has_value()) << element.toString().toStdString();
      if (!shape)
        continue;
      ++figures;
      EXPECT_DOUBLE_EQ(shape->value, *value) << element.toString().toStdString();
      EXPECT_TRUE(report.text.contains(shape->words)) << shape->words.toStdString();
    }
    EXPECT_EQ(textOf(plot, u"STATE"), stateWord(row));
    // All letters lie in the room that is kept for them.
    const Box box = plotBox(row, 10).movedTo({100, 100});
    for (const Shape& shape : plot) {
      if (shape.kind != ShapeKind::Text)
        continue;
      const double width = 5.0 * displayWidth(shape.text);
      const double left = shape.points[0].x - (shape.place == TextPlace::Left     ? 0
                                               : shape.place == TextPlace::Centre ? width / 2
                                                                                  : width);
      EXPECT_TRUE(left >= box.left - 1e-9 && left + width <= box.right + 1e-9) << shape.text.toStdString();
      EXPECT_TRUE(shape.points[0].y - 5 >= box.top && shape.points[0].y + 5 <= box.bottom);
    }
  }
  EXPECT_GT(figures, 500);
}

TEST(StationPlot, HasNoShapeForWhatIsMissing) {
  const std::pair<QString, QStringList> cases[] = {
      {u""_s, {u"CODE"_s, u"STATE"_s}},
      {u"RJTT 240500Z /////KT //// ////// ///// Q////"_s, {u"CODE"_s, u"STATE"_s}},
      {u"RJTT 240500Z VRB02KT 9999 FEW030"_s, {u"CLOUD"_s, u"CODE"_s, u"STATE"_s, u"VIS"_s}},
      {u"RJTT 240500Z 36010KT 10/// Q1010"_s, {u"AIR"_s, u"CODE"_s, u"QNH"_s, u"STATE"_s, u"WIND"_s}},
  };
  for (const auto& [metar, elements] : cases) {
    std::set<QString> found;
    for (const Shape& shape : stationPlot(rowOf(metar), {}, 10, false)) {
      if (!shape.element.isEmpty())
        found.insert(shape.element);
    }
    EXPECT_EQ(QStringList(found.begin(), found.end()), elements) << metar.toStdString();
  }
}
