// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "pictures/meteogram.h"

#include "base/text.h"
#include "base/utc.h"
#include "reports/forecast_at.h"
#include "sun/positions.h"
#include "sun/sun_times.h"

#include <algorithm>
#include <map>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 hour = 3600;

/// The time of HHMM in Japan on a date; an hour may lie beyond 24.
QDateTime timeInJapan(QDate date, QStringView time) {
  constexpr qint64 ahead = 9 * hour;
  const qint64 seconds = qint64(time.first(2).toInt() * 60 + time.sliced(2).toInt()) * 60;
  return inUtc(date, QTime(0, 0)).addSecs(seconds - ahead);
}

QDateTime fullHour(const QDateTime& time) {
  return inUtc(time.date(), QTime(time.time().hour(), 0));
}

/// Wind, visibility, weather, ceiling, temperatures and QNH in their own words; a ceiling that cannot be told
/// is that of its group, such as BKN///.
QStringList wordsOf(QStringView text, const ElementValues& values) {
  const auto in = [text](const Words* words) { return words ? words->in(text).toString() : QString(); };
  const auto of = [&in](const auto& element) { return in(element ? &element->words : nullptr); };
  QString visibility = in(values.visibilityWords());
  if (values.directional)
    visibility += u' ' + in(&*values.directional);
  return {of(values.wind),           visibility.trimmed(),    joinedWords(text, values.weather),
          in(values.ceilingWords()), of(values.temperatures), of(values.pressure)};
}

} // namespace

std::vector<Night> nightsBetween(const QString& code, const QDateTime& from, const QDateTime& to) {
  std::vector<Night> nights;
  const FieldPosition* field = findCoded(code);
  if (!field)
    return nights;
  const auto at = [field](QDate date, auto timeOf) {
    return timeInJapan(date,
                       timeOf(date.year(), date.month(), date.day(), field->latitude, field->longitude));
  };
  for (QDate date = from.date().addDays(-1); date <= to.date().addDays(1); date = date.addDays(1)) {
    const Night night{std::max(at(date, SunsetTime), from), std::min(at(date.addDays(1), SunriseTime), to)};
    if (night.from < night.to)
      nights.push_back(night);
  }
  return nights;
}

namespace {

/// Why a forecast does not tell of the time behind `now`; empty where it does.
QString noteOf(const QString& text, const std::optional<Taf>& forecast, const QDateTime& now) {
  if (!forecast)
    return text.trimmed().isEmpty() ? u"NO TAF"_s : u"TAF NOT READ"_s;
  if (forecast->state == Taf::State::Missing)
    return u"TAF NIL"_s;
  if (forecast->state == Taf::State::Cancelled)
    return u"TAF CNL"_s;
  return forecast->to > now ? QString() : u"TAF EXPIRED"_s;
}

} // namespace

Meteogram meteogramOf(const StationCode& code, const QStringList& metars, const QString& taf,
                      const QDateTime& now, const Limits& limits) {
  constexpr qint64 past = 24 * hour;
  constexpr qint64 ahead = 30 * hour;
  constexpr qint64 withoutTaf = 6 * hour;
  Meteogram meteogram{.code = code, .now = now, .to = now.addSecs(withoutTaf), .limits = limits};
  std::map<QDateTime, Observed> observed;
  for (const QString& text : metars) {
    const std::optional<MetarReading> metar = readMetar(text, now);
    if (metar && metar->observed >= now.addSecs(-past) && metar->observed <= now.addSecs(hour))
      observed.insert_or_assign(metar->observed, Observed{metar->observed, text, metar->values});
  }
  for (auto& [time, report] : observed)
    meteogram.observed.push_back(std::move(report));
  const std::optional<Taf> forecast = readTaf(taf, now);
  meteogram.tafNote = noteOf(taf, forecast, now);
  if (meteogram.tafNote.isEmpty()) {
    meteogram.tafText = taf;
    const auto isUnread = [](const ForecastSlice& slice) { return !slice.values.unread.empty(); };
    if (!forecast->unread.empty() || std::ranges::any_of(forecast->slices, isUnread))
      meteogram.tafNote = u"TAF UNREAD"_s;
    meteogram.taf = forecast->slices;
    meteogram.to = std::min(forecast->to, now.addSecs(ahead));
    std::erase_if(meteogram.taf,
                  [&](const ForecastSlice& slice) { return slice.to <= now || slice.from >= meteogram.to; });
  }
  meteogram.from = fullHour(meteogram.observed.empty() ? now : meteogram.observed.front().time);
  meteogram.to = fullHour(meteogram.to.addSecs(hour - 1));
  meteogram.knowsNights = findCoded(code.text()) != nullptr;
  meteogram.nights = nightsBetween(code.text(), meteogram.from, meteogram.to);
  return meteogram;
}

