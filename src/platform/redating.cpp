// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/redating.h"

#include "base/text.h"

#include <QStringList>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace soran {

namespace {

// In a form 'd' stands for a digit, "DD" for a day of the month; anything else stands for itself.
constexpr QStringView issueTime = u"DDddddZ";
constexpr QStringView bareTime = u"DDdd";
constexpr QStringView trendTimes[] = {u"FMdddd", u"TLdddd", u"ATdddd"};
constexpr QStringView forecastsOnly[] = {u"DDdd/DDdd",  u"FMDDdddd",    u"TXdd/DDddZ",
                                         u"TNdd/DDddZ", u"TXMdd/DDddZ", u"TNMdd/DDddZ"};

bool fits(QStringView group, QStringView form) {
  return group.size() == form.size() &&
         std::equal(group.begin(), group.end(), form.begin(),
                    [](QChar c, QChar f) { return f == u'd' || f == u'D' ? isAsciiDigit(c) : c == f; });
}

// The date near `issued` with that day of the month; a report never reaches half a month away.
QDate nearest(QDate issued, int day) {
  for (int away = 0; away <= 15; ++away) {
    for (const QDate date : {issued.addDays(away), issued.addDays(-away)}) {
      if (date.day() == day)
        return date;
    }
  }
  return {};
}

QString moved(QString group, QStringView form, QDate issued, qint64 days) {
  for (qsizetype at = form.indexOf(u"DD"); at >= 0; at = form.indexOf(u"DD", at + 2)) {
    const QDate date = nearest(issued, group.mid(at, 2).toInt());
    if (date.isValid())
      group.replace(at, 2, twoDigits(date.addDays(days).day()));
  }
  return group;
}

} // namespace

QString redated(const QString& report, QDate issued, qint64 days) {
  QStringList groups = report.split(u' ');
  const bool forecast = report.startsWith(u"TAF");
  QString before;
  for (QString& group : groups) {
    if (fits(group, issueTime))
      group = moved(group, issueTime, issued, days);
    for (const QStringView form : forecastsOnly) {
      if (forecast && fits(group, form))
        group = moved(group, form, issued, days);
    }
    if (forecast && (before == u"AFT" || before == u"NEXT") && fits(group, bareTime))
      group = moved(group, bareTime, issued, days);
    before = group;
  }
  return groups.join(u' ');
}

QString reissued(const QString& observation, const QDateTime& issued, const QDateTime& anew) {
  const int hours = static_cast<int>(issued.secsTo(anew) / 3600) % 24;
  QStringList groups = observation.split(u' ');
  for (QString& group : groups) {
    if (fits(group, issueTime))
      group = anew.toString(u"ddHHmm'Z'");
    for (const QStringView form : trendTimes) {
      if (fits(group, form))
        group.replace(2, 2, twoDigits((group.mid(2, 2).toInt() + 24 + hours) % 24));
    }
  }
  return groups.join(u' ');
}

} // namespace soran
