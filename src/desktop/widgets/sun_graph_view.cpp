// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/widgets/sun_graph_view.h"

#include "base/report_rules.h"
#include "desktop/widgets/look.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

/// The picture in twips: the part in which points lie and room for the labels around it.
constexpr QRectF picture(0, 0, 14280, 7100);

// The curves are dark, so the ground is a light one, dimmed for the night.
constexpr QRgb ground = 0xFFE4E8E6;
constexpr QRgb hourLine = 0xFFB4BDB9;
constexpr QRgb monthLine = 0xFF98A49F;
constexpr QRgb ink = 0xFF20262B;

/// Draws in twips of the picture; letters and lines keep the device's own size.
class GraphPainter {
 public:
  GraphPainter(QPainter& painter, const QRectF& area, double unit)
      : painter_(painter), area_(area), unit_(unit) {
    QFont font = terminalFont(u"ＭＳ ゴシック"_s, 1);
    font.setPixelSize(std::max(1, qRound(14 * unit)));
    painter_.setFont(font);
    painter_.setRenderHint(QPainter::Antialiasing);
  }

  QPointF at(double x, double y) const {
    return {area_.left() + x / picture.width() * area_.width(),
            area_.top() + y / picture.height() * area_.height()};
  }

  void line(double x1, double y1, double x2, double y2, QRgb colour, double width) {
    painter_.setPen(QPen(QColor(colour), width * unit_));
    painter_.drawLine(at(x1, y1), at(x2, y2));
  }

  /// A text around a point, moved where it would leave the picture.
  void text(QPointF anchor, Qt::Alignment alignment, const QColor& colour, const QString& text,
            bool onGround = false) {
    const QSizeF size(painter_.fontMetrics().horizontalAdvance(text), painter_.fontMetrics().height());
    QRectF box(anchor, size);
    if (alignment & Qt::AlignHCenter)
      box.moveLeft(anchor.x() - size.width() / 2);
    if (alignment & Qt::AlignRight)
      box.moveRight(anchor.x());
    if (alignment & Qt::AlignVCenter)
      box.moveTop(anchor.y() - size.height() / 2);
    if (alignment & Qt::AlignBottom)
      box.moveBottom(anchor.y() - 3 * unit_);
    box.moveLeft(std::clamp(box.left(), area_.left(), std::max(area_.left(), area_.right() - size.width())));
    if (onGround)
      painter_.fillRect(box, QColor(ground));
    painter_.setPen(colour);
    painter_.drawText(box, Qt::AlignCenter | Qt::TextDontClip, text);
  }

  void curve(const QList<SunPoint>& points, const QColor& colour) {
    QPainterPath path;
    for (const SunPoint& point : points) {
      const QPointF to = at(point.x, point.y);
      path.elementCount() == 0 ? path.moveTo(to) : path.lineTo(to);
    }
    painter_.setPen(QPen(colour, 2 * unit_));
    painter_.drawPath(path);
  }

 private:
  QPainter& painter_;
  QRectF area_;
  double unit_;
};

void drawHours(GraphPainter& draw) {
  constexpr double gap = 90;
  constexpr int hours = 5;
  for (int i = 0; i <= hours; ++i) {
    const double y = sunriseY((3 + i) * 60);
    draw.line(sunGraphLeft, y, sunGraphRight, y, hourLine, 1);
    draw.text(draw.at(sunGraphLeft - gap, y), Qt::AlignRight | Qt::AlignVCenter, toQColor(sunriseColour),
              u"%1:00"_s.arg(3 + i));
    draw.text(draw.at(sunGraphRight + gap, y), Qt::AlignLeft | Qt::AlignVCenter, toQColor(sunsetColour),
              u"%1:00"_s.arg(15 + i));
  }
}

void drawMonths(GraphPainter& draw, int year) {
  constexpr int february = 2;
  constexpr int leapDays = 29;
  constexpr double gap = 60;
  const bool leapYear = daysInMonth(year, february) == leapDays;
  int day = 0;
  for (int month = 1; month <= 12; ++month) {
    const double x = sunGraphX(day, leapYear);
    day += daysInMonth(year, month);
    const double end = sunGraphX(day, leapYear);
    draw.line(x, sunGraphTop, x, sunGraphBottom, monthLine, 1);
    draw.text(draw.at((x + end) / 2, sunGraphBottom + gap), Qt::AlignHCenter, QColor(ink),
              u"%1月"_s.arg(month));
  }
}

void drawFrame(GraphPainter& draw) {
  constexpr double inset = 1.5;
  draw.line(sunGraphLeft, sunGraphTop, sunGraphRight, sunGraphTop, ink, inset);
  draw.line(sunGraphLeft, sunGraphBottom, sunGraphRight, sunGraphBottom, ink, inset);
  draw.line(sunGraphLeft, sunGraphTop, sunGraphLeft, sunGraphBottom, ink, inset);
  draw.line(sunGraphRight, sunGraphTop, sunGraphRight, sunGraphBottom, ink, inset);
}

} // namespace

void paintSunGraph(QPainter& painter, const QRectF& area, double unit, const SunGraph& graph, int year) {
  painter.fillRect(area, QColor(ground));
  GraphPainter draw(painter, area, unit);
  drawHours(draw);
  drawMonths(draw, year);
  drawFrame(draw);
  draw.text(draw.at(60, 20), Qt::AlignLeft, toQColor(sunriseColour), u"日出"_s);
  draw.text(draw.at(picture.width() - 60, 20), Qt::AlignRight, toQColor(sunsetColour), u"日没"_s);
  draw.curve(graph.sunrise, toQColor(sunriseColour));
  draw.curve(graph.sunset, toQColor(sunsetColour));
  for (qsizetype i = 0; i < graph.extremes.size(); ++i) {
    const SunExtreme& extreme = graph.extremes[i];
    // The latest times top their curves, so their labels go above, where they cover nothing.
    const bool latest = i % 2 == 1;
    draw.text(draw.at(extreme.x, extreme.y), latest ? Qt::AlignLeft | Qt::AlignBottom : Qt::AlignLeft,
              toQColor(i < 2 ? sunriseColour : sunsetColour), extreme.time + extreme.date, true);
  }
}

SunGraphView::SunGraphView(QWidget* parent) : QWidget(parent) {
  constexpr int twipsToPixels = 15;
  setMinimumSize(static_cast<int>(picture.width()) / twipsToPixels * 3 / 4,
                 static_cast<int>(picture.height()) / twipsToPixels * 3 / 4);
}

void SunGraphView::showGraph(const SunGraph& graph, int year) {
  graph_ = graph;
  year_ = year;
  update();
}

void SunGraphView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  paintSunGraph(painter, rect(), 1, graph_, year_);
}

} // namespace soran
