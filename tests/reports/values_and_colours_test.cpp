// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/colouring.h"

#include "base/utc.h"
#include "reports/taf_slices.h"
#include "support/printing.h"
#include "support/sample_reports.h"

#include <gtest/gtest.h>
#include <set>

using namespace Qt::StringLiterals;
using namespace soran;

// The values of reports beside the colours of their text: both judge by the same numbers.
namespace {

constexpr Colour lowCeiling{21};
constexpr Colour lowVisibility{31};

/// The settings that paint nothing but what lies below one limit.
SettingsRecord only(int feet, int metres) {
  SettingsRecord settings = SettingsRecord::standard(u"+9"_s);
  for (const auto& off :
       {key::天気略語着色, key::SPECI着色, key::CBTCUを強調, key::条件2有効, key::条件3有効})
    settings.set(off, false);
  settings.set(key::雲高1, feet);
  settings.set(key::視程1, metres);
  settings.set(key::雲高1の色, lowCeiling);
  settings.set(key::視程1の色, lowVisibility);
  return settings;
}

using Painted = std::set<std::pair<qsizetype, qsizetype>>;

/// The stretches within the words that stand out below these limits.
Painted paintedIn(const QString& text, const Words& stretch, int feet, int metres) {
  Painted painted;
  for (const AttributeRun& run : colourRuns(text, only(feet, metres), u" ", {})) {
    if ((run.colour == lowCeiling || run.colour == lowVisibility) && run.start >= stretch.start &&
        run.start < stretch.end())
      painted.insert({run.start, run.length});
  }
  return painted;
}

bool holds(const Words& words, const std::pair<qsizetype, qsizetype>& painted) {
  return painted.first >= words.start && painted.first + painted.second <= words.end();
}

/// A figure is painted below the limit above it, and no longer at the limit that it is itself.
void expectColouredAs(const QString& text, const Words& words, int value, bool isCeiling) {
  const auto isPainted = [&](int limit) {
    const Painted painted = paintedIn(text, words, isCeiling ? limit : 0, isCeiling ? 0 : limit);
    return !painted.empty();
  };
  EXPECT_FALSE(isPainted(value)) << words.in(text).toUtf8().toStdString() << " of " << text.toStdString();
  EXPECT_TRUE(isPainted(value + 1)) << words.in(text).toUtf8().toStdString() << " of " << text.toStdString();
}

/// The word ahead of a stretch.
QStringView wordBefore(QStringView text, qsizetype start) {
  const QStringView front = text.first(start).trimmed();
  return front.sliced(front.lastIndexOf(u' ') + 1);
}

/// The colouring takes four figures behind a word of change for a time.
bool isTakenForTime(QStringView text, const Words& words) {
  const QStringView before = wordBefore(text, words.start);
  return before == u"BECMG" || before == u"TEMPO";
}

/// Each figure of the values in the colour of the limit above it, but those in units that the colouring does
/// not know. Gives how many there were.
int compare(const QString& text, const ElementValues& values) {
  int compared = 0;
  const auto expect = [&](const Words& words, int value, bool isCeiling) {
    expectColouredAs(text, words, value, isCeiling);
    ++compared;
  };
  if (const auto& visibility = values.visibility;
      visibility && !isTakenForTime(text, visibility->words) && !visibility->words.in(text).endsWith(u"SM"))
    expect(visibility->words, visibility->metres, false);
  for (const RunwayRange& range : values.runwayRanges) {
    if (!range.words.in(text).contains(u"FT"))
      expect(range.words, range.metres, false);
  }
  if (values.layer)
    expect(values.layer->words, values.layer->feet, true);
  if (values.vertical)
    expect(values.vertical->words, values.vertical->feet, true);
  return compared;
}

bool hold(const ElementValues& values, const std::pair<qsizetype, qsizetype>& painted) {
  const auto isIn = [&](const Words& words) { return holds(words, painted); };
  return (values.visibility && isIn(values.visibility->words)) ||
         std::ranges::any_of(values.runwayRanges, isIn, &RunwayRange::words) ||
         std::ranges::any_of(values.clouds, isIn);
}

/// All values that a report tells, of now and of later times.
std::vector<ElementValues> valuesIn(const SampleReport& report, const QString& text) {
  const QDateTime now = report.issued.isValid() ? report.issued : inUtc({2026, 8, 22}, {6, 0});
  std::vector<ElementValues> all;
  std::vector<ForecastSlice> slices;
  if (report.isForecast) {
    slices = readTaf(text, now).value_or(Taf()).slices;
  } else {
    MetarReading metar = readMetar(text, now).value_or(MetarReading());
    all.push_back(metar.values);
    slices = std::move(metar.slices);
  }
  for (const ForecastSlice& slice : slices)
    all.push_back(slice.values);
  return all;
}

TEST(ValuesAndColours, AreTheSameInEverySample) {
  int compared = 0;
  for (const SampleReport& report : sampleReports()) {
    // The colouring takes figures for a visibility between two blanks.
    const QString text = report.text + u' ';
    const std::vector<ElementValues> all = valuesIn(report, text);
    for (const ElementValues& values : all)
      compared += compare(text, values);

    // And nothing else stands out, however high the limits are, but times in notes, and what the remarks say.
    const qsizetype remarks = text.indexOf(u" RMK");
    const Words told{0, remarks < 0 ? text.size() : remarks};
    for (const auto& painted : paintedIn(text, told, 32767, 32767)) {
      const QStringView before = wordBefore(text, painted.first);
      const bool isNote = before == u"COR" || before == u"AFT" || before == u"RTD";
      const bool isValue =
          std::ranges::any_of(all, [&](const auto& values) { return hold(values, painted); });
      EXPECT_NE(isNote, isValue) << painted.first << " of " << text.toStdString();
    }
  }
  EXPECT_GT(compared, 0);
}

} // namespace
