// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/report_walk.h"

#include "base/report_rules.h"

#include <algorithm>

namespace soran {

namespace {

struct FieldTitle {
  QStringView word;
  QStringView title;
};

// In the order of RepeatedField.
constexpr std::array<FieldTitle, 4> fieldTitles{{
    {u"滑走路視距離", u"滑走路視距離 ： "},
    {u"現在天気", u"現在天気　　 ： "},
    {u"雲量/高度", u"雲量/高度　　： "},
    {u"備　　考", u"備　　考　　 ： "},
}};

constexpr QStringView continuation = u"　　　　　　　　";

} // namespace

bool TranslationText::holds(RepeatedField field) {
  const auto index = static_cast<size_t>(field);
  Watch& watch = watches_[index];
  if (watch.found)
    return true;
  const QStringView word = fieldTitles[index].word;
  watch.found = QStringView(text).indexOf(word, watch.searched) >= 0;
  watch.searched = std::max<qsizetype>(text.size() - word.size() + 1, 0);
  return watch.found;
}

QStringView TranslationText::title(RepeatedField field) {
  return holds(field) ? continuation : fieldTitles[static_cast<size_t>(field)].title;
}

void TranslationText::replace(const QString& before, const QString& after) {
  text.replace(before, after);
  for (Watch& watch : watches_)
    watch.searched = 0;
}

PrintedHour ReportWalk::ToLocal(QStringView hour) const {
  if (settings[key::LOCAL使用] != true)
    return {hour.toString(), u"Z"};
  const ZoneOffset offset = settings.zoneOffset();
  return {twoDigits(shiftedHour(leadingInteger(hour), offset, HourWrap::Above)), ZoneLetter(offset)};
}

} // namespace soran
