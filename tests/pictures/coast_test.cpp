// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "pictures/coast.h"

#include "delivered.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

QByteArray shores() {
  return delivered::file(u"coast.bin"_s);
}

/// The least distance of a shore from a position, in degrees.
double distanceTo(const Coast::Lines& lines, EarthPosition position) {
  double least = 360;
  for (const Coast::Line& line : lines) {
    for (const Coast::Vertex& point : line.points)
      least = std::min(least,
                       std::hypot(point.latitude - position.latitude, point.longitude - position.longitude));
  }
  return least;
}

/// The longest piece of a shore without a corner, in degrees.
double longestPiece(const Coast::Lines& lines) {
  double longest = 0;
  for (const Coast::Line& line : lines) {
    for (size_t i = 1; i < line.points.size(); ++i)
      longest =
          std::max(longest, std::hypot(double(line.points[i].latitude) - line.points[i - 1].latitude,
                                       double(line.points[i].longitude) - line.points[i - 1].longitude));
  }
  return longest;
}

} // namespace

TEST(Coast, HasTheShoresWhereTheyLie) {
  const std::optional<Coast> coast = Coast::read(shores());
  ASSERT_TRUE(coast);
  struct {
    const char* what;
    const Coast::Lines& lines;
    EarthPosition position;
    double tolerance;
  } const cases[] = {
      {"Cape Irozaki", coast->fine(), {34.602, 138.846}, 0.05},
      {"Cape Soya", coast->fine(), {45.523, 141.937}, 0.05},
      {"Cape Inubo", coast->coarse(), {35.708, 140.869}, 0.15},
      {"Land's End", coast->world(), {50.066, -5.715}, 0.2},
      {"Cape Agulhas", coast->world(), {-34.833, 20.0}, 0.3},
      {"Cape Dezhnev", coast->world(), {66.08, -169.65}, 0.3},
  };
  for (const auto& c : cases)
    EXPECT_LT(distanceTo(c.lines, c.position), c.tolerance) << c.what;
  // The edge of the sheet is no shore.
  EXPECT_LT(longestPiece(coast->world()), 15);
  EXPECT_LT(longestPiece(coast->fine()), 2);
}

TEST(Coast, RefusesAFileThatIsDamaged) {
  const QByteArray file = shores();
  EXPECT_FALSE(Coast::read({}));
  EXPECT_FALSE(Coast::read(QByteArray(file + "x")));
  EXPECT_FALSE(Coast::read(QByteArray("COAST2" + file.sliced(6))));
  for (qsizetype length = 0; length < file.size(); length += 997)
    EXPECT_FALSE(Coast::read(file.first(length))) << length;
  // Any byte may be another one: what is read then still lies on the earth.
  for (qsizetype at = 6; at < file.size(); at += 1499) {
    QByteArray damaged = file;
    damaged[at] = char(~damaged[at]);
    const std::optional<Coast> coast = Coast::read(damaged);
    for (const Coast::Line& line : coast ? coast->fine() : Coast::Lines())
      EXPECT_TRUE(line.least.latitude >= -90 && line.most.longitude <= 180);
  }
}

TEST(Coast, DrawsWhatLiesInTheView) {
  const std::optional<Coast> coast = Coast::read(shores());
  ASSERT_TRUE(coast);
  struct {
    const char* what;
    Projection projection;
    size_t least, most;
  } const cases[] = {
      {"Japan", {{35, 138}, 40, 800, 600}, 10, 2000},
      {"the Pacific", {{5, -140}, 40, 400, 300}, 0, 0},
      {"Fiji, over the date line", {{-17, 179.9}, 40, 400, 300}, 2, 40},
      {"the world", {{0, 180}, 3, 1080, 600}, 300, 3000},
  };
  for (const auto& c : cases) {
    const Drawing drawing = coast->draw(c.projection);
    EXPECT_GE(drawing.shapes.size(), c.least) << c.what;
    EXPECT_LE(drawing.shapes.size(), c.most) << c.what;
    bool left = false;
    bool right = false;
    for (const Shape& shape : drawing.shapes) {
      for (const Point& point : shape.points) {
        left = left || (point.x >= 0 && point.x < c.projection.width() / 2);
        right = right || (point.x > c.projection.width() / 2 && point.x < c.projection.width());
      }
    }
    EXPECT_EQ(left && right, c.least > 0) << c.what;
  }
}
