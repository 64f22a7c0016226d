// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/forecast_at.h"

#include "base/text.h"
#include "base/utc.h"
#include "reports/group_shapes.h"
#include "reports/layout.h"

#include <algorithm>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 secondsOfHour = 3600;

/// Hours by which the displayed time is ahead of UTC.
int displayedHours(const SettingsRecord& settings) {
  return settings[key::LOCAL使用] == true ? settings.zoneOffset().hours : 0;
}

QString kindOf(const ForecastSlice& slice) {
  QString probability = u"確率 "_s + QString::number(slice.probability) + u'%';
  switch (slice.kind) {
  case SliceKind::Prevailing:
    return u"卓越する状態"_s;
  case SliceKind::From:
    return u"FM 以後の状態"_s;
  case SliceKind::Becoming:
    return u"変化の途中 (BECMG)"_s;
  case SliceKind::Tempo:
    return u"一時的 (TEMPO)"_s;
  case SliceKind::Prob:
    return probability;
  case SliceKind::ProbTempo:
    return probability + u" 一時的 (TEMPO)";
  }
  return {};
}

QString period(const QDateTime& from, const QDateTime& to, const SettingsRecord& settings) {
  return displayedTime(from, settings) + u" - " + displayedTime(to, settings);
}

QString sliceLine(const QString& text, const ForecastSlice& slice, const SettingsRecord& settings) {
  QStringList groups;
  for (const Words& words : slice.values.allWords())
    groups.append(words.in(text).toString());
  return u"      " + period(slice.from, slice.to, settings) + u"  " + kindOf(slice) + u" ： " +
         groups.join(u' ') + crlf;
}

QString unreadLines(const QString& text, const std::vector<Words>& unread) {
  QString lines;
  for (const Words& words : unread)
    lines += u"      読み取れない部分 ： " + words.in(text).toString().simplified() + crlf;
  return lines;
}

QString metarLines(const StationForecast& forecast, const SettingsRecord& settings) {
  if (!forecast.metar)
    return u"METAR  " + (forecast.metarText.isEmpty() ? u"通報なし"_s : u"読み取れません"_s) + crlf;
  const MetarReading& metar = *forecast.metar;
  QString lines =
      u"METAR  " + displayedTime(metar.observed, settings) + u" ： " + reportOn(forecast.metarText) + crlf;
  if (!metar.hasTrend)
    lines += u"      傾向予報なし" + crlf;
  else if (forecast.trendSlices.empty())
    lines += u"      傾向予報はこの時刻に及びません" + crlf;
  for (const ForecastSlice& slice : forecast.trendSlices)
    lines += sliceLine(forecast.metarText, slice, settings);
  return lines + unreadLines(forecast.metarText, metar.unread);
}

QString tafLines(const StationForecast& forecast, const SettingsRecord& settings) {
  if (!forecast.taf)
    return u"TAF  " + (forecast.tafText.isEmpty() ? u"予報なし"_s : u"読み取れません"_s) + crlf;
  const Taf& taf = *forecast.taf;
  QString lines = u"TAF  " + displayedTime(taf.issued, settings) + u" 発表";
  if (taf.state != Taf::State::InForce)
    return lines + (taf.state == Taf::State::Cancelled ? u" ： 取り消し" : u" ： 予報なし") + crlf;
  lines += u" ： 有効 " + period(taf.from, taf.to, settings) + crlf;
  if (forecast.tafSlices.empty())
    lines += u"      この時刻は有効時間の外です" + crlf;
  for (const ForecastSlice& slice : forecast.tafSlices)
    lines += sliceLine(forecast.tafText, slice, settings);
  return lines + unreadLines(forecast.tafText, taf.unread);
}

QString nameOf(LimitedElement element) {
  constexpr QStringView names[] = {u"視程", u"RVR", u"雲高", u"風速", u"突風", u"横風", u"天気"};
  return names[size_t(element)].toString();
}

/// The second line of the worst: the limit and how far beyond it.
QString limitLine(const Crossing& crossing) {
  const QString line = u"      条件" + QString::number(crossing.condition) + u" の";
  if (crossing.element == LimitedElement::Weather)
    return line + u"天気に当たる" + crlf;
  const QString unit = crossing.isAbove()                            ? u" kt"_s
                       : crossing.element == LimitedElement::Ceiling ? u" ft"_s
                                                                     : u" m"_s;
  return line + u"制限値 " + QString::number(crossing.limit) + unit + u" を " +
         QString::number(crossing.beyond()) + unit + (crossing.isAbove() ? u" 上回る" : u" 下回る") + crlf;
}

