// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QSvgRenderer>
#include <QWidget>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace soran {

/// A still picture, as large as the view allows with its proportions kept.
class PictureView : public QWidget {
  Q_OBJECT
 public:
  explicit PictureView(QWidget* parent = nullptr) : QWidget(parent) {}

  /// Shows pictures (PNG, JPEG, GIF, SVG) drawn over one another, each as large as the first; false, and what
  /// was there before stays, where one of them is none.
  bool showPictures(std::span<const QByteArray> pictures);
  void showImage(const QImage& image);
  bool showPicture(const QByteArray& bytes) { return showPictures({&bytes, 1}); }
  bool hasPicture() const { return !layers_.empty(); }

  /// Draws the picture into the middle of `area`, as large as it allows.
  void paintInto(QPainter& painter, const QRectF& area);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  struct Layer {
    QImage image;
    std::unique_ptr<QSvgRenderer> drawing; // in place of an image
  };
  static std::optional<Layer> layerOf(const QByteArray& bytes);

  std::vector<Layer> layers_;
};

} // namespace soran
