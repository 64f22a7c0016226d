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

std::optional<PictureView::Layer> PictureView::layerOf(const QByteArray& bytes) {
  Layer layer;
  if (isDrawing(bytes))
    layer.drawing = std::make_unique<QSvgRenderer>(bytes);
  else
    layer.image = QImage::fromData(bytes);
  const bool good = layer.drawing ? layer.drawing->isValid() : !layer.image.isNull();
  return good ? std::optional(std::move(layer)) : std::nullopt;
}

bool PictureView::showPictures(std::span<const QByteArray> pictures) {
  std::vector<Layer> layers;
  for (const QByteArray& bytes : pictures) {
    std::optional<Layer> layer = layerOf(bytes);
    if (!layer)
      return false;
    layers.push_back(*std::move(layer));
  }
  layers_ = std::move(layers);
  update();
  return true;
}

void PictureView::showImage(const QImage& image) {
  layers_.clear();
  layers_.push_back({.image = image, .drawing = nullptr});
  update();
}

void PictureView::paintInto(QPainter& painter, const QRectF& area) {
  if (!hasPicture())
    return;
  const Layer& first = layers_.front();
  const QSizeF own = first.drawing ? QSizeF(first.drawing->defaultSize()) : QSizeF(first.image.size());
  QRectF place(QPointF(), own.scaled(area.size(), Qt::KeepAspectRatio));
  place.moveCenter(area.center());
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  for (const Layer& layer : layers_) {
    if (layer.drawing)
      layer.drawing->render(&painter, place);
    else
      painter.drawImage(place, layer.image);
  }
}

void PictureView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), Qt::black);
  paintInto(painter, rect());
}

} // namespace soran
