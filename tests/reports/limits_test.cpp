// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/limits.h"

#include "support/printing.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace soran;

namespace {

/// Limits of 1000, 200 and 200 feet and 5000, 1600 and 800 metres.
SettingsRecord standard() {
  return SettingsRecord::standard(u"+9"_s);
}

/// "condition word value<limit" of each.
QStringList crossed(QStringView text, const SettingsRecord& settings) {
  QStringList lines;
  for (const Crossing& crossing : crossings(readElements(text, {0, text.size()}), text, Limits::of(settings)))
    lines += QString::number(crossing.condition) + u' ' + crossing.words.in(text) + u' ' +
             QString::number(crossing.value) + u'<' + QString::number(crossing.limit);
  return lines;
}

TEST(Limits, EachValueBelowEachLimit) {
  const struct {
    QStringView text;
    QStringList crossings;
  } cases[] = {
      {u"9999 BKN010", {}},
      {u"5000 BKN009", {u"1 BKN009 900<1000"_s}},
      {u"0800 R34L/1600V2000U R34R/0750N OVC002",
       {u"1 0800 800<5000"_s, u"1 R34R/0750N 750<5000"_s, u"1 OVC002 200<1000"_s, u"2 0800 800<1600"_s,
        u"2 R34R/0750N 750<1600"_s, u"3 R34R/0750N 750<800"_s}},
      {u"CAVOK", {}},
      {u"9999 SCT001 BKN///", {}},
      {u"VV///", {u"1 VV/// 0<1000"_s, u"2 VV/// 0<200"_s, u"3 VV/// 0<200"_s}},
      {u"", {}},
  };
  for (const auto& c : cases)
    EXPECT_EQ(crossed(c.text, standard()), c.crossings) << c.text.toUtf8().toStdString();
}

TEST(Limits, AreThoseOfTheSettingsInForce) {
  constexpr QStringView text = u"0300 BKN005 VV001";
  const struct {
    SettingIndex index;
    QVariant value;
    int count;
  } cases[] = {
      {key::計器気象状態を強調.index, false, 0},
      {key::計器気象状態を強調.index, {}, 0},
      {key::条件1有効.index, false, 4},
      {key::条件3有効.index, {}, 4},
      {key::視程2.index, {}, 5},
      {key::雲高1.index, 0, 5},
      {key::鉛直視程2有効.index, false, 5},
      {key::鉛直視程1有効.index, false, 6},
  };
  for (const auto& c : cases) {
    SettingsRecord settings = standard();
    settings.setValue(c.index, c.value);
    EXPECT_EQ(crossed(text, settings).size(), c.count) << int(c.index);
  }
}

TEST(Limits, TheWorstIsOfTheLastConditionThenByTheGreatestShare) {
  const struct {
    QStringView text, worst;
  } cases[] = {
      {u"4900 BKN002", u"BKN002"},
      {u"0700 BKN001", u"BKN001"},
      {u"0100 BKN001", u"0100"},
      {u"1500 BKN002", u"1500"},
  };
  for (const auto& [text, word] : cases) {
    const auto found = crossings(readElements(text, {0, text.size()}), text, Limits::of(standard()));
    const Crossing* worst = worstOf(found);
    ASSERT_TRUE(worst);
    EXPECT_EQ(worst->words.in(text), word);
  }
  EXPECT_EQ(worstOf({}), nullptr);
}

/// "condition element value/limit" of each, with the runway 36 true.
QStringList crossedAt(QStringView text, const SettingsRecord& settings,
                      const std::vector<AirportLimits>& rows) {
  constexpr QStringView names[] = {u"VIS", u"RVR", u"CIG", u"WIND", u"GUST", u"XWIND", u"WX"};
  QStringList lines;
  const Limits limits = Limits::of(settings, rows, StationCode(u"RJTT"_s), {{u"18"_s, 180}, {u"36"_s, 360}});
  for (const Crossing& crossing : crossings(readElements(text, {0, text.size()}), text, limits))
    lines += QString::number(crossing.condition) + u' ' + names[size_t(crossing.element)] + u' ' +
             (crossing.element == LimitedElement::Weather
                  ? crossing.words.in(text).toString()
                  : QString::number(crossing.value) + u'/' + QString::number(crossing.limit));
  return lines;
}

TEST(Limits, OfAnAirportStandOverThoseForAllAndTheSettings) {
  const QString own = u"RJTT"_s;
  const QString all = allAirports.toString();
  const QString other = u"RJAA"_s;
  const struct {
    const char* name;
    bool enabled; // condition 3
    std::vector<AirportLimits> rows;
    QStringView text;
    QStringList crossings;
  } cases[] = {
      {"settings alone", true, {}, u"0700", {u"1 VIS 700/5000"_s, u"2 VIS 700/1600"_s, u"3 VIS 700/800"_s}},
      {"another airport",
       true,
       {{.code = other, .condition = 3, .visibility = 600}, {.code = other, .condition = 3, .wind = 1}},
       u"01020KT 0790",
       {u"1 VIS 790/5000"_s, u"2 VIS 790/1600"_s, u"3 VIS 790/800"_s}},
      {"own over all",
       true,
       {{.code = own, .condition = 3, .visibility = 600},
        {.code = all, .condition = 3, .visibility = 900, .ceiling = 500}},
       u"0800 OVC003",
       {u"1 VIS 800/5000"_s, u"1 CIG 300/1000"_s, u"2 VIS 800/1600"_s, u"3 CIG 300/500"_s}},
      {"off in the settings", false, {}, u"9999 OVC001", {u"1 CIG 100/1000"_s, u"2 CIG 100/200"_s}},
      {"a row brings it into force",
       false,
       {{.code = own, .condition = 3, .wind = 30}},
       u"9999 OVC001",
       {u"1 CIG 100/1000"_s, u"2 CIG 100/200"_s, u"3 CIG 100/200"_s}},
      {"a row of nothing does not",
       false,
       {{.code = own, .condition = 3}},
       u"9999 OVC001",
       {u"1 CIG 100/1000"_s, u"2 CIG 100/200"_s}},
      {"no such condition",
       true,
       {{.code = own, .condition = 0, .visibility = 9000}, {.code = own, .condition = 4, .visibility = 9000}},
       u"5000",
       {}},
      {"range by the visibility",
       true,
       {{.code = own, .condition = 3, .visibility = 500}},
       u"9999 R36/0600",
       {u"1 RVR 600/5000"_s, u"2 RVR 600/1600"_s}},
      {"range of its own",
       true,
       {{.code = all, .condition = 3, .runwayRange = 550}, {.code = own, .condition = 3, .visibility = 700}},
       u"9999 R36/0600",
       {u"1 RVR 600/5000"_s, u"2 RVR 600/1600"_s}},
      {"at the limits",
       true,
       {{.code = own, .condition = 3, .wind = 20, .gust = 30, .crosswind = 30}},
       u"09020G30KT 9999",
       {}},
      {"over the limits",
       true,
       {{.code = own, .condition = 3, .wind = 20, .gust = 30, .crosswind = 30}},
       u"09021G31KT 9999",
       {u"3 WIND 21/20"_s, u"3 GUST 31/30"_s, u"3 XWIND 31/30"_s}},
      {"a part of a knot over",
       true,
       {{.code = own, .condition = 3, .wind = 25}},
       u"36013MPS 9999",
       {u"3 WIND 26/25"_s}},
      {"weather",
       true,
       {{.code = own, .condition = 3, .weather = u"TS  FZRA"_s}},
       u"9999 +TSRA BR RETS",
       {u"3 WX +TSRA"_s}},
  };
  for (const auto& c : cases) {
    SettingsRecord settings = standard();
    settings.set(key::条件3有効, c.enabled);
    EXPECT_EQ(crossedAt(c.text, settings, c.rows), c.crossings) << c.name;
  }
}

TEST(Limits, TheWorstIsTheOneFurthestBeyondWhicheverWay) {
  const std::vector<AirportLimits> rows = {
      {.code = u"RJTT"_s, .condition = 3, .visibility = 800, .wind = 20, .weather = u"TS"_s}};
  const std::pair<QStringView, LimitedElement> cases[] = {
      {u"36030KT 0700 TS", LimitedElement::Wind},
      {u"36021KT 0100 TS", LimitedElement::Visibility},
      {u"36010KT 0900 TS", LimitedElement::Weather},
  };
  for (const auto& [text, element] : cases) {
    const auto found = crossings(readElements(text, {0, text.size()}), text,
                                 Limits::of(standard(), rows, StationCode(u"RJTT"_s), {}));
    ASSERT_TRUE(worstOf(found));
    EXPECT_EQ(worstOf(found)->element, element);
  }
}

} // namespace
