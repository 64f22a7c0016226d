// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QSvgRenderer>
#include <QWidget>
#include <memory>

namespace soran {

/// A still picture, as large as the view allows with its proportions kept.
class PictureView : public QWidget {
  Q_OBJECT
 public:
  explicit PictureView(QWidget* parent = nullptr) : QWidget(parent) {}

  /// Shows a picture (PNG, JPEG, GIF, SVG); false, and the picture before stays, where it is none.
  bool showPicture(const QByteArray& bytes);
  bool hasPicture() const { return drawing_ || !image_.isNull(); }

  /// Draws the picture into the middle of `area`, as large as it allows.
  void paintInto(QPainter& painter, const QRectF& area);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QImage image_;
  std::unique_ptr<QSvgRenderer> drawing_; // in place of an image
};

} // namespace soran
