// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "pictures/station_plot.h"

#include "base/text.h"
#include "pictures/weather_symbol.h"
#include "pictures/wind_barb.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

constexpr int obscured = 9;
constexpr size_t mostSymbols = 2;

// In heights of a letter.
constexpr double circleRadius = 0.4;
constexpr double barbLength = 2.4; // feathers and all above the line of visibility and ceiling
constexpr double letterWidth = 0.5;
constexpr double symbolSize = 1.2;
constexpr double besideCircle = 0.8;
constexpr double besideMiddle = 0.25;
constexpr double lineHeight = 1.15;
constexpr double codeLine = 2.2;
constexpr double limitLine = 3.25; // visibility and ceiling

/// The groups of weather that have a symbol.
std::vector<Words> drawnWeather(const BoardRow& row) {
  std::vector<Words> groups;
  for (const Words& group : row.values.weather) {
    if (groups.size() < mostSymbols && !weatherSymbol(group.in(row.metar), {}, 1).empty())
      groups.push_back(group);
  }
  return groups;
}

/// Puts a plot together.
class Plot {
 public:
  Plot(const BoardRow& row, Point at, double size) : row_(row), at_(at), size_(size), ink_(inkOf(row)) {}

  void wind(bool southern);
  void cloud();
  void temperatures();
  void weather();
  void visibility();
  void pressure();
  void ceiling();
  void names();
  std::vector<Shape> take() { return std::move(shapes_); }

 private:
  Point place(double x, double y) const { return {at_.x + x * size_, at_.y + y * size_}; }
  void add(Shape shape, QStringView element, double value, const QString& words);
  void text(Point at, TextPlace place, Ink ink, const QString& text, QStringView element, double value,
            const QString& words);
  Shape disc(ShapeKind kind, Ink ink) const;
  /// The edge of the circle, clockwise from its top, over so many eighths.
  std::vector<Point> arc(int eighths) const;
  void sector(int eighths);
  void cross();
  QString told(const Words& words) const { return words.in(row_.metar).toString(); }

  const BoardRow& row_;
  Point at_;
  double size_;
  Ink ink_;
  std::vector<Shape> shapes_;
};

void Plot::add(Shape shape, QStringView element, double value, const QString& words) {
  shape.element = element.toString();
  shape.time = row_.time;
  shape.value = value;
  shape.words = words;
  shapes_.push_back(std::move(shape));
}

void Plot::text(Point at, TextPlace place, Ink ink, const QString& text, QStringView element, double value,
                const QString& words) {
  add({.kind = ShapeKind::Text, .ink = ink, .points = {at}, .size = size_, .text = text, .place = place},
      element, value, words);
}

void Plot::wind(bool southern) {
  const std::optional<Wind>& wind = row_.values.wind;
  if (!wind)
    return;
  const double knots = wind->speed ? inKnots(*wind->speed, wind->unit) : 0;
  for (Shape& shape : windBarb(*wind, at_, barbLength * size_, southern))
    add(std::move(shape), u"WIND", knots, told(wind->words));
}

Shape Plot::disc(ShapeKind kind, Ink ink) const {
  return {.kind = kind, .ink = ink, .points = {at_}, .size = circleRadius * size_};
}

std::vector<Point> Plot::arc(int eighths) const {
  constexpr int stepsAnEighth = 4;
  std::vector<Point> points;
  for (int i = 0; i <= eighths * stepsAnEighth; ++i) {
    const double angle = i * std::numbers::pi / 4 / stepsAnEighth;
    points.push_back(place(circleRadius * std::sin(angle), -circleRadius * std::cos(angle)));
  }
  return points;
}

void Plot::sector(int eighths) {
  std::vector<Point> points = arc(eighths);
  points.push_back(at_);
  shapes_.push_back({.kind = ShapeKind::Area, .ink = ink_, .points = std::move(points)});
}

void Plot::cross() {
  const double reach = circleRadius * std::numbers::sqrt2 / 2;
  for (const double up : {-reach, reach})
    shapes_.push_back({.ink = ink_, .points = {place(-reach, -up), place(reach, up)}, .size = size_ / 10});
}

void Plot::cloud() {
  shapes_.push_back(disc(ShapeKind::Dot, Ink::Ground));
  const std::optional<int> eighths = cloudEighths(row_);
  if (!eighths) {
    shapes_.push_back({.kind = ShapeKind::Dashed, .ink = Ink::Silent, .points = arc(8), .size = size_ / 8});
    return;
  }
  if (*eighths == obscured)
    cross();
  else if (*eighths > 0)
    sector(*eighths);
  QStringList words;
  for (const Words& group : row_.values.clouds)
    words.append(told(group));
  add(disc(ShapeKind::Circle, ink_), u"CLOUD", *eighths, words.join(u' '));
}

