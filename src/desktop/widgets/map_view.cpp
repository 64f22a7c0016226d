// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/widgets/map_view.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <cmath>

namespace soran {

namespace {

constexpr double letterSize = 13;
constexpr double degreesScale = 0.85; // of a letter
constexpr double layerMargin = 0.25;  // of the view, on each side of it
constexpr double zoomStep = 1.5;
constexpr double clickReach = 16;
constexpr double smallestView = 10;

Projection projectionFor(const QSize& size) {
  return Projection::around({}, std::max(smallestView, double(size.width())),
                            std::max(smallestView, double(size.height())), 0);
}

bool looksLike(const MapStation& one, const MapStation& other) {
  return one.row.code == other.row.code && one.row.metar == other.row.metar &&
         stateWord(one.row) == stateWord(other.row);
}

} // namespace

MapView::MapView(const Ground& ground, Coast coast, QWidget* parent)
    : QWidget(parent), ground_(ground), coast_(std::move(coast)), projection_(projectionFor(size())),
      layer_(projection_) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::StrongFocus);
  setCursor(Qt::CrossCursor);
  setMinimumSize(200, 150);
}

void MapView::setGround(const Ground& ground) {
  ground_ = ground;
  dropPictures();
  update();
}

void MapView::showContent(MapContent content) {
  if (!std::ranges::equal(content_.stations, content.stations, looksLike))
    stations_ = {};
  content_ = std::move(content);
  update();
}

void MapView::choose(const QString& code) {
  if (chosen_ == code)
    return;
  chosen_ = code;
  stations_ = {};
  update();
}

const MapStation* MapView::chosenStation() const {
  const auto isChosen = [this](const MapStation& station) {
    return station.position && station.row.code.text() == chosen_;
  };
  const auto found = std::ranges::find_if(content_.stations, isChosen);
  return found == content_.stations.end() ? nullptr : &*found;
}

void MapView::centreOnChosen() {
  const MapStation* station = chosenStation();
  if (!station)
    return;
  showsAll_ = false;
  setProjection(
      {*station->position, projection_.unitsPerDegree(), projection_.width(), projection_.height()});
}

void MapView::showAll() {
  constexpr double edge = 70; // a station model's
  std::vector<EarthPosition> positions;
  for (const MapStation& station : content_.stations) {
    if (station.position)
      positions.push_back(*station.position);
  }
  const double margin = std::min({edge, projection_.width() / 4, projection_.height() / 4});
  setProjection(Projection::around(positions, projection_.width(), projection_.height(), margin));
  showsAll_ = true;
}

void MapView::pan(double right, double down) {
  showsAll_ = false;
  setProjection(projection_.panned(right, down));
}

void MapView::zoom(double factor) {
  showsAll_ = false;
  setProjection(projection_.zoomed(factor, projection_.middle()));
}

void MapView::setProjection(const Projection& projection) {
  projection_ = projection;
  update();
}

void MapView::dropPictures() {
  shores_ = {};
  stations_ = {};
}

MapPicture MapView::picture() const {
  return drawStations(content_.stations, projection_, letterSize, chosen_);
}

/// Where the upper left corner of the pictures lies in the view.
QPointF MapView::layerCorner() const {
  const Point centre = layer_.toPlane(projection_.centre());
  return {std::round(projection_.width() / 2 - centre.x), std::round(projection_.height() / 2 - centre.y)};
}

bool MapView::layersCover() const {
  const QPointF corner = layerCorner();
  return layer_.unitsPerDegree() == projection_.unitsPerDegree() && corner.x() <= 0 && corner.y() <= 0 &&
         corner.x() + layer_.width() >= projection_.width() &&
         corner.y() + layer_.height() >= projection_.height();
}

QPixmap MapView::layerOf(const QColor& ground, std::initializer_list<const Drawing*> drawings) const {
  const double ratio = devicePixelRatioF();
  QPixmap pixmap(QSize(int(layer_.width()), int(layer_.height())) * ratio);
  pixmap.setDevicePixelRatio(ratio);
  pixmap.fill(ground);
  QPainter painter(&pixmap);
  for (const Drawing* drawing : drawings)
    paintDrawing(painter, *drawing, ground_);
  return pixmap;
}

