// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/slice_builder.h"

#include "base/text.h"
#include "reports/group_shapes.h"
#include "reports/group_walk.h"
#include "reports/raw_lines.h"
#include "reports/station_text.h"

#include <algorithm>

namespace soran {

SliceBuilder::SliceBuilder(QStringView text, const QDateTime& from, const QDateTime& to, ElementValues values,
                           const Words& words)
    : text_(text), from_(from), to_(to), changed_(from), unread_(values.unread) {
  slices_.push_back({SliceKind::Prevailing, 0, from, to, std::move(values), words});
}

void SliceBuilder::add(const ForecastPart& part) {
  ElementValues values = isInTime(part) ? readElements(text_, part.content) : ElementValues();
  if (!values.isEmpty())
    unread_.insert(unread_.end(), values.unread.begin(), values.unread.end());
  if (values.isEmpty()) {
    unread_.push_back(part.words);
    return;
  }
  if (part.kind == SliceKind::From)
    beginAnew(part, std::move(values));
  else if (part.kind == SliceKind::Becoming)
    change(part, values);
  else
    slices_.push_back({part.kind, part.probability, part.from, part.to, std::move(values), part.words});
}

bool SliceBuilder::isInTime(const ForecastPart& part) const {
  if (!part.from.isValid())
    return false;
  if (part.kind == SliceKind::From)
    return part.from >= changed_ && part.from < to_;
  if (!part.to.isValid() || part.to < part.from || part.from >= to_)
    return false;
  // A change that has come to its end ahead of the one before it tells of no order that could be kept.
  if (part.kind == SliceKind::Becoming)
    return part.to >= slices_[prevailing_].from;
  return part.to > part.from && part.to > from_;
}

void SliceBuilder::beginAnew(const ForecastPart& part, ElementValues values) {
  for (ForecastSlice& slice : slices_) {
    if (!slice.isTemporary() && slice.to > part.from)
      slice.to = part.from;
  }
  changed_ = part.from;
  prevailing_ = slices_.size();
  slices_.push_back({SliceKind::From, 0, part.from, to_, std::move(values), part.words});
}

void SliceBuilder::change(const ForecastPart& part, const ElementValues& values) {
  changed_ = std::max(changed_, part.from);
  ElementValues merged = mergedOver(prevailing().values, values);
  prevailing().to = std::min(part.to, to_);
  slices_.push_back({SliceKind::Becoming, 0, part.from, std::min(part.to, to_), merged, part.words});
  prevailing_ = slices_.size();
  slices_.push_back({SliceKind::Prevailing, 0, part.to, to_, std::move(merged), part.words});
}

std::vector<ForecastSlice> SliceBuilder::takeSlices() {
  std::erase_if(slices_, [](const ForecastSlice& slice) { return slice.from >= slice.to; });
  std::ranges::stable_sort(slices_, {}, &ForecastSlice::from);
  return std::move(slices_);
}

namespace {

/// The time of a group DDHHMMZ of a report that is out: no report is of a time to come, but for clocks that
/// differ.
QDateTime timeBefore(QStringView group, const QDateTime& now) {
  constexpr qint64 secondsAhead = 3600;
  const QDateTime time = timeNear(group, now);
  return time.isValid() && time > now.addSecs(secondsAhead) ? timeNear(group, time.addMonths(-1)) : time;
}

} // namespace

std::optional<ReportHeading> readHeading(QStringView text, const QDateTime& now) {
  ReportHeading heading;
  const QDateTime written = timeOfWriting(text);
  const QDateTime& reference = written.isValid() ? written : now;
  std::optional<Words> before;
  GroupWalk walk(text, {0, text.size()});
  while (const std::optional<Words> group = walk.next()) {
    const QStringView word = group->in(text);
    if (heading.time = timeBefore(word, reference); heading.time.isValid()) {
      if (before && before->length == 4 && std::ranges::all_of(before->in(text), isAsciiLetter))
        heading.station = before;
      heading.behind = {group->end(), text.size() - group->end()};
      return heading;
    }
    heading.isAmended = heading.isAmended || word == u"AMD";
    heading.isCorrected = heading.isCorrected || word == u"COR";
    if (word == u"SPECI" || word == u"METAR")
      heading.isSpecial = word == u"SPECI";
    before = group;
  }
  return std::nullopt;
}

} // namespace soran
