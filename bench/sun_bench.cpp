// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "sun/sun_graph.h"
#include "sun/sun_table.h"

#include <benchmark/benchmark.h>

using namespace soran;

// A year's table with its graph, as the form makes it for each selection.
static void SunYear(benchmark::State& state) {
  const QList<Airport> airports{{QStringLiteral("RJTT"), QStringLiteral("東京国際")}};
  for (auto _ : state) {
    const SunTable table = sunTable(u"東京国際(東京)", 2026, airports);
    benchmark::DoNotOptimize(sunGraph(table));
  }
}
BENCHMARK(SunYear);
