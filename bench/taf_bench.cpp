// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/utc.h"
#include "common/budget.h"
#include "reports/limits.h"
#include "reports/taf_slices.h"

using namespace soran;

namespace {

constexpr QStringView forecasts[] = {
    u"TAF RJTT 212305Z 2200/2306 16008KT 9999 FEW020 SCT060 TEMPO 2204/2206 TS FEW020 FEW030CB BKN040 TEMPO "
    u"2206/2212 3000 TSRA BR FEW015 FEW020CB BKN030 BECMG 2212/2215 04006KT TEMPO 2215/2300 4000 -SHRA BR "
    u"FEW005 BKN008 BECMG 2300/2303 07010KT",
    u"TAF AMD RJTY 220600Z 2206/2311 VRB06KT 9999 FEW025 QNH2996INS TEMPO 2206/2210 VRB12G20KT 4800 -TSRA "
    u"BKN012CB OVC020 BECMG 2217/2218 03006KT 4800 BR BKN007 OVC014 QNH2997INS BECMG 2300/2301 07006KT 9999 "
    u"NSW BKN012 QNH2997INS TX32/2306Z TN23/2221Z",
    u"TAF RJFM 220505Z 2206/2312 08008KT 9999 FEW025 BECMG 2216/2218 30006KT PROB30 TEMPO 2218/2300 0800 FG "
    u"BKN008 BKN009 FM222130 09008KT CAVOK",
};

/// Reading of 100,000 slices and their verdicts, a second at most.
void slices(benchmark::State& state) {
  constexpr size_t wanted = 100'000;
  const QDateTime now = inUtc({2026, 8, 22}, {6, 0});
  const Limits limits = Limits::of(SettingsRecord::standard(QStringLiteral("+9")));
  for (auto _ : state) {
    size_t read = 0;
    for (size_t i = 0; read < wanted; ++i) {
      const QStringView text = forecasts[i % std::size(forecasts)];
      const std::optional<Taf> taf = readTaf(text, now);
      for (const ForecastSlice& slice : taf->slices)
        benchmark::DoNotOptimize(crossings(slice.values, text, limits));
      read += taf->slices.size();
    }
  }
  bench::holdTo(state, 1000);
}

BENCHMARK(slices)->Name("taf/slices");

} // namespace
