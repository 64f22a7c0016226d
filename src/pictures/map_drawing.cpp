// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "pictures/map_drawing.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <unordered_map>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

constexpr double turnOfEarth = 360;

/// The boxes that have been taken, by the cells of a grid that they lie in.
class Room {
 public:
  explicit Room(double cell) : cell_(cell) {}

  /// False where another one stands there.
  bool take(const Box& box) {
    bool isFree = true;
    eachCell(box, [&](std::vector<Box>& taken) {
      isFree = isFree && std::ranges::none_of(taken, [&](const Box& other) { return other.overlaps(box); });
    });
    if (isFree)
      eachCell(box, [&](std::vector<Box>& taken) { taken.push_back(box); });
    return isFree;
  }

 private:
  template <class Act>
  void eachCell(const Box& box, Act act) {
    for (qint64 x = cellOf(box.left); x <= cellOf(box.right); ++x) {
      for (qint64 y = cellOf(box.top); y <= cellOf(box.bottom); ++y)
        act(cells_[(x << 32) ^ (y & 0xFFFFFFFF)]);
    }
  }
  qint64 cellOf(double value) const { return qint64(std::floor(value / cell_)); }

  double cell_;
  std::unordered_map<qint64, std::vector<Box>> cells_;
};

/// The worst first, but that code ahead of all.
std::vector<const MapStation*> inOrder(std::span<const MapStation> stations, const QString& chosen) {
  std::vector<std::pair<int, const MapStation*>> ranked;
  for (const MapStation& station : stations) {
    const bool isChosen = !chosen.isEmpty() && station.row.code.text() == chosen;
    if (station.position)
      ranked.emplace_back(isChosen ? INT_MAX : rankOf(station.row), &station);
  }
  std::ranges::stable_sort(ranked, std::ranges::greater(), &std::pair<int, const MapStation*>::first);
  std::vector<const MapStation*> order;
  order.reserve(ranked.size());
  for (const auto& [rank, station] : ranked)
    order.push_back(station);
  return order;
}

/// What stands for a station without room for more.
Shape markOf(const BoardRow& row, Point at, double size) {
  constexpr double smallest = 0.14;
  constexpr double aLevel = 0.08;
  const Ink ink = inkOf(row);
  const int level = std::max(row.level(), row.outlookLevel());
  const bool isSilent = ink == Ink::Silent;
  return {.kind = isSilent ? ShapeKind::Circle : ShapeKind::Dot,
          .ink = ink,
          .points = {at},
          .size = size * (isSilent ? smallest + aLevel : smallest + aLevel * level),
          .element = u"STATE"_s,
          .time = row.time,
          .value = double(level),
          .words = row.code.text() + u' ' + stateWord(row)};
}

/// Draws one station after the other.
class StationPainter {
 public:
  StationPainter(const Projection& projection, double size)
      : projection_(projection), size_(size), room_(size * roomCell) {
    picture_.drawing = {.width = projection.width(), .height = projection.height()};
  }

  void draw(const MapStation& station);
  MapPicture take();

 private:
  static constexpr double roomCell = 6; // heights of a letter

  bool isSeen(const Box& box) const {
    return box.right >= 0 && box.left <= projection_.width() && box.bottom >= 0 &&
           box.top <= projection_.height();
  }
  void drawAt(const MapStation& station, Point at, bool isPlotted);

  const Projection& projection_;
  double size_;
  Room room_;
  MapPicture picture_;
  std::vector<std::vector<Shape>> plots_; // the worst first
};

void StationPainter::draw(const MapStation& station) {
  const Point at = projection_.toPlane(*station.position);
  const bool isPlotted = room_.take(plotBox(station.row, size_).movedTo(at));
  const double around = turnOfEarth * projection_.unitsPerDegree();
  for (const double shift : {0.0, -around, around})
    drawAt(station, {at.x + shift, at.y}, isPlotted);
}

