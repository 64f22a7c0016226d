// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "pictures/projection.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace soran {

namespace {

constexpr double degree = std::numbers::pi / 180;
constexpr double turn = 360;
constexpr double farthestLatitude = 85;
constexpr double farthestCentre = 80;
constexpr double largestScale = 4000;

/// How far north of the equator a latitude lies, in degrees of longitude on the equator.
double northing(double latitude) {
  const double held = std::clamp(latitude, -farthestLatitude, farthestLatitude);
  return std::asinh(std::tan(held * degree)) / degree;
}

double latitudeAt(double northing) {
  return std::atan(std::sinh(northing * degree)) / degree;
}

/// The middle of the shortest stretch of longitudes that holds all, and how long that is.
std::pair<double, double> shortestStretch(std::vector<double> longitudes) {
  std::ranges::sort(longitudes);
  double widestGap = longitudes.front() + turn - longitudes.back();
  double west = longitudes.front();
  for (size_t i = 1; i < longitudes.size(); ++i) {
    const double gap = longitudes[i] - longitudes[i - 1];
    if (gap > widestGap) {
      widestGap = gap;
      west = longitudes[i];
    }
  }
  return {west + (turn - widestGap) / 2, turn - widestGap};
}

} // namespace

double longitudeNear(double longitude, double other) {
  return longitude - turn * std::floor((longitude - other) / turn + 0.5);
}

Projection::Projection(EarthPosition centre, double unitsPerDegree, double width, double height)
    : centre_{std::clamp(centre.latitude, -farthestCentre, farthestCentre),
              longitudeNear(centre.longitude, 0)},
      scale_(unitsPerDegree), width_(width), height_(height) {}

Projection Projection::around(std::span<const EarthPosition> positions, double width, double height,
                              double margin) {
  constexpr EarthPosition japan[] = {{24, 123}, {46, 148}};
  constexpr double largestAround = 150;
  if (positions.empty())
    positions = japan;
  std::vector<double> longitudes;
  for (const EarthPosition& position : positions)
    longitudes.push_back(longitudeNear(position.longitude, 0));
  const auto [middle, degrees] = shortestStretch(std::move(longitudes));
  const auto [south, north] = std::ranges::minmax(positions, {}, &EarthPosition::latitude);
  const double low = northing(south.latitude);
  const double high = northing(north.latitude);
  const double scale = std::min({(width - 2 * margin) / std::max(degrees, 0.1),
                                 (height - 2 * margin) / std::max(high - low, 0.1), largestAround});
  return {{latitudeAt((low + high) / 2), middle}, std::max(scale, width / turn), width, height};
}

Point Projection::toPlane(EarthPosition position) const {
  const double longitude = longitudeNear(position.longitude, centre_.longitude);
  return {width_ / 2 + (longitude - centre_.longitude) * scale_,
          height_ / 2 - (northing(position.latitude) - northing(centre_.latitude)) * scale_};
}

EarthPosition Projection::toEarth(Point point) const {
  return {latitudeAt(northing(centre_.latitude) - (point.y - height_ / 2) / scale_),
          longitudeNear(centre_.longitude + (point.x - width_ / 2) / scale_, 0)};
}

Projection Projection::panned(double right, double down) const {
  return {toEarth({width_ / 2 - right, height_ / 2 - down}), scale_, width_, height_};
}

Projection Projection::zoomed(double factor, Point about) const {
  const double least = width_ / turn;
  const double scale = std::clamp(scale_ * factor, least, std::max(largestScale, least));
  const Projection larger(centre_, scale, width_, height_);
  const Point moved = larger.toPlane(toEarth(about));
  return larger.panned(about.x - moved.x, about.y - moved.y);
}

Projection Projection::sized(double width, double height) const {
  return {centre_, scale_, width, height};
}

} // namespace soran
