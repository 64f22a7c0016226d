// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/budget.h"
#include "desktop/forms/log_form.h"
#include "desktop/widgets/look.h"
#include "desktop/widgets/screen_view.h"
#include "reports/colouring.h"
#include "store/settings_record.h"

#include <QApplication>
#include <QTableView>

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

const QString line =
    u"RJTT  METAR 1530I\r\n      240630Z 34012G24KT 3000 -SHRA BR FEW005 BKN025 OVC040 24/18 "
    "Q1008 NOSIG RMK 1CU005 5SC025 7AC040 A2979\r\n\r\n"_s;

/// A screen in a window of the usual size, with the terminal's font.
struct ShownScreen {
  ShownScreen() {
    view.setFont(terminalFont(installedFamily(u"ＭＳ ゴシック"_s), 11));
    view.show(screen);
    view.resize(1200, 800);
    view.QWidget::show();
    QApplication::processEvents();
  }
  Screen screen;
  ScreenView view;
};

/// The end of a run: the text of the staging buffer comes in the place of the former one, the prompt is
/// added, the colours are laid on, and the window is painted.
void showScreen(benchmark::State& state) {
  const QString text = line.repeated(state.range(0) / line.size() + 1).left(state.range(0));
  const SettingsRecord settings = SettingsRecord::standard(u"+9"_s);
  const std::vector<AttributeRun> runs = colourRuns(QString(text + u"\r\nREADY"), settings, u" RJTT "_s, {});
  ShownScreen shown;
  for (auto _ : state) {
    shown.screen.setText(text);
    shown.screen.append(u"\r\nREADY"_s);
    shown.screen.caretToEnd();
    shown.screen.setRuns(runs);
    shown.screen.caretToEnd();
    shown.view.viewport()->repaint();
    QApplication::processEvents();
  }
  if (text.size() == 200'000)
    bench::holdTo(state, 50);
  bench::growsInLine(state, static_cast<double>(text.size()));
}
BENCHMARK(showScreen)->Arg(50'000)->Arg(200'000)->Arg(800'000);

/// One character typed behind so much text.
void typeBehind(benchmark::State& state) {
  const QString text = line.repeated(state.range(0) / line.size());
  ShownScreen shown;
  shown.screen.setText(text);
  for (auto _ : state) {
    shown.screen.append(u"R"_s);
    shown.screen.caretToEnd();
    shown.view.viewport()->repaint();
  }
  bench::holdTo(state, 16);
}
BENCHMARK(typeBehind)->Arg(200'000)->Arg(5'000'000)->Iterations(200);

/// A line added to the full log of 1000 rows while its form is open.
void logRow(benchmark::State& state) {
  const SystemClock clock;
  RunningLog log(clock);
  for (int i = 0; i < 1000; ++i)
    log.add(u"RJTT METAR RECEIVED"_s);
  LogForm form(nullptr, log, [] { return Colour(0xFFFF); });
  form.show();
  QApplication::processEvents();
  for (auto _ : state) {
    log.add(u"RJTT SPECI RECEIVED"_s);
    form.findChild<QTableView*>()->viewport()->repaint();
    QApplication::processEvents();
  }
  bench::holdTo(state, 16);
}
BENCHMARK(logRow);

} // namespace
