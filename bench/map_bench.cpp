// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/budget.h"
#include "common/map_stations.h"
#include "delivered.h"
#include "pictures/coast.h"

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

/// The shapes of 2,000 stations in a view of the usual size, of the whole world and of a part of it.
void drawMap(benchmark::State& state) {
  const std::vector<MapStation> stations = bench::stationsOfTheWorld(2000);
  const Projection projection({36, 138}, double(state.range(0)), 1240, 680);
  for (auto _ : state)
    benchmark::DoNotOptimize(drawStations(stations, projection, 13));
  bench::holdTo(state, 16);
}
BENCHMARK(drawMap)->Name("map/2000")->Arg(4)->Arg(40);

/// The shores of the same views, which are drawn once for a scale and a place.
void drawShores(benchmark::State& state) {
  const std::optional<Coast> coast = Coast::read(delivered::file(u"coast.bin"_s));
  const Projection projection({36, 138}, double(state.range(0)), 1240, 680);
  for (auto _ : state)
    benchmark::DoNotOptimize(coast->draw(projection));
  bench::holdTo(state, 16);
}
BENCHMARK(drawShores)->Name("map/shores")->Arg(4)->Arg(40);

void readShores(benchmark::State& state) {
  const QByteArray file = delivered::file(u"coast.bin"_s);
  for (auto _ : state)
    benchmark::DoNotOptimize(Coast::read(file));
  bench::holdTo(state, 50);
}
BENCHMARK(readShores)->Name("map/read");

} // namespace