void StationPainter::drawAt(const MapStation& station, Point at, bool isPlotted) {
  const double reach = size_ * 3; // of a wind arrow
  const Box box = plotBox(station.row, size_).movedTo(at);
  if (!isSeen({box.left - reach, box.top - reach, box.right + reach, box.bottom + reach}))
    return;
  picture_.placed.push_back({station.row.code, at, isPlotted});
  if (isPlotted)
    plots_.push_back(stationPlot(station.row, at, size_, station.position->latitude < 0));
  else
    picture_.drawing.add(markOf(station.row, at, size_));
}

/// The marks below the models, and the worst of these above the others.
MapPicture StationPainter::take() {
  for (auto plot = plots_.rbegin(); plot != plots_.rend(); ++plot)
    std::ranges::move(*plot, std::back_inserter(picture_.drawing.shapes));
  return std::move(picture_);
}

/// The corners on the plane in one piece, the first nearest to the middle.
std::vector<Point> outlineOf(const QList<EarthPosition>& area, const Projection& projection) {
  std::vector<Point> points;
  double last = projection.centre().longitude;
  for (const EarthPosition& corner : area) {
    last = longitudeNear(corner.longitude, last);
    const double y = projection.toPlane(corner).y;
    points.push_back(
        {projection.middle().x + (last - projection.centre().longitude) * projection.unitsPerDegree(), y});
  }
  if (!points.empty())
    points.push_back(points.front());
  return points;
}

QString nameOf(const Sigmet& sigmet) {
  return sigmet.heading.section(u' ', -1);
}

/// Above the northernmost corner, clear of the stations in the area as far as can be.
Point placeOfName(const std::vector<Point>& outline, double size) {
  const Point highest = *std::ranges::min_element(outline, {}, &Point::y);
  return {highest.x, highest.y - size * 0.7};
}

void drawSigmet(Drawing& drawing, const Sigmet& sigmet, const Projection& projection, bool isToCome,
                double size) {
  const std::vector<Point> outline = outlineOf(sigmet.area, projection);
  drawing.add({.kind = isToCome ? ShapeKind::Dashed : ShapeKind::Line,
               .ink = Ink::Sigmet,
               .points = outline,
               .size = 1.6,
               .element = u"SIGMET"_s,
               .time = sigmet.from,
               .words = sigmet.text});
  drawing.add({.kind = ShapeKind::Text,
               .ink = Ink::Sigmet,
               .points = {placeOfName(outline, size)},
               .size = size,
               .text = u"SIGMET " + nameOf(sigmet),
               .place = TextPlace::Left,
               .element = u"SIGMET"_s,
               .words = sigmet.text});
}

/// The lines of whole degrees, or of halves, that a view shows, and where they lie.
struct Graticule {
  std::vector<std::pair<double, double>> meridians = {}; ///< longitude, x
  std::vector<std::pair<double, double>> parallels = {}; ///< latitude, y
};

Graticule graticuleOf(const Projection& projection) {
  constexpr std::pair<double, double> steps[] = {{12, 10}, {80, 2}, {INFINITY, 0.5}}; // below that scale
  const double scale = projection.unitsPerDegree();
  const double step = std::ranges::find_if(steps, [&](const auto& row) { return scale < row.first; })->second;
  Graticule graticule;
  const double west = projection.centre().longitude - projection.middle().x / scale;
  const double east = west + projection.width() / scale;
  for (int i = int(std::ceil(west / step)); i * step <= east; ++i)
    graticule.meridians.emplace_back(i * step, (i * step - west) * scale);
  const double north = projection.toEarth({0, 0}).latitude;
  const double south = projection.toEarth({0, projection.height()}).latitude;
  for (int i = int(std::ceil(south / step)); i * step <= north; ++i)
    graticule.parallels.emplace_back(i * step,
                                     projection.toPlane({i * step, projection.centre().longitude}).y);
  return graticule;
}

