// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desk/verdict.h"

#include <algorithm>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

QString nameOf(LimitedElement element) {
  switch (element) {
  case LimitedElement::Visibility:
    return u"VIS"_s;
  case LimitedElement::RunwayRange:
    return u"RVR"_s;
  case LimitedElement::Ceiling:
    return u"CIG"_s;
  case LimitedElement::Wind:
    return u"WIND"_s;
  case LimitedElement::Gust:
    return u"GUST"_s;
  case LimitedElement::Crosswind:
    return u"XWIND"_s;
  case LimitedElement::Weather:
    break;
  }
  return u"WX"_s;
}

Finding findingOf(const Crossing& crossing, QStringView text) {
  return {.element = nameOf(crossing.element),
          .words = crossing.words.in(text).toString(),
          .value = double(crossing.value),
          .limit = double(crossing.limit),
          .level = crossing.condition,
          .above = crossing.isAbove()};
}

/// The worst of each element, the worst first.
std::vector<Finding> findingsOf(std::vector<Crossing> crossed, QStringView text) {
  const auto worseFirst = [](const Crossing& one, const Crossing& other) { return isWorse(one, other); };
  std::ranges::stable_sort(crossed, worseFirst);
  std::vector<Finding> findings;
  for (const Crossing& crossing : crossed) {
    if (std::ranges::find(findings, nameOf(crossing.element), &Finding::element) == findings.end())
      findings.push_back(findingOf(crossing, text));
  }
  return findings;
}

/// The elements that have a value. A runway visual range is reported where one or the visibility is less
/// than 1500 m (ICAO Annex 3, 4.3.6.3), so that above it none means none.
QStringList toldBy(const ElementValues& values) {
  constexpr int reportedBelow = 1500;
  QStringList told;
  // What cannot be read may be any of them.
  if (!values.unread.empty())
    return told;
  if (values.tellsVisibility())
    told += nameOf(LimitedElement::Visibility);
  const bool needsNoRange = values.cavok || (values.visibility && values.visibility->metres >= reportedBelow);
  if (!values.runwayRanges.empty() || needsNoRange)
    told += nameOf(LimitedElement::RunwayRange);
  if (values.tellsCeiling())
    told += nameOf(LimitedElement::Ceiling);
  // Without a gust in its group a wind has none.
  if (values.wind && values.wind->speed)
    told += {nameOf(LimitedElement::Wind), nameOf(LimitedElement::Gust)};
  if (values.wind && values.wind->speed && (values.wind->direction || values.wind->isVariable))
    told += nameOf(LimitedElement::Crosswind);
  if (values.tellsWeather())
    told += nameOf(LimitedElement::Weather);
  return told;
}

bool touches(const ForecastSlice& slice, const QDateTime& from, const QDateTime& to) {
  return slice.to > from && slice.from < to;
}

Verdict verdictOf(const ElementValues& values, QStringView text, const Limits& limits) {
  return {findingsOf(crossings(values, text, limits), text), toldBy(values)};
}

/// What the slices that touch the time say.
Verdict verdictOf(const Forecast& forecast, const QDateTime& from, const QDateTime& to,
                  const Limits& limits) {
  Verdict verdict;
  std::vector<Crossing> crossed;
  for (const ForecastSlice& slice : forecast.slices) {
    if (!touches(slice, from, to))
      continue;
    std::ranges::copy(crossings(slice.values, forecast.text, limits), std::back_inserter(crossed));
    verdict.told += toldBy(slice.values);
  }
  verdict.told.removeDuplicates();
  verdict.findings = findingsOf(std::move(crossed), forecast.text);
  return verdict;
}

/// The changes that the trend of a METAR tells, each with the elements that it names alone: the others are
/// those of the observation.
std::vector<ForecastSlice> changesOf(const MetarReading& metar, QStringView text) {
  std::vector<ForecastSlice> changes = metar.slices;
  std::erase_if(changes, [&](const ForecastSlice& slice) {
    return slice.kind == SliceKind::Prevailing && slice.from == metar.observed;
  });
  for (ForecastSlice& change : changes)
    change.values = readElements(text, change.words);
  return changes;
}

/// Whether an element with a limit has no value.
bool lacksLimited(const QStringList& told, const Limits& limits) {
  const auto isMissing = [&told](LimitedElement element) { return !told.contains(nameOf(element)); };
  return std::ranges::any_of(limits.conditions, [&](const std::optional<ConditionLimits>& condition) {
    return condition && ((condition->wind && isMissing(LimitedElement::Wind)) ||
                         (condition->gust && isMissing(LimitedElement::Gust)) ||
                         (condition->crosswind && isMissing(LimitedElement::Crosswind)) ||
                         (!condition->weather.isEmpty() && isMissing(LimitedElement::Weather)));
  });
}

