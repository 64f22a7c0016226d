// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/plain_values.h"

#include "base/report_rules.h"
#include "base/utc.h"
#include "reports/group_shapes.h"
#include "reports/runway_wind.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

QJsonValue whole(const std::optional<int>& number) {
  return number ? QJsonValue(*number) : QJsonValue();
}

QJsonValue knots(const std::optional<Speed>& speed, SpeedUnit unit) {
  return speed ? QJsonValue(int(std::lround(inKnots(*speed, unit)))) : QJsonValue();
}

/// 9999 and CAVOK say 10 km and more.
std::optional<int> metresOf(const ElementValues& values) {
  const std::optional<int> metres = values.visibilityMetres();
  return metres == tenKilometresAndMore ? tenKilometresAndMore + 1 : metres;
}

/// What stands behind the observation, up to the remarks.
QJsonValue trendOf(QStringView text) {
  const QString behind = text.sliced(observationIn(text).end()).toString().section(u'=', 0, 0).simplified();
  // Another report may follow in the same text.
  const bool isNone = behind.startsWith(u"RMK") || hasShape(behind.section(u' ', 0, 0), {u"######Z"});
  const QString trend = isNone ? QString() : behind.section(u" RMK"_s, 0, 0);
  return trend.isEmpty() ? QJsonValue() : QJsonValue(trend);
}

QJsonValue pressureJson(const std::optional<Pressure>& pressure) {
  return pressure ? QJsonValue(std::round(pressure->hectopascals * 10) / 10) : QJsonValue();
}

/// The value that a limit of that name is for, as it is compared; nothing where it is not known.
std::optional<int> comparedValue(const ElementValues& values, const QString& name) {
  if (name == u"vis_m")
    return metresOf(values);
  if (name == u"ceiling_ft")
    return values.ceiling() ? std::optional(values.ceiling()->feet) : std::nullopt;
  if (!values.wind)
    return std::nullopt;
  const std::optional<Speed>& speed = name == u"gust_kt" ? values.wind->gust : values.wind->speed;
  return speed ? std::optional(int(std::lround(comparedKnots(*speed, values.wind->unit)))) : std::nullopt;
}

bool isOfWind(const QString& name) {
  return name.endsWith(u"_kt");
}

} // namespace

QJsonValue minuteJson(const QDateTime& time) {
  return time.isValid() ? QJsonValue(time.toUTC().toString(u"yyyy-MM-ddTHH:mm"_s) + u'Z') : QJsonValue();
}

QDateTime minuteOf(const QString& text, const QString& name) {
  const QDateTime time = QDateTime::fromString(text, Qt::ISODate);
  if (!time.isValid() || text.size() < 16)
    throw InputError(u"field \"" + name + u"\" is not a time such as 2026-11-24T05:30Z");
  return time.timeSpec() == Qt::LocalTime ? inUtc(time.date(), time.time()) : time.toUTC();
}

QJsonArray textsOf(const std::vector<Words>& stretches, QStringView text) {
  QJsonArray texts;
  for (const Words& stretch : stretches)
    texts.append(stretch.in(text).toString());
  return texts;
}

QJsonObject plainElements(const ElementValues& values, QStringView text) {
  const Wind wind = values.wind.value_or(Wind());
  const Ceiling* ceiling = values.ceiling();
  return {{u"wind_dir"_s, wind.isVariable ? QJsonValue(u"VRB"_s) : whole(wind.direction)},
          {u"wind_kt"_s, knots(wind.speed, wind.unit)},
          {u"gust_kt"_s, knots(wind.gust, wind.unit)},
          {u"vis_m"_s, whole(metresOf(values))},
          {u"weather"_s, textsOf(values.weather, text)},
          {u"ceiling_ft"_s, ceiling && !ceiling->isHeightMissing ? QJsonValue(ceiling->feet) : QJsonValue()}};
}

QString metarKind(const QDateTime& time, std::optional<bool> isSpecial) {
  return isSpecial.value_or(!isRoutine(time)) ? u"SPECI"_s : u"METAR"_s;
}

QJsonObject plainReport(const MetarReading& metar, QStringView text) {
  const ElementValues& values = metar.values;
  const Temperatures temperatures = values.temperatures.value_or(Temperatures());
  const RunwayRange* range = values.leastRunwayRange();
  QJsonObject report = plainElements(values, text);
  report[u"code"_s] = metar.station ? QJsonValue(metar.station->in(text).toString()) : QJsonValue();
  report[u"kind"_s] = metarKind(metar.observed, metar.isSpecial);
  report[u"time"_s] = minuteJson(metar.observed);
  report[u"rvr_m"_s] = range ? QJsonValue(range->metres) : QJsonValue();
  report[u"temp_c"_s] = whole(temperatures.air);
  report[u"dew_c"_s] = whole(temperatures.dewPoint);
  report[u"qnh_hpa"_s] = pressureJson(values.pressure);
  report[u"trend"_s] = trendOf(text);
  std::vector<Words> unread = values.unread;
  for (const Words& part : metar.unread) {
    if (std::ranges::find(unread, part) == unread.end())
      unread.push_back(part);
  }
  if (!unread.empty())
    report[u"unread"_s] = textsOf(unread, text);
  return report;
}

QStringList hitsOf(const ElementValues& values, const QList<PlainLimit>& limits) {
  QStringList hits;
  for (const auto& [name, limit] : limits) {
    const std::optional<int> value = comparedValue(values, name);
    if (value && (isOfWind(name) ? *value > limit : *value < limit))
      hits.append(name);
  }
  return hits;
}

bool knowsAll(const ElementValues& values, const QList<PlainLimit>& limits) {
  return std::ranges::all_of(limits, [&](const PlainLimit& limit) {
    return limit.name == u"vis_m"        ? values.tellsVisibility()
           : limit.name == u"ceiling_ft" ? values.tellsCeiling()
                                         : values.wind && values.wind->speed;
  });
}

bool isNear(const ElementValues& values, const QList<PlainLimit>& limits) {
  constexpr double quarter = 0.25;
  for (const auto& [name, limit] : limits) {
    const std::optional<int> value = comparedValue(values, name);
    if (value && std::abs(*value - limit) <= limit * quarter)
      return true;
  }
  return false;
}

QString plainNameOf(const QString& element) {
  constexpr std::pair<QStringView, QStringView> names[] = {
      {u"VIS", u"vis_m"},    {u"RVR", u"rvr_m"},  {u"CIG", u"ceiling_ft"},     {u"WIND", u"wind_kt"},
      {u"GUST", u"gust_kt"}, {u"WX", u"weather"}, {u"XWIND", u"crosswind_kt"},
  };
  QString plain = element.section(u' ', -1);
  for (const auto& [logged, name] : names) {
    if (logged == plain)
      return name.toString();
  }
  return plain;
}

} // namespace soran
