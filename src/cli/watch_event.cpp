// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/watch_event.h"

#include "base/report_rules.h"
#include "base/utc.h"
#include "cli/plain_values.h"
#include "desk/shift_log.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

/// "source_away"; a report that came is new.
QString plainEvent(const QString& event) {
  return event == u"REPORT" ? u"new"_s : event.toLower().replace(u' ', u'_');
}

QJsonValue textOrNull(const QString& text) {
  return text.isEmpty() ? QJsonValue() : QJsonValue(text);
}

/// The limit that a crossing is about.
QJsonArray hitsOf(const std::optional<AlarmEvent>& alarm) {
  if (!alarm || alarm->kind > AlarmEventKind::Worse)
    return {};
  return {plainNameOf(alarm->element)};
}

} // namespace

QString lineOf(const WatchEvent& event) {
  QStringList parts = {utcText(event.time), event.event};
  // The event is told once.
  QString text = event.text;
  if (const qsizetype at = text.indexOf(u' ' + event.event); at >= 0)
    text.remove(at, event.event.size() + 1);
  for (const QString& part : {text, event.report}) {
    if (!part.isEmpty())
      parts.append(part);
  }
  return parts.join(u"  ");
}

QByteArray jsonOf(const WatchEvent& event) {
  // An alarm is told as the shift log tells it.
  QJsonObject object = event.alarm ? QJsonDocument::fromJson(jsonLine(*event.alarm)).object() : QJsonObject();
  object[u"time"_s] = utcText(event.time);
  if (!event.code.isEmpty())
    object[u"airport"_s] = event.code;
  object[u"text"_s] = event.text;
  if (!event.report.isEmpty())
    object[u"raw"_s] = event.report;
  object[u"event"_s] = plainEvent(event.event);
  object[u"at"_s] = minuteJson(event.time);
  object[u"code"_s] = textOrNull(event.code);
  object[u"kind"_s] = textOrNull(event.kind);
  object[u"report"_s] = textOrNull(event.report);
  object[u"hits"_s] = hitsOf(event.alarm);
  object[u"source"_s] = textOrNull(event.source);
  return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

void nameReport(WatchEvent& event) {
  constexpr qsizetype mostAhead = 6; // words up to the validity of a TAF
  const bool isTaf = event.kind == u"TAF";
  // Of the words that mark a report a METAR has COR alone.
  const auto marks = [isTaf](const QString& word) {
    return word == u"COR" || (isTaf && std::ranges::find(amendmentWords, word) != amendmentWords.end());
  };
  const QStringList words = event.report.section(u' ', 0, mostAhead - 1).split(u' ');
  const auto mark = std::ranges::find_if(words, marks);
  const bool isAmended = mark != words.end();
  event.event = isAmended ? u"AMENDED"_s : u"REPORT"_s;
  event.text = event.code + u' ' + event.kind;
  if (isAmended)
    event.text += u'(' + *mark + u") RECEIVED";
  else if (event.kind == u"SPECI")
    event.text += u" RECEIVED";
  else
    event.text += isTaf ? u"   CHANGED" : u" CHANGED";
}

} // namespace soran
