// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "pictures/weather_symbol.h"

#include <span>
#include <utility>

namespace soran {

namespace {

/// A step of a pen in a square of 10 units, its middle at 0, 0.
enum PenState { Up, Down };
struct Pen {
  double x;
  double y;
  PenState state;
};
using Strokes = std::span<const Pen>;

constexpr Pen fog[] = {{-4, -3, Up}, {4, -3, Down}, {-4, 0, Up}, {4, 0, Down}, {-4, 3, Up}, {4, 3, Down}};
constexpr Pen patches[] = {{-4, -2, Up}, {-0.6, -2, Down}, {0.6, -2, Up}, {4, -2, Down},
                           {-4, 2, Up},  {-0.6, 2, Down},  {0.6, 2, Up},  {4, 2, Down}};
constexpr Pen mist[] = {{-4, -1.6, Up}, {4, -1.6, Down}, {-4, 1.6, Up}, {4, 1.6, Down}};
constexpr Pen haze[] = {{0, 0, Up},      {-1.4, -1.6, Down}, {-3, -1.8, Down}, {-4.2, 0, Down},
                        {-3, 1.8, Down}, {-1.4, 1.6, Down},  {0, 0, Down},     {1.4, -1.6, Down},
                        {3, -1.8, Down}, {4.2, 0, Down},     {3, 1.8, Down},   {1.4, 1.6, Down},
                        {0, 0, Down}};
constexpr Pen smoke[] = {{-2, 4.5, Up},   {-2, -2, Down},    {-0.8, -3.6, Down},
                         {0.6, -2, Down}, {1.8, -3.6, Down}, {3.2, -2, Down}};
constexpr Pen dust[] = {{2.6, -3, Up}, {0, -4, Down},   {-2.6, -2.6, Down}, {0, 0, Down},   {2.6, 2, Down},
                        {0, 4, Down},  {-2.6, 3, Down}, {-4.4, 0, Up},      {4.4, 0, Down}, {3, -1.2, Down}};
constexpr Pen squall[] = {{-4, -3.5, Up},   {0, 4.5, Down}, {4, -3.5, Down}, {-1.8, -1, Up},
                          {-4, -3.5, Down}, {-2, 1, Up},    {2, 1, Down}};
constexpr Pen funnel[] = {{-3, -4.5, Up}, {-1, -1, Down}, {-1, 4.5, Down},
                          {3, -4.5, Up},  {1, -1, Down},  {1, 4.5, Down}};
constexpr Pen thunder[] = {{-3.4, 4.5, Up},  {-3.4, -3.4, Down}, {2.6, -3.4, Down}, {-0.4, 0, Down},
                           {2.4, 4.2, Down}, {2.5, 2.2, Up},     {2.4, 4.2, Down},  {0.6, 3.6, Down}};
constexpr Pen shower[] = {{-3, 0, Up}, {3, 0, Down}, {0, 4.8, Down}, {-3, 0, Down}};
constexpr Pen freezing[] = {{-4.6, 0.6, Up},  {-3.4, -1.4, Down}, {-1.6, -1, Down}, {0, 0.6, Down},
                            {1.6, 1.6, Down}, {3.4, 1.4, Down},   {4.6, -0.6, Down}};
constexpr Pen snowMark[] = {{0, -1.5, Up},     {0, 1.5, Down},   {-1.3, -0.75, Up},
                            {1.3, 0.75, Down}, {-1.3, 0.75, Up}, {1.3, -0.75, Down}};
constexpr Pen drizzleMark[] = {{0.3, -0.8, Up}, {0.5, 0.3, Down}, {-0.7, 1.5, Down}};
constexpr Pen grainMark[] = {{-1.3, 1, Up}, {0, -1.2, Down}, {1.3, 1, Down}, {-1.3, 1, Down}};
constexpr Pen needleMark[] = {{-1.6, 0, Up}, {1.6, 0, Down}};

/// What has a symbol of its own.
struct Obscuration {
  QStringView word;
  Strokes strokes;
};
constexpr Obscuration obscurations[] = {
    {u"FG", fog},  {u"BR", mist}, {u"HZ", haze}, {u"FU", smoke},  {u"VA", smoke},  {u"DU", dust},
    {u"SA", dust}, {u"DS", dust}, {u"SS", dust}, {u"SQ", squall}, {u"FC", funnel}, {u"PO", funnel},
};

/// The mark of a precipitation; that of rain is a dot, and has no strokes.
struct Precipitation {
  QStringView word;
  Strokes mark;
};
constexpr Precipitation precipitations[] = {
    {u"RA", {}},        {u"DZ", drizzleMark}, {u"SN", snowMark},   {u"SG", needleMark}, {u"PL", grainMark},
    {u"GR", grainMark}, {u"GS", grainMark},   {u"IC", needleMark}, {u"UP", {}},
};

/// Puts the parts of a symbol together.
class Symbol {
 public:
  Symbol(Point at, double size) : at_(at), unit_(size / 10) {}

