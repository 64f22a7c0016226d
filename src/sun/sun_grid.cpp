// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "sun/sun_grid.h"

#include "base/report_rules.h"

#include <QStringBuilder>

namespace soran {

namespace {

constexpr int titleSize = 14;
constexpr int cellSize = 9;

constexpr int columnX(int column) {
  return 440 * column + 200;
}

QString title(const SunTable& table, QStringView entry) {
  const QString name = table.code.isEmpty() ? entry.toString() : QString(table.code % u"  " % entry);
  return QString::number(table.year) % u"年  空港別 常用日出没時刻    【" % name % u"】     " %
         table.latitude % u"   " % table.longitude % u"    ELV=" % table.elevation % u"    EH=MSL+15    ⊿H=" %
         table.deltaH;
}

/// The index of a day in the table's days, -1 where the month has no such day.
int dayIndex(int year, int month, int day) {
  if (day > daysInMonth(year, month))
    return -1;
  int index = day - 1;
  for (int before = 1; before < month; ++before)
    index += daysInMonth(year, before);
  return index;
}

} // namespace

int sunGridWidth(int column) {
  if (column == 0)
    return 430;
  return column % 3 == 0 ? 10 : 570;
}

QString sunGridText(const SunTable& table, int row, int column) {
  const int month = column / 3 + 1;
  const bool sunrise = column % 3 == 1;
  if (column == 0)
    return row == 0 ? QString() : QString::number(row);
  if (column % 3 == 0)
    return {};
  if (row == 0)
    return sunrise ? QString::number(month) + u'月' : QString();
  const int index = table.valid ? dayIndex(table.year, month, row) : -1;
  if (index < 0)
    return {};
  return sunrise ? table.days[index].sunrise : table.days[index].sunset;
}

QList<SunPrintText> sunPrintPage(const SunTable& table, QStringView entry) {
  constexpr int headerIndent = 230;
  constexpr int headerY = 850;
  constexpr int ruleY = 1050;
  // Longer than the page is wide in the narrowest font.
  constexpr int ruleLength = 400;

  QList<SunPrintText> page{{200, 100, title(table, entry), titleSize, true}};
  const auto add = [&page](int x, int y, const QString& text) {
    if (!text.isEmpty())
      page.append({x, y, text, cellSize, false});
  };
  for (int column = 0; column < sunGridColumns; ++column)
    add(columnX(column) + headerIndent, headerY, sunGridText(table, 0, column));
  add(200, ruleY, QString(ruleLength, u'-'));
  for (int row = 1; row < sunGridRows; ++row) {
    for (int column = 0; column < sunGridColumns; ++column)
      add(columnX(column), 330 * row + 920, sunGridText(table, row, column));
  }
  return page;
}

} // namespace soran
