// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "pictures/weather_symbol.h"

#include <QStringList>
#include <algorithm>
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
constexpr Pen dust[] = {{2.6, -3, Up},  {0, -4, Down}, {-2.6, -2.6, Down}, {0, 0, Down},
                        {2.6, 2, Down}, {0, 4, Down},  {-2.6, 3, Down}};
constexpr Pen raised[] = {{0, -5, Up}, {0, 5, Down}};
constexpr Pen storm[] = {{-4.4, 0, Up}, {4.4, 0, Down}, {3, -1.2, Down}, {4.4, 0, Up}, {3, 1.2, Down}};
constexpr Pen heavyStorm[] = {{-4.4, 1.4, Up}, {4.4, 1.4, Down}};
constexpr Pen whirl[] = {{2, -4.2, Up},  {-2, -4.2, Down}, {2, -1.4, Down}, {-2, -1.4, Down},
                         {2, 1.4, Down}, {-1, 1.6, Down},  {0, 4.5, Down}};
constexpr Pen blown[] = {{-4.4, 1, Up}, {4.4, 1, Down},  {2.8, -0.2, Down}, {4.4, 1, Up},  {2.8, 2.2, Down},
                         {0, 4.5, Up},  {0, -4.5, Down}, {-1.2, -3, Down},  {0, -4.5, Up}, {1.2, -3, Down}};
constexpr Pen drifted[] = {{-4.4, -1, Up},   {4.4, -1, Down}, {2.8, -2.2, Down}, {4.4, -1, Up},
                           {2.8, 0.2, Down}, {0, -4.5, Up},   {0, 4.5, Down},    {-1.2, 3, Down},
                           {0, 4.5, Up},     {1.2, 3, Down}};
constexpr Pen around[] = {{-4.2, -4.5, Up}, {-5.4, -2, Down}, {-5.4, 2, Down}, {-4.2, 4.5, Down},
                          {4.2, -4.5, Up},  {5.4, -2, Down},  {5.4, 2, Down},  {4.2, 4.5, Down}};
constexpr Pen heavyThunder[] = {{-3.4, 4.5, Up},  {-3.4, -3.4, Down}, {2.6, -3.4, Down}, {-0.4, -1, Down},
                                {2.2, 0.4, Down}, {-0.4, 2.4, Down},  {2.4, 4.6, Down},  {2.5, 2.8, Up},
                                {2.4, 4.6, Down}, {0.6, 4, Down}};
constexpr Pen lightning[] = {{-1.6, -4.4, Up}, {1.6, -1.4, Down}, {-1.2, 0.6, Down}, {1.4, 4.4, Down},
                             {1.7, 2.4, Up},   {1.4, 4.4, Down},  {-0.4, 3.6, Down}};
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
constexpr Pen grainsMark[] = {{-1.3, 1, Up},   {0, -1.2, Down}, {1.3, 1, Down},
                              {-1.3, 1, Down}, {-1.9, 0, Up},   {1.9, 0, Down}};
constexpr Pen pelletMark[] = {{-1.3, 1, Up},   {0, -1.2, Down}, {1.3, 1, Down},
                              {-1.3, 1, Down}, {0, 0, Up},      {0, 0.6, Down}};
constexpr Pen hailMark[] = {{-1.3, 1, Up},   {0, -1.2, Down}, {1.3, 1, Down},  {-1.3, 1, Down},
                            {-0.6, 0.5, Up}, {0, -0.5, Down}, {0.6, 0.5, Down}};
constexpr Pen needleMark[] = {
    {-1.8, 0, Up}, {1.8, 0, Down}, {1.1, -0.7, Down}, {-1.8, 0, Up}, {-1.1, -0.7, Down}};

/// What has a symbol of its own.
struct Obscuration {
  QStringView word;
  Strokes strokes;
};
constexpr Obscuration obscurations[] = {
    {u"FG", fog},  {u"BR", mist}, {u"HZ", haze}, {u"FU", smoke},  {u"VA", smoke},  {u"DU", dust},
    {u"SA", dust}, {u"DS", dust}, {u"SS", dust}, {u"SQ", squall}, {u"FC", funnel}, {u"PO", whirl},
};

/// The mark of a precipitation; that of rain is a dot, and has no strokes.
struct Precipitation {
  QStringView word;
  Strokes mark;
};
/// With thunder the first one counts.
constexpr Precipitation precipitations[] = {
    {u"GR", hailMark},   {u"GS", grainMark},   {u"PL", pelletMark}, {u"SN", snowMark}, {u"RA", {}},
    {u"SG", grainsMark}, {u"DZ", drizzleMark}, {u"IC", needleMark}, {u"UP", {}},
};

