// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/widgets/drawing_painter.h"

#include <QWidget>

namespace soran {

/// Shows a drawing, as large as it fits, in the middle.
class DrawingView : public QWidget {
  Q_OBJECT
 public:
  explicit DrawingView(QWidget* parent = nullptr);

  void setGround(const Ground& ground);
  void showDrawing(Drawing drawing);
  const Drawing& drawing() const { return drawing_; }

 signals:
  /// The view has another size, for which a drawing may be made.
  void resized(QSize size);
  /// The left button went down there, in the units of the drawing.
  void pressed(soran::Point point);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  QTransform toView() const;

  Ground ground_ = Ground::Black;
  Drawing drawing_;
};

} // namespace soran