void Plot::temperatures() {
  const std::optional<Temperatures>& known = row_.values.temperatures;
  if (!known)
    return;
  const auto write = [&](const std::optional<int>& degrees, double line, Ink ink, QStringView element) {
    if (degrees)
      text(place(-besideCircle, line * lineHeight), TextPlace::Right, ink, QString::number(*degrees), element,
           *degrees, told(known->words));
  };
  write(known->air, -1, Ink::Air, u"AIR");
  write(known->dewPoint, 1, Ink::DewPoint, u"DEWPOINT");
}

void Plot::weather() {
  double x = -besideCircle - symbolSize / 2;
  for (const Words& group : drawnWeather(row_)) {
    for (Shape& shape : weatherSymbol(group.in(row_.metar), place(x, 0), symbolSize * size_))
      add(std::move(shape), u"WX", 0, told(group));
    x -= symbolSize;
  }
}

void Plot::visibility() {
  const Words* seen = row_.values.visibilityWords();
  if (!seen)
    return;
  text(place(-besideMiddle, limitLine), TextPlace::Right, Ink::Visibility, told(*seen), u"VIS",
       row_.values.visibilityMetres().value_or(0), told(*seen));
}

void Plot::pressure() {
  const std::optional<Pressure>& known = row_.values.pressure;
  if (!known)
    return;
  const auto tenths = std::llround(known->hectopascals * 10);
  text(place(besideCircle, -lineHeight), TextPlace::Left, Ink::Pressure,
       QString::number(tenths % 1000).rightJustified(3, u'0'), u"QNH", known->hectopascals,
       told(known->words));
}

void Plot::ceiling() {
  if (const Ceiling* known = row_.values.ceiling())
    text(place(besideMiddle, limitLine), TextPlace::Left, Ink::Ceiling, told(known->words), u"CIG",
         known->feet, told(known->words));
}

void Plot::names() {
  const QString code = row_.code.text();
  const QString state = stateWord(row_);
  const int level = std::max(row_.level(), row_.outlookLevel());
  text(place(0, codeLine), TextPlace::Centre, ink_, code, u"CODE", level, code);
  text(place(besideCircle, lineHeight), TextPlace::Left, ink_, state, u"STATE", level, state);
}

} // namespace

Ink inkOf(const BoardRow& row) {
  const int level = std::clamp(std::max(row.level(), row.outlookLevel()), 0, 3);
  if (level > 0)
    return Ink(int(Ink::Limit1) + level - 1);
  const bool silent = row.freshness == Freshness::Overdue || row.freshness == Freshness::Unknown;
  return silent ? Ink::Silent : Ink::Text;
}

std::optional<int> cloudEighths(const BoardRow& row) {
  constexpr std::pair<QStringView, int> amounts[] = {
      {u"FEW", 2}, {u"SCT", 4}, {u"BKN", 6}, {u"OVC", 8}, {u"VV", obscured},
      {u"SKC", 0}, {u"CLR", 0}, {u"NSC", 0}, {u"NCD", 0}, {u"CAVOK", 0},
  };
  std::optional<int> most = row.values.cavok ? std::optional(0) : std::nullopt;
  for (const Words& group : row.values.clouds) {
    const QStringView words = group.in(row.metar);
    for (const auto& [word, eighths] : amounts) {
      if (words.startsWith(word))
        most = std::max(most.value_or(0), eighths);
    }
  }
  return most;
}

std::vector<Shape> stationPlot(const BoardRow& row, Point at, double size, bool southern) {
  Plot plot(row, at, size);
  plot.wind(southern);
  plot.cloud();
  plot.temperatures();
  plot.weather();
  plot.visibility();
  plot.pressure();
  plot.ceiling();
  plot.names();
  return plot.take();
}

Box plotBox(const BoardRow& row, double size) {
  constexpr double lineHalf = 0.55;
  constexpr qsizetype figures = 3; // of a temperature and of QNH
  const auto width = [](qsizetype letters) { return letterWidth * double(letters); };
  const Ceiling* ceiling = row.values.ceiling();
  const double code = width(displayWidth(row.code.text())) / 2;
  const Words* seen = row.values.visibilityWords();
  const double left =
      std::max({besideCircle + symbolSize * double(drawnWeather(row).size()),
                besideMiddle + width(seen ? seen->length : 0), code, besideCircle + width(figures)});
  const double right = std::max({besideMiddle + width(ceiling ? ceiling->words.length : 0), code,
                                 besideCircle + width(std::max<qsizetype>(figures, stateWord(row).size()))});
  return {-size * left, -size * (lineHeight + lineHalf), size * right, size * (limitLine + lineHalf)};
}

} // namespace soran
