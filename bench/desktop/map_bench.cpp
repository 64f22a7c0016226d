// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/budget.h"
#include "common/map_stations.h"
#include "delivered.h"
#include "desktop/widgets/map_view.h"

#include <QApplication>
#include <QPainter>

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

/// A map of 2,000 stations in a window of the usual size.
struct ShownMap {
  explicit ShownMap(double scale) : view(Ground::Black, *Coast::read(delivered::file(u"coast.bin"_s))) {
    view.showContent({bench::stationsOfTheWorld(2000), {}, {}});
    view.resize(1240, 680);
    view.show();
    QApplication::processEvents();
    view.showAll();
    view.zoom(scale / view.projection().unitsPerDegree());
    view.repaint();
  }
  MapView view;
};

/// The stations of the view painted anew.
void paintMap(benchmark::State& state) {
  const std::vector<MapStation> stations = bench::stationsOfTheWorld(2000);
  const MapPicture picture = drawStations(stations, {{36, 138}, double(state.range(0)), 1240, 680}, 13);
  QImage image(1240, 680, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::black);
  for (auto _ : state) {
    QPainter painter(&image);
    paintDrawing(painter, picture.drawing, Ground::Black);
  }
  bench::holdTo(state, 16);
}
BENCHMARK(paintMap)->Name("map/paint/2000")->Arg(4)->Arg(40);

/// Moved by the mouse, step by step over half a view and back.
void panMap(benchmark::State& state) {
  ShownMap shown(double(state.range(0)));
  int step = 0;
  for (auto _ : state) {
    ++step;
    shown.view.pan(step % 60 < 30 ? 10 : -10, step % 40 < 20 ? 4 : -4);
    shown.view.repaint();
  }
  bench::holdTo(state, 16);
}
BENCHMARK(panMap)->Name("map/pan/2000")->Arg(4)->Arg(40);

} // namespace
