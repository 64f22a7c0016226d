// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/text.h"
#include "base/utc.h"
#include "reports/group_shapes.h"
#include "reports/group_walk.h"
#include "reports/slice_builder.h"

namespace soran {

namespace {

constexpr int secondsOfTrend = 2 * 3600;

/// The first time of that hour and minute from `start` on, within the trend; hour 24 is the end of the day.
QDateTime timeIn(QStringView figures, const QDateTime& start) {
  const int hour = leadingInteger(figures.first(2));
  const int minute = leadingInteger(figures.sliced(2));
  const QTime time(hour == 24 ? 0 : hour, minute);
  if (!time.isValid() || (hour == 24 && minute != 0))
    return {};
  QDateTime at = inUtc(start.date(), time);
  if (at < start)
    at = at.addDays(1);
  return at <= start.addSecs(secondsOfTrend) ? at : QDateTime();
}

/// Takes FM, TL and AT behind the word of a change. Gives the first group that is none of them.
std::optional<Words> takeTimes(QStringView text, GroupWalk& walk, ForecastPart& part,
                               const QDateTime& observed) {
  std::optional<Words> group = walk.next();
  for (; group && hasShape(group->in(text), {u"FM####", u"TL####", u"AT####"}); group = walk.next()) {
    const QStringView word = group->in(text);
    const QDateTime time = timeIn(word.sliced(2), observed);
    if (!word.startsWith(u"TL"))
      part.from = time;
    if (!word.startsWith(u"FM"))
      part.to = time;
    part.words.length = group->end() - part.words.start;
  }
  return group;
}

} // namespace

std::optional<MetarReading> readMetar(QStringView text, const QDateTime& now) {
  const std::optional<ReportHeading> heading = readHeading(text, now);
  if (!heading)
    return std::nullopt;
  const Words observation = observationIn(text);
  MetarReading metar{.station = heading->station,
                     .observed = heading->time,
                     .isSpecial = heading->isSpecial,
                     .values = readElements(text, observation)};
  const QDateTime end = metar.observed.addSecs(secondsOfTrend);
  GroupWalk walk(text, {observation.end(), text.size() - observation.end()});
  std::optional<Words> group = walk.next();
  SliceBuilder builder(text, metar.observed, end, metar.values, observation);
  while (group && group->in(text) != u"RMK") {
    const QStringView word = group->in(text);
    metar.hasTrend = metar.hasTrend || endsObservation(word);
    if (word != u"BECMG" && word != u"TEMPO") {
      group = walk.next();
      continue;
    }
    ForecastPart part{.kind = word == u"BECMG" ? SliceKind::Becoming : SliceKind::Tempo,
                      .from = metar.observed,
                      .to = end,
                      .words = *group};
    group = takeTimes(text, walk, part, metar.observed);
    part.content = {part.words.end(), 0};
    for (; group && !endsObservation(group->in(text)); group = walk.next())
      part.content.length = group->end() - part.content.start;
    part.words.length = part.content.end() - part.words.start;
    builder.add(part);
  }
  if (metar.hasTrend)
    metar.slices = builder.takeSlices();
  metar.unread = builder.takeUnread();
  return metar;
}

} // namespace soran
