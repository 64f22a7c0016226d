// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/watch_event.h"

#include "base/report_rules.h"
#include "base/utc.h"
#include "desk/shift_log.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace soran {

using namespace Qt::StringLiterals;

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
  object[u"event"_s] = event.event;
  if (!event.code.isEmpty())
    object[u"airport"_s] = event.code;
  object[u"text"_s] = event.text;
  if (!event.report.isEmpty())
    object[u"raw"_s] = event.report;
  return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

WatchEvent eventOfNotice(const QString& notice, const QDateTime& now) {
  const bool isAmended = notice.section(u' ', 1).startsWith(u"TAF(") && !amendmentIn(notice).isEmpty();
  return {.time = now,
          .event = isAmended ? u"AMENDED"_s : u"REPORT"_s,
          .code = notice.section(u' ', 0, 0),
          .text = notice};
}

} // namespace soran
