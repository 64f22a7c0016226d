// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "sun/sun_command.h"

#include "base/text.h"
#include "sun/positions.h"
#include "sun/sun_times.h"

#include <QStringBuilder>
#include <cmath>

namespace soran {

namespace {

QString clock(QStringView hhmm) {
  return mid1(hhmm, 1, 2) % u':' % mid1(hhmm, 3, 2);
}

QString line(QStringView code, QDate date) {
  const FieldPosition* field = findCoded(code);
  if (!field)
    return code % u"  NOT FOUND POSITION DATA";
  const QString rise = SunriseTime(date.year(), date.month(), date.day(), field->latitude, field->longitude);
  const QString set = SunsetTime(date.year(), date.month(), date.day(), field->latitude, field->longitude);
  return code % u"  SUNRISE " % clock(rise) % u"  SUNSET " % clock(set) % u"   ELV " % field->elevation %
         u"  ⊿H " % eyeHeightDifference(field->elevation);
}

} // namespace

QString eyeHeightDifference(QStringView elevation) {
  constexpr double eyeHeight = 15;
  const auto height = static_cast<float>(leadingNumber(elevation));
  const auto difference = static_cast<float>(std::floor((eyeHeight - height) * 10 + 0.5) / 10);
  QString text = plainNumber(difference, 7);
  if (difference > 0)
    text.prepend(u'+');
  else if (difference == 0)
    text.prepend(u'±');
  return text;
}

std::optional<QStringList> sunCommandLines(QStringView list, QDate date) {
  if (!isCodeList(list))
    return std::nullopt;
  QStringList lines;
  for (const QStringView code : list.split(u' '))
    lines.append(line(code, date));
  return lines;
}

QString sunCommandScreenText(const QStringList& lines) {
  QString text = crlf.toString();
  for (const QString& each : lines)
    text += crlf % each;
  return text % crlf;
}

} // namespace soran
