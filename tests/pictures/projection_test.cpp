// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "pictures/projection.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace soran;

namespace {

/// A view of 800 to 600 with the equator at 10 units a degree in its middle.
const Projection plain({0, 0}, 10, 800, 600);

void expectNear(const Point& point, const Point& other, double tolerance = 1e-6) {
  EXPECT_NEAR(point.x, other.x, tolerance);
  EXPECT_NEAR(point.y, other.y, tolerance);
}

} // namespace

TEST(Projection, PlacesPositionsAsMercatorDid) {
  // ln tan(45° + φ/2), in degrees: 30 is at 31.4730, 45 at 50.4990, 60 at 75.4561, 85 at 179.4104.
  struct {
    EarthPosition position;
    Point point;
  } const cases[] = {
      {{0, 0}, {400, 300}},         {{0, 35}, {750, 300}},        {{30, -20}, {200, -14.7296}},
      {{45, 0}, {400, -204.9897}},  {{-60, 0}, {400, 1054.5613}}, {{85, 0}, {400, -1494.1035}},
      {{90, 0}, {400, -1494.1035}}, {{0, 359}, {390, 300}},       {{0, 190}, {-1300, 300}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.position.latitude);
    expectNear(plain.toPlane(c.position), c.point, 1e-3);
  }
}

TEST(Projection, ComesBackFromThePlane) {
  for (const double centre : {0.0, 139.8, 179.9, -179.9}) {
    const Projection projection({35, centre}, 40, 1240, 680);
    for (double latitude = -84; latitude <= 84; latitude += 12) {
      for (double longitude = -180; longitude < 180; longitude += 15) {
        const EarthPosition back = projection.toEarth(projection.toPlane({latitude, longitude}));
        EXPECT_NEAR(back.latitude, latitude, 1e-9);
        EXPECT_NEAR(longitudeNear(back.longitude - longitude, 0), 0, 1e-9) << centre << ' ' << longitude;
      }
    }
  }
}

TEST(Projection, IsConformal) {
  constexpr double step = 1e-4;
  for (const double latitude : {-70.0, -35.0, 0.0, 35.0, 60.0}) {
    const Point here = plain.toPlane({latitude, 0});
    const double north = here.y - plain.toPlane({latitude + step, 0}).y;
    const double east = plain.toPlane({latitude, step}).x - here.x;
    EXPECT_NEAR(north * std::cos(latitude * M_PI / 180), east, 1e-5 * east) << latitude;
  }
}

TEST(Projection, HasNeighboursOnBothSidesOfTheDateLine) {
  const Projection fiji({-18, 179}, 20, 800, 600);
  expectNear(fiji.toPlane({-18, -179}), {440, 300});
  expectNear(fiji.toPlane({-18, 177}), {360, 300});
  const EarthPosition both[] = {{-17.75, 177.44}, {-14.33, -170.71}};
  const Projection around = Projection::around(both, 800, 600, 50);
  EXPECT_NEAR(around.centre().longitude, -176.635, 1e-6);
  expectNear(around.toPlane(both[0]), {50, around.toPlane(both[0]).y});
  expectNear(around.toPlane(both[1]), {750, around.toPlane(both[1]).y});
}

TEST(Projection, ShowsAllPositions) {
  struct {
    const char* what;
    std::vector<EarthPosition> positions;
  } const cases[] = {
      {"none", {}},
      {"one", {{35.5, 139.8}}},
      {"two", {{26.2, 127.6}, {42.8, 141.7}}},
      {"the world",
       {{51.5, -0.5}, {35.5, 139.8}, {40.6, -73.8}, {-33.9, 151.2}, {21.3, -157.9}, {-54.8, -68.3}}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    const Projection projection = Projection::around(c.positions, 900, 500, 60);
    for (const EarthPosition& position : c.positions) {
      const Point point = projection.toPlane(position);
      EXPECT_TRUE(point.x >= 59.9 && point.x <= 840.1) << point.x;
      EXPECT_TRUE(point.y >= 59.9 && point.y <= 440.1) << point.y;
    }
    EXPECT_LE(projection.unitsPerDegree(), 150);
  }
}

TEST(Projection, KeepsThePlaceUnderThePointer) {
  const Projection start({35, 179}, 30, 800, 600);
  for (const Point& pointer : {Point{10, 20}, Point{790, 580}, Point{400, 300}}) {
    const EarthPosition there = start.toEarth(pointer);
    expectNear(start.zoomed(3, pointer).toPlane(there), pointer);
    expectNear(start.zoomed(0.7, pointer).toPlane(there), pointer);
    expectNear(start.panned(25, -40).toPlane(there), {pointer.x + 25, pointer.y - 40});
  }
  // Never more than the earth, nor past the poles.
  EXPECT_DOUBLE_EQ(start.zoomed(0.001, start.middle()).unitsPerDegree(), 800.0 / 360);
  EXPECT_DOUBLE_EQ(start.zoomed(1e9, start.middle()).unitsPerDegree(), 4000);
  EXPECT_DOUBLE_EQ(start.panned(0, 1e9).centre().latitude, 80);
}