QString kindOf(const ForecastSlice& slice) {
  switch (slice.kind) {
  case SliceKind::Prevailing:
    return u"TAF"_s;
  case SliceKind::From:
    return u"FM"_s;
  case SliceKind::Becoming:
    return u"BECMG"_s;
  case SliceKind::Tempo:
    return u"TEMPO"_s;
  case SliceKind::Prob:
  case SliceKind::ProbTempo:
    break;
  }
  const QString probability = u"PROB"_s + QString::number(slice.probability);
  return slice.kind == SliceKind::Prob ? probability : probability + u" TEMPO";
}

std::vector<MeteogramRow> meteogramRows(const Meteogram& meteogram, const SettingsRecord& settings) {
  std::vector<MeteogramRow> rows;
  for (const Observed& report : meteogram.observed)
    rows.push_back({displayedTime(report.time, settings), u"METAR"_s, wordsOf(report.text, report.values)});
  for (const ForecastSlice& slice : meteogram.taf) {
    rows.push_back({displayedTime(slice.from, settings) + u" - " + displayedTime(slice.to, settings),
                    kindOf(slice), wordsOf(meteogram.tafText, slice.values)});
  }
  return rows;
}

QString meteogramText(const Meteogram& meteogram, const SettingsRecord& settings) {
  if (meteogram.isEmpty())
    return u"NO REPORT" + crlf;
  std::vector<QStringList> lines(1);
  for (const QStringView heading : meteogramHeadings)
    lines[0] += heading.toString();
  for (const MeteogramRow& row : meteogramRows(meteogram, settings))
    lines.push_back(QStringList{row.time, row.kind} + row.words);
  std::array<qsizetype, meteogramHeadings.size()> widths{};
  for (const QStringList& line : lines) {
    for (size_t i = 0; i < widths.size(); ++i)
      widths[i] = std::max(widths[i], line[qsizetype(i)].size());
  }
  QString text;
  for (const QStringList& line : lines) {
    QString padded;
    for (size_t i = 0; i < widths.size(); ++i)
      padded += line[qsizetype(i)].leftJustified(widths[i] + 2);
    while (padded.endsWith(u' '))
      padded.chop(1);
    text += padded + crlf;
  }
  if (!meteogram.tafNote.isEmpty())
    text += meteogram.tafNote + crlf;
  return text;
}

QString noteAt(const Meteogram& meteogram, const QDateTime& time) {
  const auto away = [&](const Observed& report) { return std::abs(report.time.secsTo(time)); };
  const auto nearest = std::ranges::min_element(meteogram.observed, {}, away);
  if (nearest != meteogram.observed.end() && time <= meteogram.now && away(*nearest) < hour)
    return reportOn(nearest->text);
  QStringList lines;
  for (const ForecastSlice& slice : meteogram.taf) {
    const QString words = slice.words.in(meteogram.tafText).toString().simplified();
    if (slice.from <= time && slice.to > time && !lines.contains(words))
      lines += words;
  }
  return lines.join(u'\n');
}

} // namespace soran