/// A group in its pairs of letters, without its sign.
struct Pairs {
  bool isLight;
  bool isHeavy;
  QStringList words;

  explicit Pairs(QStringView group) : isLight(group.startsWith(u'-')), isHeavy(group.startsWith(u'+')) {
    for (qsizetype i = isLight || isHeavy ? 1 : 0; i + 1 < group.size(); i += 2)
      words += group.sliced(i, 2).toString();
  }
  bool has(QStringView word) const { return words.contains(word); }
  bool hasOneOf(std::initializer_list<QStringView> some) const {
    return std::ranges::any_of(some, [this](QStringView word) { return has(word); });
  }
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
std::vector<Point> marksOf(const Pairs& pairs, bool isShower) {
  if (isShower)
    return pairs.isLight ? std::vector<Point>{{0, -2.6}} : std::vector<Point>{{-1.7, -2.6}, {1.7, -2.6}};
  if (pairs.isLight)
    return {{-1.8, 0}, {1.8, 0}};
  if (pairs.isHeavy)
    return {{0, -3}, {-1.9, 0}, {1.9, 0}, {0, 3}};
  return {{0, -1.8}, {-1.8, 1.4}, {1.8, 1.4}};
}

void precipitation(Symbol& symbol, const Pairs& pairs) {
  const bool isShower = pairs.has(u"SH");
  if (pairs.has(u"TS")) {
    const auto first =
        std::ranges::find_if(precipitations, [&](const auto& kind) { return pairs.has(kind.word); });
    if (first != std::end(precipitations))
      symbol.mark(first->mark, {0, -5.4});
    return;
  }
  if (pairs.has(u"RA") && pairs.has(u"SN")) {
    if (isShower) {
      symbol.mark({}, {-1.7, -2.6});
      symbol.mark(snowMark, {1.7, -2.6});
      return;
    }
    // Dot over star, and a star ahead of them where it is not light.
    symbol.mark({}, {0, pairs.isLight ? -1.8 : 0});
    symbol.mark(snowMark, {0, pairs.isLight ? 1.8 : 3.2});
    if (!pairs.isLight)
      symbol.mark(snowMark, {0, -3.2});
    return;
  }
  for (const auto& [word, mark] : precipitations) {
    if (!pairs.has(word))
      continue;
    for (const Point& place : marksOf(pairs, isShower))
      symbol.mark(mark, place);
    return;
  }
}

} // namespace

std::vector<Shape> weatherSymbol(QStringView group, Point at, double size) {
  Symbol symbol(at, size);
  const Pairs pairs(group);
  const bool isNear = pairs.has(u"VC");
  if (pairs.has(u"TS"))
    symbol.strokes(isNear ? Strokes(lightning) : pairs.isHeavy ? Strokes(heavyThunder) : Strokes(thunder));
  if (pairs.has(u"SH"))
    symbol.strokes(shower);
  if (pairs.has(u"FZ"))
    symbol.strokes(freezing, {0, -4});
  const bool isRaised = pairs.hasOneOf({u"BL", u"DR"});
  if (isRaised && pairs.has(u"SN"))
    symbol.strokes(pairs.has(u"BL") ? Strokes(blown) : Strokes(drifted));
  else
    precipitation(symbol, pairs);
  const bool isPatchy = pairs.has(u"FG") && pairs.hasOneOf({u"MI", u"BC", u"PR"});
  for (const auto& [word, strokes] : obscurations) {
    if (pairs.has(word))
      symbol.strokes(isPatchy ? Strokes(patches) : strokes);
  }
  if (pairs.hasOneOf({u"DS", u"SS"}))
    symbol.strokes(storm);
  if (pairs.hasOneOf({u"DS", u"SS"}) && pairs.isHeavy)
    symbol.strokes(heavyStorm);
  if (isRaised && pairs.hasOneOf({u"DU", u"SA"}))
    symbol.strokes(raised);
  if (isNear)
    symbol.strokes(around);
  return symbol.take();
}

int weatherRank(QStringView group) {
  // The worst first.
  constexpr QStringView order[] = {u"FC", u"GR", u"TS", u"FZ", u"VA", u"SQ", u"DS", u"SS", u"PL", u"SN",
                                   u"FG", u"GS", u"SH", u"RA", u"SG", u"DZ", u"PO", u"BR", u"HZ"};
  const Pairs pairs(group);
  const auto worst = std::ranges::find_if(order, [&](QStringView word) { return pairs.has(word); });
  const int kind = 2 * int(std::end(order) - worst);
  return (pairs.has(u"VC") ? 0 : 100) + kind + (pairs.isHeavy ? 1 : pairs.isLight ? -1 : 0);
}

} // namespace soran
