// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/raw_lines.h"

#include "base/text.h"
#include "base/utc.h"

#include <QList>
#include <algorithm>
#include <array>
#include <cstdlib>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

/// How a station file goes on with a forecast behind a change of the weather.
constexpr QStringView nextLine = u"\n     ";

/// The groups of each report.
QList<QList<QStringView>> reportsIn(QStringView body) {
  QList<QList<QStringView>> reports;
  for (QStringView line : body.split(u'\n')) {
    const bool goesOn = line.startsWith(u' ') || line.startsWith(u'\t');
    line = line.trimmed();
    if (line.isEmpty())
      continue;
    if (!goesOn || reports.isEmpty())
      reports.emplace_back();
    reports.last() += line.split(u' ', Qt::SkipEmptyParts);
  }
  return reports;
}

/// WMO No. 306, FM 51: the group begins a change of the weather. TEMPO behind a probability belongs to that.
bool beginsChange(QStringView group, QStringView before) {
  const bool isFrom = group.size() == 8 && group.startsWith(u"FM") &&
                      std::all_of(group.begin() + 2, group.end(), isAsciiDigit);
  return isFrom || group == u"BECMG" || (group == u"TEMPO" && !before.startsWith(u"PROB")) ||
         group.startsWith(u"PROB");
}

QString joined(const QList<QStringView>& groups, ReportKind kind) {
  QString text;
  QStringView before;
  for (const QStringView group : groups) {
    if (kind == ReportKind::Taf && beginsChange(group, before))
      text += nextLine;
    else if (!text.isEmpty())
      text += u' ';
    text += group;
    before = group;
  }
  return text;
}

/// What stands ahead of the code is taken off; where a station file has it is told by its form.
struct Heading {
  std::optional<bool> isSpecial;
  bool isForecast = false;
  QStringView amendment; ///< AMD or COR, empty where there is none
};

Heading takeHeading(QList<QStringView>& groups) {
  Heading heading;
  while (!groups.isEmpty()) {
    const QStringView first = groups.first();
    if (first == u"SPECI")
      heading.isSpecial = true;
    else if (first == u"TAF")
      heading.isForecast = true;
    else if (first == u"AMD" || first == u"COR")
      heading.amendment = first;
    else if (first == u"METAR")
      heading.isSpecial = false;
    else
      break;
    groups.removeFirst();
  }
  return heading;
}

} // namespace

QDateTime nearestTo(int day, QTime time, const QDateTime& near) {
  QDateTime nearest;
  // Qt takes a time that there is not for midnight.
  for (const int months : {-1, 0, 1}) {
    const QDate month = near.date().addMonths(months);
    const QDateTime candidate = inUtc(QDate(month.year(), month.month(), day), time);
    if (time.isValid() && candidate.isValid() &&
        (!nearest.isValid() || std::abs(candidate.secsTo(near)) < std::abs(nearest.secsTo(near))))
      nearest = candidate;
  }
  return nearest;
}

QDateTime timeNear(QStringView group, const QDateTime& now) {
  if (group.size() != 7 || group[6] != u'Z' || !std::all_of(group.begin(), group.end() - 1, isAsciiDigit))
    return {};
  const QTime time(leadingInteger(group.sliced(2, 2)), leadingInteger(group.sliced(4, 2)));
  return nearestTo(leadingInteger(group.first(2)), time, now);
}

QHash<QString, RawReport> readRawLines(QStringView body, ReportKind kind, const QDateTime& now) {
  QHash<QString, RawReport> reports;
  for (QList<QStringView>& groups : reportsIn(body)) {
    const Heading heading = takeHeading(groups);
    const QDateTime time = timeNear(groups.value(1), now);
    if (!time.isValid() || (heading.isForecast && kind == ReportKind::Metar))
      continue;
    const QString code = groups.first().toString();
    if (const auto known = reports.constFind(code); known != reports.cend() && known->time >= time)
      continue;
    RawReport report{time.toString(u"yyyy/MM/dd HH:mm\n"_s), time, heading.isSpecial};
    if (kind == ReportKind::Taf)
      report.file += heading.amendment.isEmpty() ? u"TAF "_s : u"TAF " + heading.amendment + u' ';
    else if (!heading.amendment.isEmpty())
      groups.insert(2, heading.amendment);
    report.file += joined(groups, kind) + u'\n';
    reports.insert(code, report);
  }
  return reports;
}

} // namespace soran
