// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/widgets/drawing_painter.h"
#include "pictures/coast.h"
#include "pictures/map_drawing.h"

#include <QPixmap>
#include <QWidget>

namespace soran {

/// What a map shows.
struct MapContent {
  std::vector<MapStation> stations = {};
  QList<Sigmet> sigmets = {};
  QDateTime now = {}; ///< UTC
};

/// A map that is moved with the mouse and the arrows, and made larger with the wheel, + and -. Shores and
/// stations are kept as pictures somewhat larger than the view, so that moving it copies them only.
class MapView : public QWidget {
  Q_OBJECT
 public:
  explicit MapView(const Ground& ground, Coast coast, QWidget* parent = nullptr);

  void setGround(const Ground& ground);
  void showContent(MapContent content);
  /// Marks that station; it has its station model before all others.
  void choose(const QString& code);
  /// Puts that into the middle where its position is known.
  void centreOnChosen();
  /// Shows all stations.
  void showAll();
  /// Moves what is seen so much to the right and down.
  void pan(double right, double down);
  /// Makes what is seen larger about the middle of the view.
  void zoom(double factor);
  /// As a key asks for it; false where it is none of these (Qt::Key).
  bool zoomByKey(int key);

  const Projection& projection() const { return projection_; }
  /// The stations as they are drawn, in the units of the view.
  MapPicture picture() const;
  /// Draws shores and stations anew with the next painting.
  void dropPictures();

 signals:
  /// The station was clicked, or lies in the middle where Enter was pressed.
  void chosen(const QString& code);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  void setProjection(const Projection& projection);
  QPointF layerCorner() const;
  bool layersCover() const;
  void drawLayers();
  QPixmap layerOf(const QColor& ground, std::initializer_list<const Drawing*> drawings) const;
  const MapStation* chosenStation() const;
  void paintMarks(QPainter& painter);
  void chooseAt(QPointF point, double reach);

  Ground ground_;
  Coast coast_;
  MapContent content_;
  QString chosen_;
  Projection projection_;
  Projection layer_; // of the pictures, which are null where they have to be drawn
  QPixmap shores_;
  QPixmap stations_;
  QPointF pressed_; // where the button went down, then where the mouse was last
  bool moved_ = false;
  bool showsAll_ = true; // the view was not moved since all were shown
};

} // namespace soran