QString worstLine(const StationForecast& forecast, const SettingsRecord& settings) {
  if (forecast.trendSlices.empty() && forecast.tafSlices.empty())
    return u"最も悪い予報 ： この時刻の予報がありません" + crlf;
  if (!forecast.worst)
    return u"最も悪い予報 ： 制限値を超えるものはありません" + crlf;
  const WorstSlice& worst = *forecast.worst;
  const ForecastSlice& slice = forecast.slicesOf(worst.report)[worst.slice];
  return u"最も悪い予報 ： " + (worst.report == ReportKind::Taf ? u"TAF "_s : u"METAR 傾向予報 "_s) +
         kindOf(slice) + u' ' + period(slice.from, slice.to, settings) + u" に " +
         nameOf(worst.crossing.element) + u' ' + worst.crossing.words.in(forecast.textOf(worst.report)) +
         crlf + limitLine(worst.crossing);
}

} // namespace

QString reportOn(const QString& text) {
  const qsizetype lineEnd = text.indexOf(u'\n');
  const bool hasDate =
      hasShape(QStringView(text).first(std::min<qsizetype>(text.size(), 10)), {u"####/##/##"});
  return (hasDate && lineEnd >= 0 ? text.sliced(lineEnd + 1) : text).simplified();
}

std::vector<ForecastSlice> slicesAround(std::span<const ForecastSlice> slices, const QDateTime& at) {
  const QDateTime first = at.addSecs(-minutesAround * 60);
  const QDateTime last = at.addSecs(minutesAround * 60);
  std::vector<ForecastSlice> around;
  std::ranges::copy_if(slices, std::back_inserter(around),
                       [&](const ForecastSlice& slice) { return slice.to > first && slice.from <= last; });
  return around;
}

StationForecast forecastAt(const QString& metarText, const QString& tafText, const QDateTime& at,
                           const QDateTime& now, const Limits& limits) {
  StationForecast forecast{.at = at, .metarText = metarText, .tafText = tafText};
  forecast.metar = readMetar(metarText, now);
  forecast.taf = readTaf(tafText, now);
  if (forecast.metar)
    forecast.trendSlices = slicesAround(forecast.metar->slices, at);
  if (forecast.taf)
    forecast.tafSlices = slicesAround(forecast.taf->slices, at);
  for (const ReportKind report : {ReportKind::Metar, ReportKind::Taf}) {
    const std::vector<ForecastSlice>& slices = forecast.slicesOf(report);
    for (size_t i = 0; i < slices.size(); ++i) {
      const std::vector<Crossing> found = crossings(slices[i].values, forecast.textOf(report), limits);
      const Crossing* crossing = worstOf(found);
      if (crossing && (!forecast.worst || isWorse(*crossing, forecast.worst->crossing)))
        forecast.worst = WorstSlice{report, i, *crossing};
    }
  }
  return forecast;
}

QString forecastText(const StationForecast& forecast, const SettingsRecord& settings) {
  return metarLines(forecast, settings) + tafLines(forecast, settings) + worstLine(forecast, settings);
}

std::optional<QDateTime> nextTime(QStringView text, const QDateTime& now, const SettingsRecord& settings) {
  const bool isUtc = text.endsWith(u'Z');
  if (isUtc)
    text = text.chopped(1);
  const int hours = isUtc ? 0 : displayedHours(settings);
  if (!hasShape(text, {u"####"}))
    return std::nullopt;
  const QTime time(leadingInteger(text.first(2)), leadingInteger(text.sliced(2)));
  if (!time.isValid())
    return std::nullopt;
  QDateTime next = inUtc(now.addSecs(hours * secondsOfHour).date(), time).addSecs(-hours * secondsOfHour);
  // The minute of now is still to come.
  if (next.addSecs(60) <= now)
    next = next.addDays(1);
  return next;
}

QString displayedTime(const QDateTime& time, const SettingsRecord& settings) {
  return time.addSecs(displayedHours(settings) * secondsOfHour).toString(u"dd HHmm"_s) +
         displayedZone(settings);
}

} // namespace soran
