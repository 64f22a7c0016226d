// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "sun/sun_graph.h"

#include <QWidget>

class QPainter;

namespace soran {

/// Draws a year's sunrise and sunset with axes, month lines and labels into `area`, in lines and letters of
/// `unit` (the size of a pixel of the screen on the device).
void paintSunGraph(QPainter& painter, const QRectF& area, double unit, const SunGraph& graph, int year);

/// The picture of the graph, `Picture1`. It grows with its window.
class SunGraphView : public QWidget {
  Q_OBJECT
 public:
  explicit SunGraphView(QWidget* parent = nullptr);

  void showGraph(const SunGraph& graph, int year);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  SunGraph graph_;
  int year_ = 0;
};

} // namespace soran
