// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "pictures/coast.h"

#include <algorithm>
#include <cmath>

namespace soran {

namespace {

constexpr QByteArrayView fileMark = "COAST1";
constexpr double turnDegrees = 360;

/// Takes one number after the other from the bytes of a file.
class Numbers {
 public:
  explicit Numbers(QByteArrayView bytes) : bytes_(bytes) {}

  /// Nothing at the end, and for a number that no file has.
  std::optional<quint32> next() {
    quint32 value = 0;
    for (int shift = 0; shift < 28 && at_ < bytes_.size(); shift += 7) {
      const auto byte = quint8(bytes_[at_++]);
      value |= quint32(byte & 0x7F) << shift;
      if (byte < 0x80)
        return value;
    }
    return std::nullopt;
  }
  std::optional<qint32> nextSigned() {
    const std::optional<quint32> value = next();
    if (!value)
      return std::nullopt;
    return (*value & 1) ? -qint32(*value / 2) - 1 : qint32(*value / 2);
  }
  bool atEnd() const { return at_ == bytes_.size(); }
  /// A count of things of at least one byte each, which cannot be more than there are bytes.
  std::optional<size_t> count() {
    const std::optional<quint32> value = next();
    return value && qsizetype(*value) <= bytes_.size() ? std::optional<size_t>(*value) : std::nullopt;
  }

 private:
  QByteArrayView bytes_;
  qsizetype at_ = 0;
};

bool isOnEarth(const Coast::Vertex& vertex) {
  return std::abs(vertex.latitude) <= 90 && std::abs(vertex.longitude) <= 180;
}

/// The whole line in its bounds.
Coast::Line lineOf(std::vector<Coast::Vertex> points) {
  const auto [south, north] = std::ranges::minmax(points, {}, &Coast::Vertex::latitude);
  const auto [west, east] = std::ranges::minmax(points, {}, &Coast::Vertex::longitude);
  return {std::move(points), {south.latitude, west.longitude}, {north.latitude, east.longitude}};
}

std::optional<Coast::Line> readLine(Numbers& numbers, quint32 units) {
  const std::optional<size_t> count = numbers.count();
  if (!count || *count < 2)
    return std::nullopt;
  std::vector<Coast::Vertex> points;
  points.reserve(*count);
  qint64 latitude = 0;
  qint64 longitude = 0;
  for (size_t i = 0; i < *count; ++i) {
    const std::optional<qint32> north = numbers.nextSigned();
    const std::optional<qint32> east = numbers.nextSigned();
    if (!north || !east)
      return std::nullopt;
    latitude += *north;
    longitude += *east;
    points.push_back({float(double(latitude) / units), float(double(longitude) / units)});
    if (!isOnEarth(points.back()))
      return std::nullopt;
  }
  return lineOf(std::move(points));
}

std::optional<Coast::Lines> readLayer(Numbers& numbers) {
  const std::optional<quint32> units = numbers.next();
  const std::optional<size_t> count = numbers.count();
  if (!units || *units == 0 || !count)
    return std::nullopt;
  Coast::Lines lines;
  lines.reserve(*count);
  for (size_t i = 0; i < *count; ++i) {
    std::optional<Coast::Line> line = readLine(numbers, *units);
    if (!line)
      return std::nullopt;
    lines.push_back(std::move(*line));
  }
  return lines;
}

/// Adds lines to a drawing, without what the eye could not tell apart.
class ShorePen {
 public:
  ShorePen(const Projection& projection, Drawing& drawing) : projection_(projection), drawing_(drawing) {}

  void draw(const Coast::Lines& lines) {
    for (const Coast::Line& line : lines) {
      for (const double shift : {-turnDegrees, 0.0, turnDegrees}) {
        if (isSeen(line, shift))
          draw(line, shift);
      }
    }
  }

 private:
  /// Of a longitude that is not brought near the middle, so that a line stays in one piece.
  Point place(const Coast::Vertex& vertex, double shift) const {
    const EarthPosition centre = projection_.centre();
    const double right = (vertex.longitude + shift - centre.longitude) * projection_.unitsPerDegree();
    return {projection_.middle().x + right, projection_.toPlane({vertex.latitude, centre.longitude}).y};
  }
  bool isSeen(const Coast::Line& line, double shift) const {
    const Point lowerLeft = place(line.least, shift);
    const Point upperRight = place(line.most, shift);
    return upperRight.x >= 0 && lowerLeft.x <= projection_.width() && lowerLeft.y >= 0 &&
           upperRight.y <= projection_.height();
  }
  bool isOutside(const Point& a, const Point& b) const {
    return std::max(a.x, b.x) < 0 || std::min(a.x, b.x) > projection_.width() || std::max(a.y, b.y) < 0 ||
           std::min(a.y, b.y) > projection_.height();
  }
  void draw(const Coast::Line& line, double shift);
  void end(std::vector<Point>& points) {
    if (points.size() > 1)
      drawing_.add({.kind = ShapeKind::Line, .ink = Ink::Faint, .points = std::move(points), .size = 1});
    points.clear();
  }

  const Projection& projection_;
  Drawing& drawing_;
};

void ShorePen::draw(const Coast::Line& line, double shift) {
  constexpr double shortest = 1.2;
  Point last = place(line.points.front(), shift);
  std::vector<Point> points{last};
  for (size_t i = 1; i < line.points.size(); ++i) {
    const Point point = place(line.points[i], shift);
    const bool isLast = i + 1 == line.points.size();
    if (!isLast && std::abs(point.x - last.x) + std::abs(point.y - last.y) < shortest)
      continue;
    if (isOutside(last, point))
      end(points);
    else if (points.empty())
      points.push_back(last);
    if (!points.empty())
      points.push_back(point);
    last = point;
  }
  end(points);
}

} // namespace

std::optional<Coast> Coast::read(QByteArrayView file) {
  if (!file.startsWith(fileMark))
    return std::nullopt;
  Numbers numbers(file.sliced(fileMark.size()));
  Coast coast;
  for (Lines* lines : {&coast.world_, &coast.coarse_, &coast.fine_}) {
    std::optional<Lines> layer = readLayer(numbers);
    if (!layer)
      return std::nullopt;
    *lines = std::move(*layer);
  }
  return numbers.atEnd() ? std::optional(std::move(coast)) : std::nullopt;
}

Drawing Coast::draw(const Projection& projection) const {
  constexpr double fineFrom = 20; // units a degree at which more detail can be seen
  Drawing drawing{.width = projection.width(), .height = projection.height()};
  ShorePen pen(projection, drawing);
  pen.draw(world_);
  pen.draw(projection.unitsPerDegree() < fineFrom ? coarse_ : fine_);
  return drawing;
}

} // namespace soran
