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

/// Adds what is worse than the finding of its element so far.
void takeWorse(std::vector<Finding>& findings, const Finding& finding) {
  const auto same = std::ranges::find(findings, finding.element, &Finding::element);
  if (same == findings.end())
    findings.push_back(finding);
  else if (isWorse(finding, *same))
    *same = finding;
}

/// The worst of each element, the worst first.
std::vector<Finding> findingsOf(const ElementValues& values, QStringView text, const Limits& limits) {
  std::vector<Finding> findings;
  for (const Crossing& crossing : crossings(values, text, limits)) {
    takeWorse(findings, {.element = nameOf(crossing.element),
                         .words = crossing.words.in(text).toString(),
                         .value = double(crossing.value),
                         .limit = double(crossing.limit),
                         .level = crossing.condition,
                         .above = crossing.isAbove()});
  }
  std::ranges::stable_sort(findings, std::ranges::greater(), &Finding::level);
  return findings;
}

} // namespace

std::vector<Finding> metarFindings(QStringView text, const Limits& limits) {
  return findingsOf(readElements(text, observationIn(text)), text, limits);
}

std::vector<Finding> tafFindings(QStringView text, const QDateTime& now, const Limits& limits) {
  std::vector<Finding> findings;
  const std::optional<Taf> taf = readTaf(text, now);
  if (!taf)
    return findings;
  for (const ForecastSlice& slice : taf->slices) {
    if (slice.to <= now)
      continue;
    for (const Finding& finding : findingsOf(slice.values, text, limits))
      takeWorse(findings, finding);
  }
  std::ranges::stable_sort(findings, std::ranges::greater(), &Finding::level);
  return findings;
}

std::optional<Outlook> worstOutlook(const Taf& taf, QStringView text, const QDateTime& from,
                                    const QDateTime& to, const Limits& limits) {
  std::optional<Outlook> worst;
  for (const ForecastSlice& slice : taf.slices) {
    if (slice.to <= from || slice.from >= to)
      continue;
    for (const Finding& finding : findingsOf(slice.values, text, limits)) {
      if (!worst || finding.level > worst->worst.level)
        worst = Outlook{finding, std::max(slice.from, from)};
    }
  }
  return worst;
}

BoardRow boardRow(const StationCode& code, const BoardReports& reports, const Limits& limits,
                  const QDateTime& now) {
  BoardRow row{.code = code, .metar = reports.metar, .time = reports.time};
  if (reports.time.isValid()) {
    const bool isRoutine = MinuteOfHour{double(reports.time.time().minute())}.isRoutine();
    row.isSpecial = reports.isSpecial.value_or(!isRoutine);
    row.values = readElements(row.metar, observationIn(row.metar));
    row.runwayWind = runwayWind(row.values, limits.runways);
    row.before = readElements(reports.before, observationIn(reports.before));
    row.freshness = freshnessOf(reports.times, reports.watchedSince, now);
    row.findings = metarFindings(row.metar, limits);
  }
  const std::optional<Taf> taf = readTaf(reports.taf, now);
  row.hasTaf = taf.has_value();
  if (!taf)
    return row;
  row.tafExpired = taf->to.isValid() && taf->to <= now;
  for (size_t i = 0; i < outlookHours.size(); ++i)
    row.outlook[i] = worstOutlook(*taf, reports.taf, now, now.addSecs(outlookHours[i] * 3600), limits);
  return row;
}

} // namespace soran
