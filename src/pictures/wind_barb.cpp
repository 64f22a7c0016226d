// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "pictures/wind_barb.h"

#include <cmath>
#include <numbers>

namespace soran {

namespace {

/// Shaft and feathers in the shaft's own directions.
class Barb {
 public:
  Barb(Point at, int direction, double length, bool southern) : at_(at), length_(length) {
    const double angle = direction * std::numbers::pi / 180;
    along_ = {std::sin(angle), -std::cos(angle)};
    across_ = southern ? Point{along_.y, -along_.x} : Point{-along_.y, along_.x};
  }

  std::vector<Shape> draw(int fives);

 private:
  /// A point so far along the shaft from the station and to the side of the feathers, as shares of the
  /// length.
  Point at(double along, double across) const {
    return {at_.x + length_ * (along * along_.x + across * across_.x),
            at_.y + length_ * (along * along_.y + across * across_.y)};
  }
  void add(ShapeKind kind, std::vector<Point> points) {
    shapes_.push_back({.kind = kind, .ink = Ink::Wind, .points = std::move(points), .size = 1.2});
  }

  static constexpr double step = 0.14;    // between two feathers
  static constexpr double feather = 0.42; // the length of a whole one
  static constexpr double slant = 0.14;   // by which its end lies farther out

  Point at_;
  double length_;
  Point along_;
  Point across_;
  std::vector<Shape> shapes_;
};

std::vector<Shape> Barb::draw(int fives) {
  add(ShapeKind::Line, {at_, at(1, 0)});
  double place = 1;
  for (; fives >= 10; fives -= 10) {
    add(ShapeKind::Area, {at(place, 0), at(place, feather), at(place - step - 0.04, 0)});
    place -= step + 0.08;
  }
  // A half feather alone stands in from the end, where it would be taken for a whole one.
  if (fives == 1 && place == 1)
    place -= step;
  for (; fives > 0; fives -= 2) {
    const double share = fives == 1 ? 0.5 : 1;
    add(ShapeKind::Line, {at(place, 0), at(place + slant * share, feather * share)});
    place -= step;
  }
  return std::move(shapes_);
}

} // namespace

std::vector<Shape> windBarb(const Wind& wind, Point at, double length, bool southern) {
  if (!wind.speed)
    return {};
  const double knots = inKnots(*wind.speed, wind.unit);
  const int fives = int(std::lround(knots / 5));
  if (wind.speed->value == 0)
    return {{.kind = ShapeKind::Circle, .ink = Ink::Wind, .points = {at}, .size = length * 0.18}};
  if (!wind.direction || wind.isVariable)
    return {};
  return Barb(at, *wind.direction, length, southern).draw(fives);
}

} // namespace soran
