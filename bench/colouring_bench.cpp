// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/budget.h"
#include "reports/colouring.h"

using namespace soran;

namespace {

constexpr QStringView reports =
    u"RJTT 220630Z 34012G24KT 9999 -SHRA FEW015 BKN025 OVC040 24/18 Q1008 NOSIG RMK 1CU015 5SC025 7AC040 "
    u"A2979\r\n"
    u"SPECI RJSS 220642Z 16008KT 1200 R27/1000V1600D +TSRA BR SCT003 BKN005 FEW010CB OVC015 17/17 Q1002 "
    u"BECMG 3000 RMK 3ST003 6ST005 1CB010 TS OHD MOV E\r\n"
    u"RJAA 220700Z 00000KT 0150 R34L/0300V0600U R34R/0450N FG VV001 12/12 Q1019 RMK FG BANK W-NW\r\n"
    u"TAF AMD RJOO 220505Z 2206/2312 20010KT 9999 FEW030 BECMG 2210/2212 4000 -RA BR BKN008\r\n"
    u"     TEMPO 2214/2220 1500 +SHRA BKN004 FEW015CB BECMG 2300/2303 9999 NSW SCT030\r\n";

/// `size` units of `pattern` again and again.
QString repeated(QStringView pattern, qsizetype size) {
  QString text;
  text.reserve(size + pattern.size());
  while (text.size() < size)
    text += pattern;
  text.truncate(size);
  return text;
}

/// As many codes as the list of the displayed codes holds.
QString fortyCodes() {
  QString codes = QStringLiteral(" RJTT RJSS RJAA RJOO ");
  for (char16_t c = u'A'; codes.size() <= 190; ++c)
    codes +=
        QStringLiteral("RJ") + QChar(c <= u'Z' ? c : char16_t(c - 26)) + (c <= u'Z' ? u'C' : u'K') + u' ';
  return codes;
}

void colour(benchmark::State& state, QStringView pattern) {
  const QString text = repeated(pattern, state.range(0));
  const QString codes = fortyCodes();
  const SettingsRecord settings = SettingsRecord::standard(QStringLiteral("+9"));
  for (auto _ : state)
    benchmark::DoNotOptimize(colourRuns(text, settings, codes, u"KANTO"));
  if (text.size() == 200'000)
    bench::holdTo(state, 5);
  bench::growsInLine(state, static_cast<double>(text.size()));
}

// A job of a few lines, a large screen, and one far beyond any screen.
BENCHMARK_CAPTURE(colour, reports, reports)
    ->Arg(100)
    ->Arg(500)
    ->Arg(50'000)
    ->Arg(200'000)
    ->Arg(1'000'000)
    ->Arg(5'000'000);

// Texts that would tempt a scan to start over for each hit.
BENCHMARK_CAPTURE(colour, no_blank, u"R34L/0600")->Arg(200'000)->Arg(800'000);
BENCHMARK_CAPTURE(colour, signs, u"--")->Arg(200'000)->Arg(800'000);
BENCHMARK_CAPTURE(colour, codes, u"RJTT RJTTRJACRJA")->Arg(200'000)->Arg(800'000);

} // namespace
