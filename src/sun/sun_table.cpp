// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "sun/sun_table.h"

#include "base/report_rules.h"
#include "base/text.h"
#include "sun/positions.h"
#include "sun/sun_times.h"

#include <QStringBuilder>
#include <algorithm>
#include <cmath>
#include <iterator>

namespace soran {

namespace {

// Codes whose entry carries a second name.
struct SecondName {
  QStringView code;
  QStringView suffix;
};
constexpr SecondName secondNames[] = {
    {u"RJCA", u"(JSDF)"}, {u"RJCJ", u"(JSDF)"}, {u"RJCO", u"(丘珠)"},
    {u"RJAH", u"(茨城)"}, {u"RJTT", u"(東京)"}, {u"RJOH", u"(米子)"},
};

// The one named position that is also a coded field: both share the entry of the list.
constexpr QStringView codedName = u"旭川(JSDF)";
constexpr QStringView codeOfCodedName = u"RJCA";

constexpr QStringView firstHeliport = u"明石川崎(H)";

QString listName(QString name) {
  return name.remove(u' ').remove(u'\u3000');
}

QString entryOf(const Airport& airport) {
  QString entry = listName(airport.name);
  const auto* second = std::ranges::find(secondNames, airport.code, &SecondName::code);
  if (second != std::end(secondNames))
    entry += second->suffix;
  return entry;
}

struct Choice {
  const FieldPosition* position = nullptr;
  QString code;
};

Choice choose(QStringView entry, const QList<Airport>& airports) {
  if (entry == sunListSeparator)
    return {};
  Choice choice;
  const qsizetype bracket = entry.indexOf(u'(');
  const QStringView name = bracket < 0 ? entry : entry.first(bracket);
  const auto airport =
      std::ranges::find_if(airports, [name](const Airport& a) { return listName(a.name) == name; });
  if (airport != airports.end()) {
    choice.code = airport->code;
    choice.position = findCoded(airport->code);
    if (!choice.position)
      return {};
  }
  if (const FieldPosition* named = findNamed(entry)) {
    choice.position = named;
    if (entry == codedName)
      choice.code = codeOfCodedName.toString();
  }
  return choice;
}

/// Digits in pairs from the right, such as "139 46 52".
QString spaced(QStringView digits) {
  const QStringView minutes = digits.last(4);
  return digits.chopped(4) % u' ' % minutes.first(2) % u' ' % minutes.last(2);
}

QString formDifference(float elevation) {
  const int difference = 15 - static_cast<int>(std::floor(elevation + 0.5));
  return (difference > 0 ? QStringView(u"+") : QStringView()) % QString::number(difference);
}

} // namespace

QStringList sunFieldList(const QList<Airport>& airports) {
  QStringList list;
  for (const Airport& airport : airports) {
    if (airport.code.startsWith(u"RO") || airport.code.startsWith(u"RJ"))
      list.append(entryOf(airport));
  }
  list.append(sunListSeparator.toString());
  for (const FieldPosition& field : namedPositions()) {
    if (field.key == codedName)
      continue;
    if (field.key == firstHeliport)
      list.append(sunListSeparator.toString());
    list.append(field.key.toString());
  }
  return list;
}

QList<int> sunYearList(int currentYear) {
  QList<int> years;
  for (int offset = -sunCurrentYearIndex; offset <= 6; ++offset)
    years.append(currentYear + offset);
  return years;
}

SunTable sunTable(QStringView entry, int year, const QList<Airport>& airports) {
  const Choice choice = choose(entry, airports);
  if (!choice.position)
    return {};
  const FieldPosition& field = *choice.position;
  const auto elevation = static_cast<float>(leadingNumber(field.elevation));
  SunTable table;
  table.code = choice.code;
  table.latitude = spaced(field.latitude) % u" N";
  table.longitude = spaced(field.longitude) % u" E";
  table.elevation = plainNumber(elevation, 7);
  table.deltaH = formDifference(elevation);
  table.year = year;
  table.leapYear = year % 4 == 0;
  table.valid = true;
  table.days.reserve(366);
  for (int month = 1; month <= 12; ++month) {
    for (int day = 1; day <= daysInMonth(year, month); ++day)
      table.days.append({SunriseTime(year, month, day, field.latitude, field.longitude),
                         SunsetTime(year, month, day, field.latitude, field.longitude)});
  }
  return table;
}

} // namespace soran
