// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/utc.h"
#include "common/budget.h"
#include "desktop/widgets/drawing_painter.h"
#include "pictures/meteogram_drawing.h"

#include <QImage>
#include <QPainter>

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

/// Two METARs an hour of a day and a TAF of thirty hours: read, put together, drawn and painted.
void meteogram(benchmark::State& state) {
  const QDateTime now = inUtc({2026, 8, 22}, {6, 0});
  const SettingsRecord settings = SettingsRecord::standard(u"9"_s);
  const Limits limits = Limits::of(settings);
  QStringList metars;
  for (int i = 0; i < 48; ++i)
    metars += u"RJTT " + now.addSecs(-1800 * i).toString(u"ddHHmm"_s) +
              u"Z 16008G20KT 130V190 4000 -SHRA BR FEW008 BKN015 27/26 Q1013";
  const QString taf = u"TAF RJTT 220505Z 2206/2312 16008G20KT 9999 FEW030 BECMG 2208/2210 3000 BKN008 TEMPO "
                      "2212/2215 0400 FG VV001 BECMG 2300/2303 36010KT CAVOK PROB30 TEMPO 2303/2306 2000 "
                      "TSRA BKN010CB"_s;
  QImage image(1200, 700, QImage::Format_RGB32);
  for (auto _ : state) {
    const Meteogram graph = meteogramOf(StationCode(u"RJTT"_s), metars, taf, now, limits);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    paintDrawing(painter, meteogramDrawing(graph, settings, image.width(), image.height()), Ground::Black);
  }
  bench::holdTo(state, 20);
}
BENCHMARK(meteogram);

} // namespace
