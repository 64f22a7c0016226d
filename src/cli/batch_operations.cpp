// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/text.h"
#include "cli/batch_desk.h"
#include "cli/batch_forecast.h"
#include "cli/batch_job.h"
#include "imagery/cameras.h"
#include "imagery/chart_catalogue.h"
#include "reports/colouring.h"
#include "reports/explain_selection.h"
#include "reports/layout.h"
#include "reports/sequence.h"
#include "reports/translate_report.h"
#include "sun/sun_command.h"
#include "sun/sun_graph.h"
#include "sun/sun_table.h"
#include "sun/sun_times.h"

#include <QHash>
#include <map>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

QJsonValue layout(BatchJob& job) {
  const QString kind = job.fields.text(u"kind"_s);
  const QString response = job.fields.text(u"response"_s);
  job.fields.finish();
  if (kind != u"METAR" && kind != u"TAF")
    throw InputError(u"field \"kind\" is neither METAR nor TAF"_s);
  StationReport report;
  if (response.startsWith(u'<'))
    report.body = kind == u"METAR" ? u"      NO OBSERVATION"_s : u"      NO FORECAST"_s;
  else
    report = layoutReport(response, kind == u"METAR" ? ReportKind::Metar : ReportKind::Taf, job.settings);
  return QJsonObject{
      {u"stamp"_s, report.stamp.text()}, {u"obsTime"_s, report.obsTime}, {u"body"_s, report.body}};
}

QJsonValue translate(BatchJob& job) {
  const StationCode code(job.fields.text(u"code"_s));
  const QString time = job.fields.text(u"time"_s);
  const QString body = job.fields.text(u"body"_s);
  job.fields.finish();
  return TranslateReport(code, time, body, job.settings, *job.dictionaries);
}

QJsonValue explain(BatchJob& job) {
  const QString text = job.fields.text(u"text"_s);
  const int start = job.fields.integer(u"selStart"_s);
  const int length = job.fields.integer(u"selLength"_s);
  const QDate today = job.fields.date(u"today"_s);
  job.fields.finish();
  const std::optional<Explanation> tip =
      ExplainSelection(text, start, length, today, job.settings, *job.dictionaries);
  return tip ? QJsonValue(tip->text) : QJsonValue();
}

QJsonValue colour(BatchJob& job) {
  const QString text = job.fields.text(u"text"_s);
  const QString codes = job.fields.textOr(u"codes"_s, u" "_s);
  const QString group = job.fields.textOr(u"group"_s, QString());
  job.fields.finish();
  return runsJson(colourRuns(text, job.settings, codes, group));
}

QJsonValue sequence(BatchJob& job) {
  const StationCode code(job.fields.text(u"code"_s));
  const QString latest = job.fields.text(u"latest"_s);
  const QJsonObject given = job.fields.object(u"files"_s);
  const QTime now = job.fields.localTime(u"now"_s).time();
  const ZoneOffset zone{job.fields.integer(u"zone"_s)};
  requireShort(zone.hours, u"zone");
  job.fields.finish();

  std::map<UtcHour, CycleFile> files;
  for (auto i = given.constBegin(); i != given.constEnd(); ++i) {
    const UtcHour hour{i.key().toInt()};
    if (i.key() != twoDigits(hour.value) || hour.value < 0 || hour.value > 23 || !i.value().isString())
      throw InputError(u"field \"files\" is not an object from hours (\"00\" to \"23\") to texts"_s);
    files.emplace(hour, CycleFile(i.value().toString().toUtf8(), std::vector{code}));
  }
  bool latestShown = false;
  const std::optional<QString> latestText = latest.startsWith(u'<') ? std::nullopt : std::optional(latest);
  const SequenceBlock block = sequenceBlock(
      code, 0, latestText, sequenceHours(now, job.settings, zone),
      [&files](UtcHour hour) {
        const auto found = files.find(hour);
        return found == files.end() ? nullptr : &found->second;
      },
      job.settings, latestShown);
  return QJsonObject{{u"block"_s, block.text}, {u"retry"_s, block.missingFile}};
}

QJsonValue sun(BatchJob& job) {
  const QDate date = job.fields.date(u"date"_s);
  const QString latitude = job.fields.text(u"latitude"_s);
  const QString longitude = job.fields.text(u"longitude"_s);
  job.fields.finish();
  return QJsonObject{{u"sunrise"_s, SunriseTime(date.year(), date.month(), date.day(), latitude, longitude)},
                     {u"sunset"_s, SunsetTime(date.year(), date.month(), date.day(), latitude, longitude)}};
}