  void strokes(Strokes strokes, Point shift = {}) {
    std::vector<Point> points;
    for (const Pen& pen : strokes) {
      if (pen.state == Up)
        line(std::exchange(points, {}));
      points.push_back(place({pen.x + shift.x, pen.y + shift.y}));
    }
    line(std::move(points));
  }
  void mark(Strokes mark, Point shift) {
    if (mark.empty())
      add(ShapeKind::Dot, {place(shift)}, unit_ * 1.1);
    else
      strokes(mark, shift);
  }
  std::vector<Shape> take() { return std::move(shapes_); }

 private:
  Point place(Point point) const { return {at_.x + point.x * unit_, at_.y + point.y * unit_}; }
  void line(std::vector<Point> points) {
    if (!points.empty())
      add(ShapeKind::Line, std::move(points), unit_ * 0.9);
  }
  void add(ShapeKind kind, std::vector<Point> points, double size) {
    shapes_.push_back({.kind = kind, .ink = Ink::Weather, .points = std::move(points), .size = size});
  }

  Point at_;
  double unit_;
  std::vector<Shape> shapes_;
};

/// Where the marks stand, by how heavy it is.
std::vector<Point> marksOf(QStringView group, bool isShower) {
  const bool light = group.startsWith(u'-');
  const bool heavy = group.startsWith(u'+');
  if (isShower)
    return light ? std::vector<Point>{{0, -2.6}} : std::vector<Point>{{-1.7, -2.6}, {1.7, -2.6}};
  if (light)
    return {{-1.8, 0}, {1.8, 0}};
  if (heavy)
    return {{0, -3}, {-1.9, 0}, {1.9, 0}, {0, 3}};
  return {{0, -1.8}, {-1.8, 1.4}, {1.8, 1.4}};
}

} // namespace

std::vector<Shape> weatherSymbol(QStringView group, Point at, double size) {
  Symbol symbol(at, size);
  const bool isShower = group.contains(u"SH");
  const bool isThunder = group.contains(u"TS");
  if (isThunder)
    symbol.strokes(thunder);
  if (isShower)
    symbol.strokes(shower);
  if (group.contains(u"FZ"))
    symbol.strokes(freezing, {0, -4});
  for (const auto& [word, mark] : precipitations) {
    if (!group.contains(word))
      continue;
    if (isThunder) {
      symbol.mark(mark, {0, -5.4});
      break;
    }
    for (const Point& place : marksOf(group, isShower))
      symbol.mark(mark, place);
    break;
  }
  const bool isPatchy = group.contains(u"MIFG") || group.contains(u"BCFG") || group.contains(u"PRFG");
  for (const auto& [word, strokes] : obscurations) {
    if (group.contains(word))
      symbol.strokes(isPatchy ? Strokes(patches) : strokes);
  }
  return symbol.take();
}

} // namespace soran
