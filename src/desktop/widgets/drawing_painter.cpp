// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/widgets/drawing_painter.h"

#include "desktop/widgets/look.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <cmath>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

/// Each 4.5 to 1 or better on its ground, but for those of lines that lie behind others.
struct InkColours {
  Ink ink;
  QRgb onBlack;
  QRgb onWhite;
};
constexpr InkColours inks[] = {
    {Ink::Frame, 0xFF7C868D, 0xFF5C666D},    {Ink::Text, 0xFFE6EAED, 0xFF101418},
    {Ink::Faint, 0xFF5C6A75, 0xFFA8B0B6},    {Ink::Night, 0xFF1A2230, 0xFFE4E8F0},
    {Ink::Now, 0xFFFFE066, 0xFF7A5C00},      {Ink::Wind, 0xFFC8D0D6, 0xFF20262B},
    {Ink::Gust, 0xFFFF9D5C, 0xFFA84300},     {Ink::Visibility, 0xFF7CE0A0, 0xFF0B6B34},
    {Ink::Ceiling, 0xFF67DCFF, 0xFF00587A},  {Ink::Air, 0xFFFF8A80, 0xFFB3261E},
    {Ink::DewPoint, 0xFF80CBC4, 0xFF00695C}, {Ink::Pressure, 0xFFD1B3FF, 0xFF5B2FA0},
    {Ink::Weather, 0xFF66FF66, 0xFF1B6E1B},  {Ink::Silent, 0xFFFFFF66, 0xFF6B6100},
    {Ink::Sigmet, 0xFFFF7AD9, 0xFF9C0F73},
};

constexpr std::array limitKeys = {key::視程1の色, key::視程2の色, key::視程3の色};
constexpr std::array<QRgb, 3> limitsOnWhite = {0xFF7A5C00, 0xFFA84300, 0xFFB3261E};
constexpr std::array<QRgb, 3> limitsOnBlack = {0xFFFFFF00, 0xFFFF9D00, 0xFFFF4D4D};

/// The pen, brush and font that one shape after the other is painted with.
class ShapePainter {
 public:
  ShapePainter(QPainter& painter, const Ground& ground)
      : painter_(painter), ground_(ground), font_(terminalFont(u"ＭＳ ゴシック"_s, 10)) {
    font_.setPixelSize(1);
  }

  void paint(const Shape& shape);

 private:
  void paintLine(Qt::PenStyle style);
  void paintArea(Qt::BrushStyle style);
  void paintRounds(bool filled);
  void paintText();

  QPainter& painter_;
  const Ground& ground_;
  QFont font_;
  double fontSize_ = 0;
  const Shape* shape_ = nullptr;
  QColor colour_;
  QPolygonF points_;
};

void ShapePainter::paint(const Shape& shape) {
  if (shape.points.empty())
    return;
  shape_ = &shape;
  colour_ = colourOf(shape.ink, ground_);
  points_.clear();
  for (const Point& point : shape.points)
    points_.append(QPointF(point.x, point.y));
  switch (shape.kind) {
  case ShapeKind::Line:
    return paintLine(Qt::SolidLine);
  case ShapeKind::Dashed:
    return paintLine(Qt::DashLine);
  case ShapeKind::Area:
    return paintArea(Qt::SolidPattern);
  case ShapeKind::Hatched:
    return paintArea(Qt::BDiagPattern);
  case ShapeKind::Dot:
    return paintRounds(true);
  case ShapeKind::Circle:
    return paintRounds(false);
  case ShapeKind::Text:
    return paintText();
  }
}

void ShapePainter::paintLine(Qt::PenStyle style) {
  painter_.setPen(QPen(colour_, shape_->size, style, Qt::FlatCap, Qt::RoundJoin));
  painter_.drawPolyline(points_);
}

void ShapePainter::paintArea(Qt::BrushStyle style) {
  painter_.setPen(Qt::NoPen);
  painter_.setBrush(QBrush(colour_, style));
  painter_.drawPolygon(points_);
}

void ShapePainter::paintRounds(bool filled) {
  constexpr double outline = 1.2;
  painter_.setPen(filled ? QPen(Qt::NoPen) : QPen(colour_, outline));
  painter_.setBrush(filled ? QBrush(colour_) : QBrush(Qt::NoBrush));
  for (const QPointF& point : std::as_const(points_))
    painter_.drawEllipse(point, shape_->size, shape_->size);
}

void ShapePainter::paintText() {
  if (fontSize_ != shape_->size) {
    fontSize_ = shape_->size;
    font_.setPixelSize(std::max(1, int(std::lround(fontSize_))));
  }
  painter_.setFont(font_);
  painter_.setPen(colour_);
  constexpr double room = 10000; // more than any text needs
  QRectF place(0, 0, room, room);
  place.moveCenter(points_.front());
  Qt::Alignment alignment = Qt::AlignVCenter | Qt::AlignHCenter;
  if (shape_->place == TextPlace::Left) {
    place.moveLeft(points_.front().x());
    alignment = Qt::AlignVCenter | Qt::AlignLeft;
  } else if (shape_->place == TextPlace::Right) {
    place.moveRight(points_.front().x());
    alignment = Qt::AlignVCenter | Qt::AlignRight;
  }
  painter_.drawText(place, int(alignment) | Qt::TextDontClip | Qt::TextSingleLine, shape_->text);
}

} // namespace

Ground::Ground(Kind ground) : kind(ground), colour(ground == Black ? Qt::black : Qt::white) {
  for (size_t i = 0; i < limits.size(); ++i)
    limits[i] = QColor::fromRgb(kind == Black ? limitsOnBlack[i] : limitsOnWhite[i]);
}

Ground::Ground(const SettingsRecord& settings) : Ground(Black) {
  constexpr int half = 128;
  colour = toQColor(settings[key::表示領域の色].value_or(black));
  kind = qGray(colour.rgb()) < half ? Black : White;
  for (size_t i = 0; i < limits.size(); ++i) {
    if (const auto chosen = settings[limitKeys[i]])
      limits[i] = toQColor(*chosen);
  }
}

QColor colourOf(Ink ink, const Ground& ground) {
  if (ink == Ink::Ground)
    return ground.colour;
  if (ink >= Ink::Limit1 && ink <= Ink::Limit3)
    return ground.limits[size_t(ink) - size_t(Ink::Limit1)];
  const auto* found = std::ranges::find(inks, ink, &InkColours::ink);
  return QColor::fromRgb(ground.kind == Ground::Black ? found->onBlack : found->onWhite);
}

void paintDrawing(QPainter& painter, const Drawing& drawing, const Ground& ground) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  ShapePainter shapes(painter, ground);
  for (const Shape& shape : drawing.shapes)
    shapes.paint(shape);
  painter.restore();
}

QString pictureTip(const Drawing& drawing, const Ground& ground) {
  QImage image(int(drawing.width), int(drawing.height), QImage::Format_RGB32);
  image.fill(ground.colour);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  paintDrawing(painter, drawing, ground);
  painter.end();
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, "PNG");
  return u"<img src='data:image/png;base64,"_s + QString::fromLatin1(bytes.toBase64()) + u"'>";
}

} // namespace soran
