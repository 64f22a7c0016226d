// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/checked_text.h"
#include "reports/code_phrases.h"
#include "reports/selected_group.h"

namespace soran {

namespace {

void writeDegrees(QString& tip, QStringView value) {
  if (value.startsWith(u'M'))
    writeAll(tip, u"マイナス", Plain{leadingNumber(value.sliced(1))}, u"℃");
  else
    writeAll(tip, Plain{leadingNumber(value)}, u"℃");
}

} // namespace

bool explainTemperatures(const SelectedGroup& selected, QString& tip) {
  const QStringView group = selected.group;
  const qsizetype slash = group.indexOf(u'/');
  if (slash < 0 || group.size() < 5 || group.size() > 7)
    return false;
  if (readsByCode(selected.settings)) {
    if (!isTemperatures(group))
      return false;
    const TemperatureGroup halves = temperatureGroup(group);
    writeAll(tip, group, u" ：  地上気温 ", degreesByCode(halves.air, u"値"), u"  露点温度 ",
             degreesByCode(halves.dewPoint, u"値"));
    return true;
  }
  writeAll(tip, group, u" ：  地上気温 ");
  writeDegrees(tip, group.first(slash));
  write(tip, u"  露点温度 ");
  writeDegrees(tip, group.sliced(slash + 1));
  return true;
}

bool explainHalfOfTemperatures(const SelectedGroup& selected, QString& tip) {
  const QStringView group = selected.group;
  if (group.size() != 2 && !(group.size() == 3 && group.startsWith(u'M')))
    return false;
  // The character behind the half, then the one in front of it.
  QStringView title;
  if (take1(selected.screen, Position1::ofIndex(selected.start + group.size()), 1) == u"/")
    title = u" ：  地上気温 ";
  else if (take1(selected.screen, Position1::ofIndex(selected.start - 1), 1) == u"/")
    title = u" ：  露点温度 ";
  else
    return false;
  writeAll(tip, group, title);
  // Only of three characters the M is a sign.
  if (group.size() == 3)
    writeDegrees(tip, group);
  else
    writeAll(tip, Plain{leadingNumber(group)}, u"℃");
  return true;
}

} // namespace soran