void MapView::drawLayers() {
  if (!layersCover() || shores_.devicePixelRatioF() != devicePixelRatioF())
    dropPictures();
  if (shores_.isNull()) {
    // Whole units on each side, so that the corner of the pictures lies on a pixel.
    const auto larger = [](double side) { return side + 2 * std::round(side * layerMargin); };
    layer_ = projection_.sized(larger(projection_.width()), larger(projection_.height()));
    const Drawing graticule = drawGraticule(layer_);
    const Drawing shores = coast_.draw(layer_);
    shores_ = layerOf(ground_.colour, {&graticule, &shores});
  }
  if (stations_.isNull()) {
    const MapPicture stations = drawStations(content_.stations, layer_, letterSize, chosen_);
    stations_ = layerOf(Qt::transparent, {&stations.drawing});
  }
}

void MapView::paintMarks(QPainter& painter) {
  Drawing marks;
  const Point middle = projection_.middle();
  constexpr double arm = 7;
  if (hasFocus()) {
    marks.add({.ink = Ink::Frame, .points = {{middle.x - arm, middle.y}, {middle.x + arm, middle.y}}});
    marks.add({.ink = Ink::Frame, .points = {{middle.x, middle.y - arm}, {middle.x, middle.y + arm}}});
  }
  if (const MapStation* station = chosenStation())
    marks.add({.kind = ShapeKind::Circle,
               .ink = Ink::Now,
               .points = {projection_.toPlane(*station->position)},
               .size = letterSize * 0.8});
  paintDrawing(painter, marks, ground_);
}

void MapView::paintEvent(QPaintEvent*) {
  drawLayers();
  QPainter painter(this);
  painter.drawPixmap(layerCorner(), shores_);
  paintDrawing(painter, drawSigmets(content_.sigmets, projection_, content_.now, letterSize), ground_);
  painter.drawPixmap(layerCorner(), stations_);
  paintDrawing(painter, drawDegrees(projection_, letterSize * degreesScale), ground_);
  paintMarks(painter);
}

void MapView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  const Projection sized = projection_.sized(std::max(1, width()), std::max(1, height()));
  projection_ = sized.zoomed(1, sized.middle());
  dropPictures();
  if (showsAll_)
    showAll();
}

/// A map that is not seen keeps no memory for its pictures.
void MapView::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  dropPictures();
}

void MapView::chooseAt(QPointF point, double reach) {
  if (const auto code = stationAt(picture(), {point.x(), point.y()}, reach))
    emit chosen(code->text());
}

bool MapView::zoomByKey(int key) {
  switch (key) {
  case Qt::Key_Plus:
  case Qt::Key_Equal:
  case Qt::Key_Semicolon: // the key of + on a Japanese keyboard
    zoom(zoomStep);
    return true;
  case Qt::Key_Minus:
    zoom(1 / zoomStep);
    return true;
  default:
    return false;
  }
}

void MapView::keyPressEvent(QKeyEvent* event) {
  if (zoomByKey(event->key()))
    return;
  const double step = std::min(width(), height()) / 5.0;
  switch (event->key()) {
  case Qt::Key_Left:
    return pan(step, 0);
  case Qt::Key_Right:
    return pan(-step, 0);
  case Qt::Key_Up:
    return pan(0, step);
  case Qt::Key_Down:
    return pan(0, -step);
  case Qt::Key_Home:
    return showAll();
  case Qt::Key_Return:
  case Qt::Key_Enter:
  case Qt::Key_Space:
    return chooseAt({width() / 2.0, height() / 2.0}, std::hypot(width(), height()));
  default:
    return QWidget::keyPressEvent(event);
  }
}

void MapView::mousePressEvent(QMouseEvent* event) {
  pressed_ = event->position();
  moved_ = false;
}

void MapView::mouseMoveEvent(QMouseEvent* event) {
  constexpr double still = 4; // a hand that clicks may move so much
  const QPointF way = event->position() - pressed_;
  if (!(event->buttons() & Qt::LeftButton) || (!moved_ && way.manhattanLength() < still))
    return;
  moved_ = true;
  pressed_ = event->position();
  pan(way.x(), way.y());
}

void MapView::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && !moved_)
    chooseAt(event->position(), clickReach);
}

void MapView::wheelEvent(QWheelEvent* event) {
  constexpr double notch = 120;
  const double factor = std::pow(zoomStep, event->angleDelta().y() / notch);
  showsAll_ = false;
  setProjection(projection_.zoomed(factor, {event->position().x(), event->position().y()}));
}

} // namespace soran
