// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/taf_slices.h"

#include "base/text.h"
#include "reports/group_shapes.h"
#include "reports/group_walk.h"
#include "reports/raw_lines.h"
#include "reports/slice_builder.h"

namespace soran {

namespace {

/// The time of DDHH or DDHHMM; hour 24 is the end of the day. Invalid where there is no such time.
QDateTime timeOf(QStringView figures, const QDateTime& near) {
  const int hour = leadingInteger(figures.sliced(2, 2));
  const int minute = leadingInteger(figures.sliced(4));
  const bool endsDay = hour == 24 && minute == 0;
  const QDateTime time = nearestTo(leadingInteger(figures.first(2)), QTime(endsDay ? 0 : hour, minute), near);
  return endsDay && time.isValid() ? time.addDays(1) : time;
}

/// Reads one forecast, group by group.
class TafReader {
 public:
  TafReader(QStringView text, const ReportHeading& heading)
      : text_(text), near_(heading.time), walk_(text, heading.behind) {
    taf_.station = heading.station;
    taf_.isAmended = heading.isAmended;
    taf_.isCorrected = heading.isCorrected;
    taf_.issued = heading.time;
    step();
  }

  std::optional<Taf> read();

 private:
  void step() { group_ = walk_.next(); }
  bool is(QStringView word) const { return group_ && group_->in(text_) == word; }
  bool isNext(QStringView shape) const { return group_ && hasShape(group_->in(text_), {shape}); }
  bool takeTimes(QDateTime& from, QDateTime& to);
  bool beginsPart() const;
  bool beginsDamagedPart() const;
  ForecastPart takePart();
  void takeContent(ForecastPart& part);

  QStringView text_;
  QDateTime near_; ///< the time of issue
  GroupWalk walk_;
  std::optional<Words> group_; ///< not yet taken
  Taf taf_;
};

bool TafReader::takeTimes(QDateTime& from, QDateTime& to) {
  if (!isNext(u"####/####"))
    return false;
  const QStringView times = group_->in(text_);
  from = timeOf(times.first(4), near_);
  to = timeOf(times.sliced(5), near_);
  step();
  return from.isValid() && to > from;
}

/// The head of a part that is none: without its time, with one of another form, or torn.
bool TafReader::beginsDamagedPart() const {
  return is(u"PROB") || is(u"FM") || isNext(u"FM####") || isNext(u"PROB##TEMPO") || isNext(u"PROB##INTER");
}

bool TafReader::beginsPart() const {
  return beginsDamagedPart() || isNext(u"FM######") || is(u"BECMG") || is(u"TEMPO") || is(u"INTER") ||
         isNext(u"PROB##");
}

void TafReader::takeContent(ForecastPart& part) {
  const qsizetype start = group_ ? group_->start : part.words.end();
  qsizetype end = start;
  for (; group_ && !beginsPart(); step())
    end = group_->end();
  part.content = {start, end - start};
  if (end > part.words.end())
    part.words.length = end - part.words.start;
}

ForecastPart TafReader::takePart() {
  ForecastPart part{.words = *group_};
  const auto take = [&] {
    part.words.length = group_->end() - part.words.start;
    step();
  };
  if (beginsDamagedPart()) {
    // When it is to be is not known, so that it is told among what could not be read.
    part.kind = SliceKind::Tempo;
    take();
  } else if (isNext(u"FM######")) {
    part.kind = SliceKind::From;
    part.from = timeOf(group_->in(text_).sliced(2), near_);
    take();
  } else {
    // INTER is a TEMPO of half an hour at a time, of Australia's forecasts.
    part.kind = is(u"BECMG")                   ? SliceKind::Becoming
                : is(u"TEMPO") || is(u"INTER") ? SliceKind::Tempo
                                               : SliceKind::Prob;
    if (part.kind == SliceKind::Prob)
      part.probability = leadingInteger(group_->in(text_).sliced(4));
    take();
    if (part.kind == SliceKind::Prob && (is(u"TEMPO") || is(u"INTER"))) {
      part.kind = SliceKind::ProbTempo;
      take();
    }
    if (group_)
      part.words.length = (isNext(u"####/####") ? group_->end() : part.words.end()) - part.words.start;
    takeTimes(part.from, part.to);
  }
  takeContent(part);
  return part;
}

std::optional<Taf> TafReader::read() {
  for (; is(u"AMD") || is(u"COR"); step()) {
    taf_.isAmended = taf_.isAmended || is(u"AMD");
    taf_.isCorrected = taf_.isCorrected || is(u"COR");
  }
  ForecastPart first;
  if (is(u"NIL")) {
    taf_.state = Taf::State::Missing;
    return std::move(taf_);
  }
  if (group_)
    first.words = *group_;
  if (!takeTimes(taf_.from, taf_.to))
    return std::nullopt;
  if (is(u"CNL") || is(u"NIL")) {
    taf_.state = is(u"CNL") ? Taf::State::Cancelled : Taf::State::Missing;
    return std::move(taf_);
  }
  takeContent(first);
  SliceBuilder builder(text_, taf_.from, taf_.to, readElements(text_, first.content), first.words);
  while (group_)
    builder.add(takePart());
  taf_.slices = builder.takeSlices();
  taf_.unread = builder.takeUnread();
  return std::move(taf_);
}

} // namespace

std::optional<Taf> readTaf(QStringView text, const QDateTime& now) {
  const std::optional<ReportHeading> heading = readHeading(text, now);
  return heading ? TafReader(text, *heading).read() : std::nullopt;
}

} // namespace soran
