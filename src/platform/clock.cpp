// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/clock.h"

#include <QTimeZone>

using namespace Qt::StringLiterals;

namespace soran {

QDateTime SystemClock::now() const {
  return QDateTime::currentDateTime();
}

QString SystemClock::zoneName() const {
  return QTimeZone::systemTimeZone().displayName(QTimeZone::DaylightTime, QTimeZone::LongName);
}

QString SetClock::zoneName() const {
  const QString name =
      QTimeZone(now_.offsetFromUtc()).displayName(QTimeZone::DaylightTime, QTimeZone::LongName);
  // Newer releases of Qt tell minutes where there are none.
  return name.endsWith(u":00") ? name.chopped(3) : name;
}

QString offsetText(ZoneOffset offset) {
  const int hours = offset.hours;
  if (hours == 0)
    return u"±0"_s;
  return (hours > 0 ? u"+"_s : QString()) + QString::number(hours);
}

QString dateText(const Clock& clock) {
  return clock.now().toString(u"yyyy/MM/dd");
}

QString timeText(const Clock& clock) {
  return clock.now().toString(u"HH:mm:ss");
}

} // namespace soran
