// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The first byte chooses the hour that is asked for, the first line behind it is a METAR, the rest a TAF.
#include "reports/forecast_at.h"

#include "base/utc.h"
#include "targets.h"

namespace soran::fuzz {

namespace {

void checkWords(const Words& words, QStringView text) {
  require(words.start >= 0 && words.length >= 0 && words.end() <= text.size(),
          "words are a stretch of the text");
}

void checkValues(const ElementValues& values, QStringView text) {
  for (const Words& words : values.allWords()) {
    checkWords(words, text);
    require(words.length > 0, "an element stands in words");
  }
  if (values.visibility)
    require(values.visibility->metres >= 0, "a visibility is no negative number");
  for (const RunwayRange& range : values.runwayRanges) {
    checkWords(range.runway, text);
    require(values.leastRunwayRange()->metres <= range.metres, "the least runway range is the least");
  }
  if (values.vertical)
    require(values.ceiling()->feet <= values.vertical->feet, "the ceiling is the lowest");
  const AirportLimits row{.code = allAirports.toString(),
                          .wind = 20,
                          .gust = 30,
                          .crosswind = 15,
                          .weather = QStringLiteral("TS -RA")};
  const Limits limits = Limits::of(settingsIn(u"+9", 0), {&row, 1}, {}, {{QStringLiteral("36"), 360}});
  for (const Crossing& crossing : crossings(values, text, limits)) {
    require(crossing.element == LimitedElement::Weather || crossing.beyond() > 0,
            "what crosses a limit lies beyond it");
    require(crossing.isAbove() || crossing.share() <= 1, "what lies below a limit is not less than nothing");
  }
}

/// Gives up to which time one prevailing slice follows the other, from `from` on.
QDateTime checkSlices(const std::vector<ForecastSlice>& slices, QStringView text, const QDateTime& from) {
  QDateTime reached = from;
  for (size_t i = 0; i < slices.size(); ++i) {
    const ForecastSlice& slice = slices[i];
    require(slice.from.isValid() && slice.from < slice.to, "a slice lasts");
    require(i == 0 || slices[i - 1].from <= slice.from, "slices stand in the order of their beginning");
    checkWords(slice.words, text);
    checkValues(slice.values, text);
    if (slice.kind != SliceKind::Prevailing && slice.kind != SliceKind::From)
      continue;
    require(slice.from == reached, "one prevailing slice begins where the one before it ends");
    reached = slice.to;
  }
  return reached;
}

} // namespace

void forecast(QByteArrayView input) {
  if (input.isEmpty())
    return;
  const QString whole = textOf(input.sliced(1));
  QStringView taf = whole;
  const QString metar = takeUntil(taf, u'\n').toString();
  const QDateTime now = inUtc({2026, 8, 31}, {14, 30});
  const QDateTime at = now.addSecs(static_cast<uint8_t>(input[0]) % 48 * 3600);
  const SettingsRecord settings = settingsIn(u"+9", static_cast<uint8_t>(input[0]));

  const StationForecast read = forecastAt(metar, taf.toString(), at, now, Limits::of(settings));
  if (read.metar) {
    checkValues(read.metar->values, metar);
    checkSlices(read.metar->slices, metar, read.metar->observed);
    for (const Words& words : read.metar->unread)
      checkWords(words, metar);
  }
  if (read.taf) {
    const QDateTime reached = checkSlices(read.taf->slices, taf, read.taf->from);
    require(read.taf->state != Taf::State::InForce || reached == read.taf->to,
            "the slices cover the validity");
    for (const Words& words : read.taf->unread)
      checkWords(words, taf);
  }
  require(forecastText(read, settings).endsWith(u"\r\n"), "the text is of whole lines");
}

} // namespace soran::fuzz
