// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/explain_selection.h"

#include "reports/checked_text.h"
#include "reports/code_phrases.h"
#include "reports/phrases.h"
#include "reports/selected_group.h"

#include <algorithm>

namespace soran {

namespace {

bool explainInches(const SelectedGroup& selected, QString& tip) {
  const QStringView group = selected.group;
  if (!group.startsWith(u'A') || group.size() != 5)
    return false;
  writeAll(tip, group, u" ： 高度計規正値 ");
  if (readsByCode(selected.settings) && isAltimeter(group) && isAsciiDigit(group.back()))
    write(tip, altimeterByCode(group));
  else
    writeAll(tip, mid1(group, 2, 2), u".", mid1(group, 4, 2), u"インチ水銀柱");
  return true;
}

bool explainPressure(const SelectedGroup& selected, QString& tip) {
  const QStringView group = selected.group;
  if (!group.startsWith(u'Q') || group.size() != 5)
    return false;
  if (readsByCode(selected.settings) && group == u"Q////")
    writeAll(tip, group, u" ： ", notReported(u"気圧"));
  else
    writeAll(tip, group, u" ： 地上気圧 ", mid1(group, 2, 4), u".0 ヘクトパスカル");
  return true;
}

bool explainWind(const SelectedGroup& selected, QString& tip) {
  constexpr qsizetype shortest = 7;
  if (!selected.group.contains(u"KT"))
    return false;
  const std::optional<WindGroup> wind = windGroup(selected.group);
  // A shorter group with the unit is no wind, and nothing else either.
  if (readsByCode(selected.settings) && wind)
    writeAll(tip, selected.group, u" ： ", windByCode(*wind));
  else if (selected.group.size() >= shortest)
    writeAll(tip, selected.group, u" ： ", WindPhrase(selected.group));
  return true;
}

bool explainVariation(const SelectedGroup& selected, QString& tip) {
  const QStringView group = selected.group;
  if (!group.contains(u'V') || group.size() != 7)
    return false;
  writeAll(tip, group, u" ： 方位 ", mid1(group, 1, 3), u"°から ", mid1(group, 5, 3), u"°の間で風向変動あり");
  return true;
}

bool explainCalm(const SelectedGroup& selected, QString& tip) {
  if (selected.group != u"CALM")
    return false;
  writeAll(tip, selected.group, u" ： 無風");
  return true;
}

bool explainRunwayRange(const SelectedGroup& selected, QString& tip) {
  if (!selected.group.contains(u'R') || !selected.group.contains(u'/'))
    return false;
  const std::optional<RunwayRangeGroup> range = runwayRangeGroup(selected.group);
  writeAll(tip, selected.group, u" ： ",
           readsByCode(selected.settings) && range ? runwayRangeByCode(*range) : RvrPhrase(selected.group));
  return true;
}

bool explainSeaLevelPressure(const SelectedGroup& selected, QString& tip) {
  if (!selected.group.startsWith(u"SLP"))
    return false;
  const QString byCode = readsByCode(selected.settings) ? seaLevelPressureByCode(selected.group) : QString();
  writeAll(tip, selected.group, u" ： 海面水位圧力 ",
           byCode.isEmpty() ? SeaLevelPressureText(selected.group) : byCode, u"ヘクトパスカル");
  return true;
}

bool explainVerticalVisibility(const SelectedGroup& selected, QString& tip) {
  if (!selected.group.startsWith(u"VV"))
    return false;
  if (readsByCode(selected.settings) && selected.group == u"VV///")
    writeAll(tip, selected.group, u" ： ", notReported(u"鉛直視程"));
  else
    writeAll(tip, selected.group, u" ： 鉛直視程 ", Plain{heightAt(selected.group, 3)}, u"フィート");
  return true;
}

bool explainGoodVisibility(const SelectedGroup& selected, QString& tip) {
  if (selected.group != u"9999")
    return false;
  writeAll(tip, selected.group, u" : 視程10km以上");
  return true;
}

bool explainTenthsOfTemperature(const SelectedGroup& selected, QString& tip) {
  if (!selected.group.contains(u'T') || selected.group.size() < 9)
    return false;
  writeAll(tip, selected.group, u" : 地上気温 ", TenthsPhrase(selected.group, 2), u" 露点温度 ",
           TenthsPhrase(selected.group, 6));
  return true;
}

bool explainEyeHeight(const SelectedGroup& selected, QString& tip) {
  if (selected.group != u"⊿H")
    return false;
  writeAll(tip, selected.group, u" ： 大気視差高 (deviation eye height)");
  return true;
}

using Explainer = bool (*)(const SelectedGroup&, QString&);

// A group may fit several: the first one tells it.
constexpr std::array<Explainer, 17> explainers{
    explainCloud,
    explainInches,
    explainPressure,
    explainWind,
    explainVariation,
    explainCalm,
    explainTemperatures,
    explainHalfOfTemperatures,
    explainCloudType,
    explainReportTime,
    explainRunwayRange,
    explainSeaLevelPressure,
    explainVerticalVisibility,
    explainGoodVisibility,
    explainTenthsOfTemperature,
    explainEyeHeight,
    explainValidity,
};

/// The explanation by form; empty where the group has none or is too short for its sentence.
QString explainForm(const SelectedGroup& selected) {
  QString tip;
  try {
    for (const Explainer explainer : explainers) {
      if (explainer(selected, tip))
        break;
    }
  } catch (const TextFailure&) {
    tip.clear();
  }
  return tip;
}

QString tipText(const SelectedGroup& selected, const Dictionaries& dictionaries) {
  QString tip;
  const auto told = [&](QStringView meaning) {
    tip.clear();
    writeAll(tip, selected.group, u" : ", meaning);
    return tip;
  };
  const QStringView abbreviation = dictionaries.LookUpAbbreviation(selected.group);
  if (!abbreviation.isEmpty())
    return told(abbreviation);
  const QStringView phrase = dictionaries.LookUpPhrase(selected.group);
  if (!phrase.isEmpty())
    return told(phrase);
  QString form = explainForm(selected);
  if (!form.isEmpty())
    return form;
  const QString station = nameOfStation(selected.group, selected.settings, dictionaries);
  if (!station.isEmpty())
    return told(station);
  return tip;
}

} // namespace

std::optional<Explanation> ExplainSelection(QStringView screen, qsizetype start, qsizetype length,
                                            QDate today, const SettingsRecord& settings,
                                            const Dictionaries& dictionaries) {
  start = std::clamp<qsizetype>(start, 0, screen.size());
  length = std::clamp<qsizetype>(length, 0, screen.size() - start);
  const QString group = screen.sliced(start, length).toString().remove(u' ').remove(u'\u3000');
  if (group.isEmpty())
    return std::nullopt;
  const SelectedGroup selected{group, screen, start, start + length, today, settings};
  const QString tip = tipText(selected, dictionaries);
  if (tip.isEmpty())
    return std::nullopt;
  return Explanation{tip, tip.section(u' ', 0, 0)};
}

} // namespace soran
