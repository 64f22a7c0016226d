// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pictures/drawing.h"
#include "reports/sigmet.h"

#include <span>

namespace soran {

/// Mercator's projection of the earth onto a view of a width and a height, north upwards. Positions in
/// degrees, north and east positive; points in units of the view from its upper left corner.
class Projection {
 public:
  /// `unitsPerDegree` of longitude. The centre stays between 80 north and south, its longitude is brought to
  /// [-180, 180).
  Projection(EarthPosition centre, double unitsPerDegree, double width, double height);

  /// The one of the greatest scale, at most 150, that has all positions at least `margin` from the edge of
  /// the view; they may lie on both sides of the date line. Japan's where there are none.
  static Projection around(std::span<const EarthPosition> positions, double width, double height,
                           double margin);

  /// The point of a position, that nearest to the middle of the view where the earth is seen more than once.
  /// Latitudes beyond 85 degrees lie at 85.
  Point toPlane(EarthPosition position) const;
  EarthPosition toEarth(Point point) const;

  /// With what lies there now so much to the right and down.
  Projection panned(double right, double down) const;
  /// `factor` times as large, at most 4000 units a degree and never so small that the earth is less wide than
  /// the view; what lies at the point stays there.
  Projection zoomed(double factor, Point about) const;
  /// The same scale and centre in a view of that size.
  Projection sized(double width, double height) const;

  EarthPosition centre() const { return centre_; }
  double unitsPerDegree() const { return scale_; }
  double width() const { return width_; }
  double height() const { return height_; }
  Point middle() const { return {width_ / 2, height_ / 2}; }

  bool operator==(const Projection&) const = default;

 private:
  EarthPosition centre_;
  double scale_;
  double width_;
  double height_;
};

/// A longitude as the one within half a turn of another, in degrees: 190 of -170 near 180.
double longitudeNear(double longitude, double other);

} // namespace soran
