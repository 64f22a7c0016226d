// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/widgets/drawing_view.h"

#include <QMouseEvent>
#include <QPainter>

namespace soran {

DrawingView::DrawingView(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_OpaquePaintEvent);
}

void DrawingView::setGround(const Ground& ground) {
  ground_ = ground;
  update();
}

void DrawingView::showDrawing(Drawing drawing) {
  drawing_ = std::move(drawing);
  update();
}

QTransform DrawingView::toView() const {
  if (drawing_.width <= 0 || drawing_.height <= 0)
    return {};
  const double scale = std::min(width() / drawing_.width, height() / drawing_.height);
  QTransform transform;
  transform.translate((width() - drawing_.width * scale) / 2, (height() - drawing_.height * scale) / 2);
  return transform.scale(scale, scale);
}

void DrawingView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), ground_.colour);
  painter.setTransform(toView(), true);
  paintDrawing(painter, drawing_, ground_);
}

void DrawingView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  emit resized(event->size());
}

void DrawingView::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton)
    return QWidget::mousePressEvent(event);
  const QPointF point = toView().inverted().map(event->position());
  emit pressed({point.x(), point.y()});
}

} // namespace soran