QDateTime endOfBoard(const QDateTime& now) {
  return now.addSecs(qint64(outlookHours.back()) * 3600);
}

TafState stateOf(const std::optional<Taf>& taf, const QDateTime& now) {
  if (!taf)
    return TafState::Unread;
  if (taf->state != Taf::State::InForce)
    return taf->state == Taf::State::Cancelled ? TafState::Cancelled : TafState::Missing;
  if (taf->to <= now)
    return TafState::Expired;
  return taf->unread.empty() ? TafState::InForce : TafState::Unread;
}

} // namespace

Verdict observationVerdict(QStringView text, const Limits& limits) {
  return verdictOf(readElements(text, observationIn(text)), text, limits);
}

Verdict metarVerdict(QStringView text, const QDateTime& now, const Limits& limits) {
  Verdict verdict = observationVerdict(text, limits);
  const std::optional<MetarReading> metar = readMetar(text, now);
  const bool tells =
      metar && (metar->hasTrend || metar->values.tellsVisibility() || metar->values.tellsCeiling());
  if (verdict.told.isEmpty() || !tells)
    return verdict;
  const Verdict trend = verdictOf({text, changesOf(*metar, text)}, now, endOfBoard(now), limits);
  const auto named = [](const QString& element) { return QString(u"TREND "_s + element); };
  for (Finding finding : trend.findings) {
    finding.element = named(finding.element);
    verdict.findings.push_back(finding);
  }
  // A report without a trend takes back that of the one before.
  for (const LimitedElement element : allLimitedElements)
    verdict.told += named(nameOf(element));
  return verdict;
}

Verdict tafVerdict(QStringView text, const QDateTime& now, const Limits& limits) {
  const std::optional<Taf> taf = readTaf(text, now);
  if (!taf)
    return {};
  Verdict verdict = verdictOf({text, taf->slices}, now, endOfBoard(now), limits);
  if (stateOf(taf, now) != TafState::InForce)
    verdict.told.clear();
  return verdict;
}

std::optional<Outlook> worstOutlook(std::span<const Forecast> forecasts, const QDateTime& from,
                                    const QDateTime& to, const Limits& limits) {
  std::optional<Outlook> outlook;
  Crossing worst;
  for (const Forecast& forecast : forecasts) {
    for (const ForecastSlice& slice : forecast.slices) {
      if (!touches(slice, from, to))
        continue;
      const std::vector<Crossing> crossed = crossings(slice.values, forecast.text, limits);
      const Crossing* crossing = worstOf(crossed);
      if (!crossing || (outlook && !isWorse(*crossing, worst)))
        continue;
      worst = *crossing;
      outlook = Outlook{findingOf(worst, forecast.text), std::max(slice.from, from)};
    }
  }
  return outlook;
}

BoardRow boardRow(const StationCode& code, const BoardReports& reports, const Limits& limits,
                  const QDateTime& now) {
  BoardRow row{.code = code, .metar = reports.metar, .time = reports.time};
  if (reports.time.isValid()) {
    row.isSpecial = reports.isSpecial.value_or(!isRoutine(reports.time));
    row.values = readElements(row.metar, observationIn(row.metar));
    row.runwayWind = runwayWind(row.values, limits.runways);
    row.before = readElements(reports.before, observationIn(reports.before));
    row.freshness = freshnessOf(reports.times, reports.watchedSince, now);
    Verdict verdict = verdictOf(row.values, row.metar, limits);
    row.findings = std::move(verdict.findings);
    row.lacksLimited = lacksLimited(verdict.told, limits);
  }
  const std::optional<Taf> taf = readTaf(reports.taf, now);
  if (!reports.taf.isEmpty())
    row.taf = stateOf(taf, now);
  const std::optional<MetarReading> metar = readMetar(row.metar, now);
  const std::vector<ForecastSlice> none;
  const Forecast forecasts[] = {{row.metar, metar ? changesOf(*metar, row.metar) : none},
                                {reports.taf, taf ? taf->slices : none}};
  for (size_t i = 0; i < outlookHours.size(); ++i)
    row.outlook[i] = worstOutlook(forecasts, now, now.addSecs(qint64(outlookHours[i]) * 3600), limits);
  return row;
}

} // namespace soran
