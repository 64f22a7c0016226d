// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/widgets/picture_view.h"

#include <QPainter>

namespace soran {

namespace {

/// A page of text must not go through the reader of drawings, which would take much of it for one.
bool isDrawing(const QByteArray& bytes) {
  constexpr qsizetype head = 512;
  return bytes.first(std::min(head, bytes.size())).contains("<svg");
}

} // namespace

bool PictureView::showPicture(const QByteArray& bytes) {
  auto drawing = isDrawing(bytes) ? std::make_unique<QSvgRenderer>(bytes) : nullptr;
  const QImage image = drawing ? QImage() : QImage::fromData(bytes);
  if (drawing ? !drawing->isValid() : image.isNull())
    return false;
  drawing_ = std::move(drawing);
  image_ = image;
  update();
  return true;
}

void PictureView::paintInto(QPainter& painter, const QRectF& area) {
  if (!hasPicture())
    return;
  const QSizeF own = drawing_ ? QSizeF(drawing_->defaultSize()) : QSizeF(image_.size());
  QRectF place(QPointF(), own.scaled(area.size(), Qt::KeepAspectRatio));
  place.moveCenter(area.center());
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  if (drawing_)
    drawing_->render(&painter, place);
  else
    painter.drawImage(place, image_);
}

void PictureView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), Qt::black);
  paintInto(painter, rect());
}

} // namespace soran