/// As ICAO writes positions: the hemisphere, degrees of so many digits, and minutes where there are any.
QString degreesOf(double degrees, char positive, char negative, int digits) {
  constexpr int minutesADegree = 60;
  const int minutes = int(std::round(std::abs(degrees) * minutesADegree));
  QString text = QChar::fromLatin1(degrees < 0 ? negative : positive) +
                 QString::number(minutes / minutesADegree).rightJustified(digits, u'0');
  if (minutes % minutesADegree > 0)
    text += QString::number(minutes % minutesADegree).rightJustified(2, u'0');
  return text;
}

} // namespace

MapPicture drawStations(std::span<const MapStation> stations, const Projection& projection, double size,
                        const QString& chosen) {
  StationPainter painter(projection, size);
  for (const MapStation* station : inOrder(stations, chosen))
    painter.draw(*station);
  return painter.take();
}

Drawing drawSigmets(const QList<Sigmet>& sigmets, const Projection& projection, const QDateTime& now,
                    double size) {
  Drawing drawing{.width = projection.width(), .height = projection.height()};
  double y = size;
  for (const Sigmet& sigmet : sigmets) {
    if (sigmet.to <= now)
      continue;
    if (sigmet.area.size() > 2) {
      drawSigmet(drawing, sigmet, projection, sigmet.from > now, size);
      continue;
    }
    drawing.add(
        {.kind = ShapeKind::Text,
         .ink = Ink::Sigmet,
         .points = {{size / 2, y}},
         .size = size,
         .text = u"SIGMET " + nameOf(sigmet) + (sigmet.isWholeRegion ? u" WHOLE FIR" : u" AREA NOT READ"),
         .place = TextPlace::Left,
         .element = u"SIGMET"_s,
         .time = sigmet.from,
         .words = sigmet.text});
    y += size * 1.2;
  }
  return drawing;
}

Drawing drawGraticule(const Projection& projection) {
  Drawing drawing{.width = projection.width(), .height = projection.height()};
  const auto line = [&](Point from, Point to) {
    drawing.add({.ink = Ink::Night, .points = {from, to}, .size = 1});
  };
  const Graticule graticule = graticuleOf(projection);
  for (const auto& [longitude, x] : graticule.meridians)
    line({x, 0}, {x, projection.height()});
  for (const auto& [latitude, y] : graticule.parallels)
    line({0, y}, {projection.width(), y});
  return drawing;
}

Drawing drawDegrees(const Projection& projection, double size) {
  Drawing drawing{.width = projection.width(), .height = projection.height()};
  const auto text = [&](Point at, const QString& words, TextPlace place) {
    drawing.add({.kind = ShapeKind::Text,
                 .ink = Ink::Faint,
                 .points = {at},
                 .size = size,
                 .text = words,
                 .place = place});
  };
  const double bottom = projection.height() - size;
  const double corner = size * 4; // neither row reaches into it
  const Graticule graticule = graticuleOf(projection);
  for (const auto& [longitude, x] : graticule.meridians) {
    if (x >= corner && x <= projection.width() - size * 2)
      text({x, bottom}, degreesOf(longitudeNear(longitude, 0), 'E', 'W', 3), TextPlace::Centre);
  }
  for (const auto& [latitude, y] : graticule.parallels) {
    if (y >= corner && y <= bottom - size)
      text({size / 3, y}, degreesOf(latitude, 'N', 'S', 2), TextPlace::Left);
  }
  return drawing;
}

std::optional<StationCode> stationAt(const MapPicture& picture, Point point, double reach) {
  const auto distance = [&](const PlacedStation& placed) {
    return std::hypot(placed.at.x - point.x, placed.at.y - point.y);
  };
  const auto nearest = std::ranges::min_element(picture.placed, {}, distance);
  if (nearest == picture.placed.end() || distance(*nearest) > reach)
    return std::nullopt;
  return nearest->code;
}

} // namespace soran
