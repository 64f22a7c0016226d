// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "pictures/weather_symbol.h"
#include "pictures/wind_barb.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace soran;

namespace {

Wind wind(int direction, int knots) {
  return {.direction = direction, .speed = Speed{knots}};
}

/// Half and whole feathers and pennants, by their lengths.
std::array<int, 3> feathersOf(const std::vector<Shape>& shapes) {
  std::array<int, 3> count{};
  for (size_t i = 1; i < shapes.size(); ++i) {
    const std::vector<Point>& points = shapes[i].points;
    const double length = std::hypot(points[1].x - points[0].x, points[1].y - points[0].y);
    ++count[shapes[i].kind == ShapeKind::Area ? 2 : length > 30 ? 1 : 0];
  }
  return count;
}

} // namespace

TEST(WindBarb, HasTheFeathersOfItsSpeed) {
  const std::pair<int, std::array<int, 3>> cases[] = {
      {1, {0, 0, 0}},  {3, {1, 0, 0}},  {7, {1, 0, 0}},  {8, {0, 1, 0}},   {15, {1, 1, 0}},
      {47, {1, 4, 0}}, {48, {0, 0, 1}}, {65, {1, 1, 1}}, {105, {1, 0, 2}},
  };
  for (const auto& [knots, feathers] : cases)
    EXPECT_EQ(feathersOf(windBarb(wind(270, knots), {0, 0}, 100)), feathers) << knots;
  EXPECT_EQ(feathersOf(windBarb({.direction = 90, .speed = Speed{10}, .unit = SpeedUnit::MetresPerSecond},
                                {0, 0}, 100)),
            (std::array{0, 2, 0}));
}

TEST(WindBarb, PointsToWhereTheWindComesFrom) {
  struct {
    int direction;
    bool southern;
    Point end, side;
  } const cases[] = {
      {360, false, {0, -1}, {1, 0}},  {90, false, {1, 0}, {0, 1}},   {180, false, {0, 1}, {-1, 0}},
      {270, false, {-1, 0}, {0, -1}}, {360, true, {0, -1}, {-1, 0}},
  };
  for (const auto& c : cases) {
    const std::vector<Shape> shapes = windBarb(wind(c.direction, 10), {5, 5}, 100, c.southern);
    ASSERT_EQ(shapes.size(), 2U);
    EXPECT_NEAR(shapes[0].points[1].x, 5 + 100 * c.end.x, 1e-9);
    EXPECT_NEAR(shapes[0].points[1].y, 5 + 100 * c.end.y, 1e-9);
    const Point from = shapes[1].points[0];
    const Point to = shapes[1].points[1];
    EXPECT_GT((to.x - from.x) * c.side.x + (to.y - from.y) * c.side.y, 30) << c.direction;
  }
  EXPECT_EQ(windBarb(wind(0, 0), {0, 0}, 100).at(0).kind, ShapeKind::Circle);
  EXPECT_TRUE(windBarb({.isVariable = true, .speed = Speed{3}}, {0, 0}, 100).empty());
}

TEST(WeatherSymbol, TheGraverGoesFirst) {
  const QStringView order[] = {u"+FC", u"TSGR", u"+TSRA", u"TSRA", u"FZRA", u"SN",
                               u"FG",  u"SHRA", u"-RA",   u"BR",   u"VCTS"};
  for (size_t i = 1; i < std::size(order); ++i)
    EXPECT_GT(weatherRank(order[i - 1]), weatherRank(order[i])) << order[i].toString().toStdString();
}

TEST(WeatherSymbol, CountsTheMarks) {
  const auto count = [](QStringView group, ShapeKind kind) {
    const std::vector<Shape> shapes = weatherSymbol(group, {0, 0}, 20);
    return std::ranges::count(shapes, kind, &Shape::kind);
  };
  const std::tuple<QStringView, int, int> cases[] = {
      {u"-RA", 2, 0},  {u"RA", 3, 0},    {u"+RA", 4, 0},    {u"-SHRA", 1, 1}, {u"+SHRA", 2, 1},
      {u"-SN", 0, 6},  {u"TSRA", 1, 2},  {u"+TSGR", 0, 4},  {u"FG", 0, 3},    {u"BCFG", 0, 4},
      {u"BR", 0, 2},   {u"FZRA", 3, 1},  {u"HZ", 0, 1},     {u"RASN", 1, 6},  {u"NSW", 0, 0},
      {u"", 0, 0},     {u"VCTS", 0, 4},  {u"VCFG", 0, 5},   {u"TSSN", 0, 5},  {u"TSGS", 0, 3},
      {u"BLSN", 0, 4}, {u"-SNRA", 1, 3}, {u"SHRASN", 1, 4}, {u"PO", 0, 1},    {u"SA", 0, 1},
      {u"BLSA", 0, 2}, {u"+SS", 0, 4},   {u"TSRAGR", 0, 4}, // no rain where hail falls
  };
  for (const auto& [group, dots, lines] : cases) {
    EXPECT_EQ(count(group, ShapeKind::Dot), dots) << group.toString().toStdString();
    EXPECT_EQ(count(group, ShapeKind::Line), lines) << group.toString().toStdString();
  }
}
