// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desk/alarm_book.h"

#include <algorithm>

namespace soran {

namespace {

using enum AlarmEventKind;

/// The worst finding of each element.
std::map<QString, Finding> worstOfEach(std::span<const Finding> findings) {
  std::map<QString, Finding> worst;
  for (const Finding& finding : findings) {
    const auto [place, isFirst] = worst.try_emplace(finding.element, finding);
    if (!isFirst && isWorse(finding, place->second))
      place->second = finding;
  }
  return worst;
}

AlarmEvent eventOf(AlarmEventKind kind, const QString& code, const QDateTime& now) {
  return {.time = now, .kind = kind, .code = code};
}

AlarmEvent eventOf(AlarmEventKind kind, const QString& code, const QDateTime& now, ReportKind report,
                   const Finding& finding) {
  return {.time = now,
          .kind = kind,
          .code = code,
          .report = report,
          .element = finding.element,
          .words = finding.words,
          .value = finding.value,
          .limit = finding.limit,
          .level = finding.level};
}

/// Quiet hours may lie over midnight; two equal times are none.
bool isQuiet(const RingRules& rules, const QTime& local) {
  if (!rules.quietFrom.isValid() || !rules.quietTo.isValid() || rules.quietFrom == rules.quietTo)
    return false;
  if (rules.quietFrom < rules.quietTo)
    return local >= rules.quietFrom && local < rules.quietTo;
  return local >= rules.quietFrom || local < rules.quietTo;
}

} // namespace

bool isWorse(const Finding& one, const Finding& other) {
  if (one.level != other.level)
    return one.level > other.level;
  return one.above ? one.value > other.value : one.value < other.value;
}

AlarmBook::AlarmBook(std::span<const AlarmEvent> log) {
  for (const AlarmEvent& event : log)
    apply(event);
}

// The one place that changes the book, so that a log tells all of it.
void AlarmBook::apply(const AlarmEvent& event) {
  Entry& entry = entries_[event.code];
  Alarm& alarm = entry.alarm;
  if (event.kind <= Back)
    entry.happened = event.time;
  if (event.kind == Muted || event.kind == Unmuted)
    entry.mutingChanged = event.time;
  switch (event.kind) {
  case Crossed:
  case Worse:
    entry.beyond[{event.report, event.element}] = {event.value, event.level};
    alarm.state = AlarmState::Ringing;
    entry.due = true;
    break;
  case Back:
    if (event.level > 0)
      entry.beyond[{event.report, event.element}] = {event.value, event.level};
    else
      entry.beyond.erase({event.report, event.element});
    alarm.state = AlarmState::Ringing;
    entry.due = true;
    break;
  case Rang:
    alarm.lastRang = event.time;
    entry.due = false;
    break;
  case Acknowledged:
    alarm.state = entry.beyond.empty() ? AlarmState::Quiet : AlarmState::Acknowledged;
    entry.due = false;
    break;
  case Muted:
    alarm.muted = true;
    alarm.mutedUntil = event.until;
    break;
  case Unmuted:
    alarm.muted = false;
    alarm.mutedUntil = {};
    break;
  }
}

std::vector<AlarmEvent> AlarmBook::take(const StationCode& code, ReportKind report,
                                        std::span<const Finding> findings, const QStringList& told,
                                        const QDateTime& now) {
  std::vector<AlarmEvent> events;
  const std::map<QString, Finding> worst = worstOfEach(findings);
  const auto known = entries_.find(code.text());
  const auto before = known == entries_.end() ? decltype(Entry::beyond)() : known->second.beyond;
  for (const auto& [element, finding] : worst) {
    const auto was = before.find({report, element});
    if (was == before.end() || finding.level > was->second.level)
      events.push_back(eventOf(Crossed, code.text(), now, report, finding));
    else if (finding.level < was->second.level)
      events.push_back(eventOf(Back, code.text(), now, report, finding));
    else if (finding.above ? finding.value > was->second.worst : finding.value < was->second.worst)
      events.push_back(eventOf(Worse, code.text(), now, report, finding));
  }
  for (const auto& [place, beyond] : before) {
    if (place.first == report && !worst.contains(place.second) && told.contains(place.second))
      events.push_back(eventOf(Back, code.text(), now, report, {.element = place.second, .level = 0}));
  }
  std::ranges::for_each(events, [this](const AlarmEvent& event) { apply(event); });
  return events;
}

std::vector<AlarmEvent> AlarmBook::ring(const RingRules& rules, const QDateTime& now, const QTime& local) {
  std::vector<AlarmEvent> events;
  for (const auto& [code, entry] : entries_) {
    const Alarm& alarm = entry.alarm;
    const bool mutingEnds = alarm.muted && alarm.mutedUntil.isValid() && alarm.mutedUntil <= now;
    if (mutingEnds)
      events.push_back(eventOf(Unmuted, code, now));
    if ((alarm.muted && !mutingEnds) || alarm.state != AlarmState::Ringing || isQuiet(rules, local))
      continue;
    const bool repeats = rules.repeatMinutes > 0 && alarm.lastRang.isValid() &&
                         alarm.lastRang.secsTo(now) >= qint64(rules.repeatMinutes) * 60;
    if (entry.due || repeats)
      events.push_back(eventOf(Rang, code, now));
  }
  std::ranges::for_each(events, [this](const AlarmEvent& event) { apply(event); });
  return events;
}

std::vector<AlarmEvent> AlarmBook::acknowledge(const StationCode& code, const QDateTime& now) {
  if (alarmOf(code).state != AlarmState::Ringing)
    return {};
  const AlarmEvent event = eventOf(Acknowledged, code.text(), now);
  apply(event);
  return {event};
}

std::vector<AlarmEvent> AlarmBook::acknowledgeAll(const QDateTime& now) {
  std::vector<AlarmEvent> events;
  for (const StationCode& code : ringing())
    std::ranges::copy(acknowledge(code, now), std::back_inserter(events));
  return events;
}

AlarmEvent AlarmBook::mute(const StationCode& code, const QDateTime& until, const QDateTime& now) {
  AlarmEvent event = eventOf(Muted, code.text(), now);
  event.until = until;
  apply(event);
  return event;
}

std::vector<AlarmEvent> AlarmBook::unmute(const StationCode& code, const QDateTime& now) {
  if (!alarmOf(code).muted)
    return {};
  const AlarmEvent event = eventOf(Unmuted, code.text(), now);
  apply(event);
  return {event};
}

std::vector<AlarmEvent> AlarmBook::follow(const AlarmEvent& other, const QDateTime& now) {
  // What came to be known here meanwhile was not seen by the other; clocks may differ by so much.
  constexpr qint64 secondsOfClocks = 5;
  const Entry entry = entries_.contains(other.code) ? entries_.at(other.code) : Entry();
  const bool isOver = other.until.isValid() && other.until <= now;
  const bool isNewer = !entry.mutingChanged.isValid() || other.time > entry.mutingChanged;
  const bool changes = (other.kind == Acknowledged && entry.alarm.state == AlarmState::Ringing &&
                        other.time.addSecs(secondsOfClocks) >= entry.happened) ||
                       (other.kind == Muted && isNewer && !isOver) ||
                       (other.kind == Unmuted && isNewer && entry.alarm.muted);
  if (!changes)
    return {};
  apply(other);
  return {other};
}

Alarm AlarmBook::alarmOf(const StationCode& code) const {
  const auto known = entries_.find(code.text());
  return known == entries_.end() ? Alarm() : known->second.alarm;
}

std::vector<StationCode> AlarmBook::ringing() const {
  std::vector<StationCode> codes;
  for (const auto& [code, entry] : entries_) {
    if (entry.alarm.state == AlarmState::Ringing)
      codes.emplace_back(code);
  }
  return codes;
}

} // namespace soran
