// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QString>
#include <vector>

/// A picture as a list of shapes with what each stands for, so that it can be painted on a screen, a page or
/// a file, and read without one.
namespace soran {

/// x to the right, y downwards.
struct Point {
  double x = 0;
  double y = 0;

  bool operator==(const Point&) const = default;
};

/// What a shape is drawn with; who paints it chooses the colour for a black or a white ground.
enum class Ink {
  Ground,
  Frame,
  Text,
  Faint, ///< lines of a grid, shores
  Night,
  Now,
  Wind,
  Gust,
  Visibility,
  Ceiling,
  Air,
  DewPoint,
  Pressure,
  Weather,
  Limit1, ///< of the three conditions of the settings
  Limit2,
  Limit3,
  Silent, ///< a station that is overdue, or tells nothing
  Sigmet,
};

enum class ShapeKind {
  Line,    ///< through the points; a single point is nothing
  Dashed,  ///< the same, dashed
  Area,    ///< a filled polygon
  Hatched, ///< a polygon filled with slanting lines
  Dot,     ///< a disc about each point
  Circle,  ///< an outline about each point
  Text,    ///< at the first point
};

enum class TextPlace { Left, Centre, Right }; ///< the point is there, halfway up the text

struct Shape {
  ShapeKind kind = ShapeKind::Line;
  Ink ink = Ink::Text;
  std::vector<Point> points = {};
  double size = 1; ///< the width of a line, the radius of a dot or circle, the height of a text
  QString text = {};
  TextPlace place = TextPlace::Centre;
  /// What it stands for, where it is a value: the element ("WIND", "VIS", ...), its time (UTC) and the words
  /// that it comes from.
  QString element = {};
  QDateTime time = {};
  double value = 0;
  QString words = {};
};

struct Drawing {
  double width = 0;
  double height = 0;
  std::vector<Shape> shapes = {};

  void add(Shape shape) { shapes.push_back(std::move(shape)); }
};

} // namespace soran
