// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/batch_forecast.h"

#include "delivered.h"
#include "desk/verdict.h"
#include "reports/forecast_at.h"

namespace soran {

using namespace Qt::StringLiterals;

namespace {

QJsonValue json(const Words& words) {
  return QJsonArray{words.start, words.length};
}

QJsonValue json(const std::vector<Words>& list) {
  QJsonArray array;
  for (const Words& words : list)
    array.append(json(words));
  return array;
}

QJsonValue json(const QDateTime& time) {
  return time.isValid() ? QJsonValue(time.toString(Qt::ISODate)) : QJsonValue();
}

QJsonValue json(const std::optional<int>& number) {
  return number ? QJsonValue(*number) : QJsonValue();
}

QString json(Bound bound) {
  return bound == Bound::Exact ? u"exact"_s : bound == Bound::Below ? u"below"_s : u"above"_s;
}

QJsonValue json(const std::optional<Speed>& speed) {
  return speed ? QJsonValue(QJsonObject{{u"value"_s, speed->value}, {u"bound"_s, json(speed->bound)}})
               : QJsonValue();
}

QString json(SpeedUnit unit) {
  return unit == SpeedUnit::Knots ? u"KT"_s : unit == SpeedUnit::MetresPerSecond ? u"MPS"_s : u"KMH"_s;
}

QJsonObject json(const Wind& wind) {
  return {{u"direction"_s, json(wind.direction)}, {u"variable"_s, wind.isVariable},
          {u"speed"_s, json(wind.speed)},         {u"gust"_s, json(wind.gust)},
          {u"unit"_s, json(wind.unit)},           {u"words"_s, json(wind.words)}};
}

QJsonObject json(const WindSector& sector) {
  return {{u"from"_s, sector.from}, {u"to"_s, sector.to}, {u"words"_s, json(sector.words)}};
}

QJsonObject json(const Visibility& visibility) {
  return {{u"metres"_s, visibility.metres},
          {u"bound"_s, json(visibility.bound)},
          {u"words"_s, json(visibility.words)}};
}

QJsonObject json(const RunwayRange& range) {
  return {{u"runway"_s, json(range.runway)},
          {u"metres"_s, range.metres},
          {u"bound"_s, json(range.bound)},
          {u"tendency"_s, range.tendency.isNull() ? QJsonValue() : QJsonValue(QString(range.tendency))},
          {u"words"_s, json(range.words)}};
}

QJsonObject json(const Ceiling& ceiling) {
  return {{u"feet"_s, ceiling.isHeightMissing ? QJsonValue() : QJsonValue(ceiling.feet)},
          {u"words"_s, json(ceiling.words)}};
}

QJsonObject json(const Temperatures& temperatures) {
  return {{u"air"_s, json(temperatures.air)},
          {u"dewPoint"_s, json(temperatures.dewPoint)},
          {u"words"_s, json(temperatures.words)}};
}

QJsonObject json(const Pressure& pressure) {
  return {{u"hPa"_s, pressure.hectopascals}, {u"words"_s, json(pressure.words)}};
}

/// The elements that are told; one that is not has no field.
QJsonObject json(const ElementValues& values) {
  QJsonObject object;
  const auto add = [&object](const QString& name, const auto& element) {
    if (element)
      object.insert(name, json(*element));
  };
  add(u"wind"_s, values.wind);
  add(u"sector"_s, values.sector);
  add(u"cavok"_s, values.cavok);
  add(u"visibility"_s, values.visibility);
  const RunwayRange* least = values.leastRunwayRange();
  add(u"rvr"_s, least);
  if (!values.weather.empty())
    object.insert(u"weather"_s, json(values.weather));
  add(u"nsw"_s, values.noWeather);
  if (!values.clouds.empty())
    object.insert(u"clouds"_s, json(values.clouds));
  const Ceiling* ceiling = values.ceiling();
  add(u"ceiling"_s, ceiling);
  add(u"temperatures"_s, values.temperatures);
  add(u"qnh"_s, values.pressure);
  return object;
}

QJsonArray json(const std::vector<ForecastSlice>& slices) {
  constexpr QStringView kinds[] = {u"prevailing", u"from", u"becoming", u"tempo", u"prob", u"prob_tempo"};
  QJsonArray array;
  for (const ForecastSlice& slice : slices)
    array.append(QJsonObject{{u"kind"_s, kinds[size_t(slice.kind)].toString()},
                             {u"probability"_s, slice.probability},
                             {u"from"_s, json(slice.from)},
                             {u"to"_s, json(slice.to)},
                             {u"words"_s, json(slice.words)},
                             {u"values"_s, json(slice.values)}});
  return array;
}

QJsonValue metarJson(const StationForecast& forecast) {
  if (!forecast.metar)
    return {};
  return QJsonObject{{u"observed"_s, json(forecast.metar->observed)},
                     {u"values"_s, json(forecast.metar->values)},
                     {u"trend"_s, forecast.metar->hasTrend},
                     {u"slices"_s, json(forecast.trendSlices)},
                     {u"unread"_s, json(forecast.metar->unread)}};
}

QJsonValue tafJson(const StationForecast& forecast) {
  if (!forecast.taf)
    return {};
  constexpr QStringView states[] = {u"in force", u"cancelled", u"missing"};
  return QJsonObject{{u"state"_s, states[size_t(forecast.taf->state)].toString()},
                     {u"amended"_s, forecast.taf->isAmended},
                     {u"corrected"_s, forecast.taf->isCorrected},
                     {u"issued"_s, json(forecast.taf->issued)},
                     {u"from"_s, json(forecast.taf->from)},
                     {u"to"_s, json(forecast.taf->to)},
                     {u"slices"_s, json(forecast.tafSlices)},
                     {u"unread"_s, json(forecast.taf->unread)}};
}

QJsonValue worstJson(const StationForecast& forecast) {
  if (!forecast.worst)
    return {};
  constexpr QStringView elements[] = {u"visibility", u"rvr",       u"ceiling", u"wind",
                                      u"gust",       u"crosswind", u"weather"};
  const Crossing& crossing = forecast.worst->crossing;
  return QJsonObject{{u"report"_s, forecast.worst->report == ReportKind::Taf ? u"TAF"_s : u"METAR"_s},
                     {u"slice"_s, qint64(forecast.worst->slice)},
                     {u"element"_s, elements[size_t(crossing.element)].toString()},
                     {u"condition"_s, crossing.condition},
                     {u"value"_s, crossing.value},
                     {u"limit"_s, crossing.limit},
                     {u"above"_s, crossing.isAbove()},
                     {u"words"_s, json(crossing.words)}};
}

QJsonObject json(const Finding& finding) {
  return {{u"element"_s, finding.element}, {u"group"_s, finding.words}, {u"value"_s, finding.value},
          {u"limit"_s, finding.limit},     {u"level"_s, finding.level}, {u"above"_s, finding.above}};
}

QJsonValue json(const std::optional<Outlook>& outlook) {
  if (!outlook)
    return {};
  QJsonObject object = json(outlook->worst);
  object.insert(u"begins"_s, json(outlook->begins));
  return object;
}

Limits limitsOf(const BatchJob& job, const StationCode& code) {
  static Runways runways(delivered::runways());
  return Limits::of(job.settings, job.limits, code, runways.of(code));
}

/// The station of a TAF, else of a METAR; empty where neither names one.
StationCode stationOf(const QString& metarText, const QString& tafText, const QDateTime& now) {
  const auto taf = readTaf(tafText, now);
  if (taf && taf->station)
    return StationCode(taf->station->in(tafText).toString());
  const auto metar = readMetar(metarText, now);
  return metar && metar->station ? StationCode(metar->station->in(metarText).toString()) : StationCode();
}

} // namespace

QJsonValue boardOf(BatchJob& job) {
  const StationCode code(job.fields.text(u"code"_s));
  BoardReports reports{.metar = job.fields.textOr(u"metar"_s, QString()),
                       .before = job.fields.textOr(u"before"_s, QString()),
                       .taf = job.fields.textOr(u"taf"_s, QString())};
  const QDateTime now = job.fields.localTime(u"now"_s);
  job.fields.finish();
  for (const QString& text : {reports.before, reports.metar}) {
    const std::optional<MetarReading> metar = readMetar(text, now);
    reports.time = metar ? metar->observed : QDateTime();
    reports.isSpecial = metar ? metar->isSpecial : std::nullopt;
    if (metar)
      reports.times.push_back(metar->observed);
  }
  const BoardRow row = boardRow(code, reports, limitsOf(job, code), now);
  QJsonArray findings;
  for (const Finding& finding : row.findings)
    findings.append(json(finding));
  QJsonObject outlook;
  for (size_t i = 0; i < outlookHours.size(); ++i)
    outlook.insert(QString::number(outlookHours[i]), json(row.outlook[i]));
  QJsonObject cells;
  for (int column = 0; column < boardColumnCount; ++column)
    cells.insert(headingOf(BoardColumn(column)), cellOf(row, BoardColumn(column), now));
  return QJsonObject{{u"state"_s, stateWord(row)},    {u"level"_s, row.level()},
                     {u"observed"_s, json(row.time)}, {u"values"_s, json(row.values)},
                     {u"findings"_s, findings},       {u"taf_expired"_s, row.taf == TafState::Expired},
                     {u"outlook"_s, outlook},         {u"cells"_s, cells}};
}

QJsonValue tafAt(BatchJob& job) {
  const QString metar = job.fields.textOr(u"metar"_s, QString());
  const QString taf = job.fields.textOr(u"taf"_s, QString());
  const QString time = job.fields.text(u"time"_s);
  const QDateTime now = job.fields.localTime(u"now"_s);
  job.fields.finish();
  const std::optional<QDateTime> at = nextTime(time, now, job.settings);
  if (!at)
    throw InputError(u"field \"time\" is no time such as 1430 or 0530Z"_s);
  const StationForecast forecast =
      forecastAt(metar, taf, *at, now, limitsOf(job, stationOf(metar, taf, now)));
  return QJsonObject{{u"at"_s, json(*at)},
                     {u"metar"_s, metarJson(forecast)},
                     {u"taf"_s, tafJson(forecast)},
                     {u"worst"_s, worstJson(forecast)},
                     {u"text"_s, forecastText(forecast, job.settings)}};
}

} // namespace soran