QJsonValue sunTimes(BatchJob& job) {
  const QString list = job.fields.text(u"list"_s);
  const QDate date = job.fields.date(u"date"_s);
  job.fields.finish();
  const std::optional<QStringList> lines = sunCommandLines(list, date);
  return lines ? lines->join(crlf) : u"SYNTAX ERROR"_s;
}

SunTable tableOf(BatchJob& job) {
  const QString airfield = job.fields.text(u"airfield"_s);
  const int year = job.fields.integer(u"year"_s);
  job.fields.finish();
  return sunTable(airfield, year, *job.airports);
}

QJsonValue sunTableOf(BatchJob& job) {
  const SunTable table = tableOf(job);
  QJsonArray days;
  for (const SunDay& day : table.days)
    days.append(QJsonArray{day.sunrise, day.sunset});
  return QJsonObject{{u"code"_s, table.code},           {u"latitude"_s, table.latitude},
                     {u"longitude"_s, table.longitude}, {u"elevation"_s, table.elevation},
                     {u"deltaH"_s, table.deltaH},       {u"leapYear"_s, table.leapYear},
                     {u"valid"_s, table.valid},         {u"days"_s, days}};
}

QJsonArray pointsOf(const QList<SunPoint>& points) {
  QJsonArray list;
  for (const SunPoint& point : points)
    list.append(QJsonArray{point.x, point.y});
  return list;
}

QJsonValue sunGraphOf(BatchJob& job) {
  const SunGraph graph = sunGraph(tableOf(job));
  QJsonArray extremes;
  for (const SunExtreme& extreme : graph.extremes)
    extremes.append(QJsonObject{
        {u"time"_s, extreme.time}, {u"date"_s, extreme.date}, {u"x"_s, extreme.x}, {u"y"_s, extreme.y}});
  return QJsonObject{{u"sunrise"_s, pointsOf(graph.sunrise)},
                     {u"sunset"_s, pointsOf(graph.sunset)},
                     {u"extremes"_s, extremes}};
}

QJsonValue chart(BatchJob& job) {
  const QString item = job.fields.text(u"item"_s);
  const std::optional<int> index = job.fields.integerIfThere(u"index"_s);
  const QDateTime now = job.fields.localTime(u"now"_s);
  job.fields.finish();
  const std::optional<ChartView> view =
      chartView(item, index, now, job.settings[key::時差].value_or(QString()));
  if (!view)
    throw InputError(u"no such chart"_s);
  const auto size = [&view](int twips) { return view->maximised ? QJsonValue() : QJsonValue(twips); };
  return QJsonObject{{u"address"_s, view->address},
                     {u"title"_s, view->title},
                     {u"width"_s, size(view->width)},
                     {u"height"_s, size(view->height)},
                     {u"maximised"_s, view->maximised}};
}

QJsonValue camera(BatchJob& job) {
  const QString item = job.fields.text(u"item"_s);
  job.fields.finish();
  const std::optional<CameraView> view = cameraView(item);
  if (!view)
    throw InputError(u"no such camera"_s);
  return QJsonObject{{u"address"_s, view->address}, {u"title"_s, view->title}, {u"refresh"_s, view->refresh}};
}

/// A TAF alone, or what METAR and TAF of a station say.
QJsonValue tafAtOf(BatchJob& job) {
  return job.fields.has(u"text"_s) ? plainTafAt(job) : tafAt(job);
}

/// The rows of many airports, or the cells of one.
QJsonValue board(BatchJob& job) {
  return job.fields.has(u"reports"_s) ? plainBoard(job) : boardOf(job);
}

} // namespace

BatchOperation batchOperation(const QString& name) {
  static const QHash<QString, BatchOperation> operations = {
      {u"translate"_s, translate}, {u"explain"_s, explain},     {u"colour"_s, colour},
      {u"layout"_s, layout},       {u"sequence"_s, sequence},   {u"sun"_s, sun},
      {u"suntimes"_s, sunTimes},   {u"suntable"_s, sunTableOf}, {u"sungraph"_s, sunGraphOf},
      {u"chart"_s, chart},         {u"camera"_s, camera},       {u"taf_at"_s, tafAtOf},
      {u"board"_s, board},         {u"elements"_s, elementsOf},
  };
  return operations.value(name, nullptr);
}

} // namespace soran
