// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/budget.h"
#include "fakes/bare_program.h"
#include "runs/night_desk.h"

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

constexpr int airports = 300;

/// Reports of 300 airports, each with a forecast and the report before.
QStringList keepReports(Program& program) {
  QStringList codes;
  const QDateTime now = program.services.clock.now().toUTC();
  for (int i = 0; i < airports; ++i) {
    const QString code = u"R"_s + QChar(u'A' + i / 100) + QChar(u'A' + i / 10 % 10) + QChar(u'A' + i % 10);
    codes.append(code);
    const auto keep = [&](ReportKind kind, const QDateTime& time, const QString& text) {
      program.knownReports.keep(StationCode(code), kind, {.time = time, .text = text, .source = u"noaa"_s});
    };
    for (const int minutes : {80, 20}) {
      const QDateTime time = now.addSecs(-minutes * 60);
      keep(ReportKind::Metar, time,
           code + time.toString(u" ddHHmm"_s) + u"Z 34012G24KT " + QString::number(1000 + i * minutes / 3) +
               u" R34L/0550VP1800D -SHRA BR FEW005 BKN0" + QString::number(10 + i % 40) +
               u" 24/18 Q1008 NOSIG");
    }
    keep(ReportKind::Taf, now.addSecs(-900),
         u"TAF "_s + code + now.toString(u" ddHHmm"_s) + u"Z " + now.toString(u"ddHH"_s) + u'/' +
             now.addDays(1).toString(u"ddHH"_s) + u" 16008KT 9999 FEW020 TEMPO " + now.toString(u"ddHH"_s) +
             u'/' + now.addSecs(4 * 3600).toString(u"ddHH"_s) + u" 0800 TSRA BKN004 FEW020CB");
  }
  return codes;
}

/// A refresh of the board: its rows from the reports, sorted, with all their cells.
void refreshBoard(benchmark::State& state) {
  World world;
  world.prepare([](Tables& tables) { setAutoList(tables, u"RJTT"_s); });
  BareProgram bare(world);
  bare.program.tables.openAllTables(world.path(u"soran.mdb"_s));
  const QStringList codes = keepReports(bare.program);
  const QDateTime now = bare.program.services.clock.now().toUTC();
  for (auto _ : state) {
    std::vector<BoardRow> rows = boardRows(bare.program, codes);
    sortWorstFirst(rows);
    for (const BoardRow& row : rows) {
      for (int column = 0; column < boardColumnCount; ++column)
        benchmark::DoNotOptimize(cellOf(row, BoardColumn(column), now));
    }
  }
  bench::holdTo(state, 16);
}

BENCHMARK(refreshBoard)->Name("board/300");

} // namespace
