// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desk/shift_log.h"

#include "base/files.h"
#include "base/text.h"
#include "base/utc.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

#include <algorithm>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

QDateTime timeOf(const QJsonValue& value) {
  const QDateTime time = QDateTime::fromString(value.toString(), Qt::ISODate);
  return time.isValid() ? time.toUTC() : QDateTime();
}

QStringView nameOf(ReportKind kind) {
  return kind == ReportKind::Metar ? u"METAR" : u"TAF";
}

bool isOfReport(const AlarmEvent& event) {
  return event.kind <= AlarmEventKind::Back;
}

QString numberText(double value) {
  return QString::number(value, 'g', 6);
}

QString csvField(const QString& text) {
  const bool plain =
      std::ranges::none_of(text, [](QChar c) { return c == u'"' || c == u',' || c == u'\n' || c == u'\r'; });
  return plain ? text : u'"' + QString(text).replace(u'"', u"\"\""_s) + u'"';
}

} // namespace

QByteArray jsonLine(const AlarmEvent& event) {
  QJsonObject line{{u"time"_s, utcText(event.time)},
                   {u"event"_s, nameOf(event.kind).toString()},
                   {u"airport"_s, event.code}};
  if (isOfReport(event)) {
    line[u"report"_s] = nameOf(event.report).toString();
    line[u"element"_s] = event.element;
    line[u"level"_s] = event.level;
    if (!event.words.isEmpty()) {
      line[u"group"_s] = event.words;
      line[u"value"_s] = event.value;
      line[u"limit"_s] = event.limit;
    }
  }
  if (event.until.isValid())
    line[u"until"_s] = utcText(event.until);
  if (!event.desk.isEmpty())
    line[u"desk"_s] = event.desk;
  return QJsonDocument(line).toJson(QJsonDocument::Compact);
}

std::optional<AlarmEvent> eventOfLine(const QByteArray& line) {
  const QJsonObject object = QJsonDocument::fromJson(line).object();
  const auto name = std::ranges::find(alarmEventNames, object[u"event"_s].toString());
  AlarmEvent event{.time = timeOf(object[u"time"_s]), .code = object[u"airport"_s].toString()};
  if (name == alarmEventNames.end() || !event.time.isValid() || event.code.isEmpty())
    return std::nullopt;
  event.kind = AlarmEventKind(name - alarmEventNames.begin());
  event.report = object[u"report"_s].toString() == u"TAF" ? ReportKind::Taf : ReportKind::Metar;
  event.element = object[u"element"_s].toString();
  event.words = object[u"group"_s].toString();
  event.value = object[u"value"_s].toDouble();
  event.limit = object[u"limit"_s].toDouble();
  event.level = object[u"level"_s].toInt();
  event.until = timeOf(object[u"until"_s]);
  event.desk = object[u"desk"_s].toString();
  if (isOfReport(event) && event.element.isEmpty())
    return std::nullopt;
  return event;
}

ShiftLog::Content ShiftLog::read() const {
  Content content;
  const FileBytes file = readPlainFile(path_, largestListFile);
  if (!file.ok()) {
    content.fault = file.fault == FileFault::Missing ? FileFault::None : file.fault;
    return content;
  }
  QSet<QByteArray> seen;
  for (const QByteArray& line : file.bytes.split('\n')) {
    // What was written only in part is written again.
    if (line.trimmed().isEmpty() || seen.contains(line))
      continue;
    seen.insert(line);
    if (auto event = eventOfLine(line))
      content.events.push_back(*std::move(event));
    else
      ++content.unreadable;
  }
  return content;
}

FileFault ShiftLog::add(std::span<const AlarmEvent> events) {
  QByteArray lines;
  for (const AlarmEvent& event : events)
    lines += jsonLine(event) + '\n';
  return events.empty() ? FileFault::None : appendLines(path_, lines);
}

FileFault ShiftLog::dropBefore(const QDateTime& time) {
  const Content content = read();
  const auto isOld = [&](const AlarmEvent& event) { return event.time < time; };
  if (content.fault != FileFault::None || std::ranges::none_of(content.events, isOld))
    return content.fault;
  QByteArray lines;
  for (const AlarmEvent& event : content.events) {
    if (!isOld(event))
      lines += jsonLine(event) + '\n';
  }
  return replaceWhole(path_, lines, true, Links::Refused);
}

QString eventText(const AlarmEvent& event) {
  const bool isBelowAnother = event.kind == AlarmEventKind::Back && event.level > 0;
  QString line = event.code + u' ' + (isBelowAnother ? u"EASED" : nameOf(event.kind));
  if (isOfReport(event)) {
    line += u' ' + nameOf(event.report) + u' ' + event.element;
    if (!event.words.isEmpty())
      line += u' ' + event.words;
    // Weather has a limit without a number.
    if (event.limit != 0)
      line += u" (LIMIT " + numberText(event.limit) + u')';
  }
  if (event.until.isValid())
    line += u" UNTIL " + event.until.toUTC().toString(u"dd HH:mm"_s) + u'Z';
  if (!event.desk.isEmpty())
    line += u" BY " + event.desk;
  return line;
}

QString eventLine(const AlarmEvent& event) {
  return event.time.toUTC().toString(u"dd HH:mm"_s) + u"Z " + eventText(event);
}

QString shiftCsv(std::span<const AlarmEvent> events) {
  QString table = u"time,event,airport,report,element,group,value,limit,level,until,desk" + crlf;
  for (const AlarmEvent& event : events) {
    const bool ofReport = isOfReport(event);
    const bool hasGroup = !event.words.isEmpty();
    const QStringList fields = {utcText(event.time),
                                nameOf(event.kind).toString(),
                                event.code,
                                ofReport ? nameOf(event.report).toString() : QString(),
                                event.element,
                                event.words,
                                hasGroup ? numberText(event.value) : QString(),
                                hasGroup ? numberText(event.limit) : QString(),
                                ofReport ? QString::number(event.level) : QString(),
                                event.until.isValid() ? utcText(event.until) : QString(),
                                event.desk};
    QStringList quoted;
    std::ranges::transform(fields, std::back_inserter(quoted), csvField);
    table += quoted.join(u',') + crlf;
  }
  return table;
}

} // namespace soran
