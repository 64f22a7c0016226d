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
  for (const Crossing& crossing : crossings(readElements(text, {0, text.size()}), Limits::of(settings)))
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
    const auto found = crossings(readElements(text, {0, text.size()}), Limits::of(standard()));
    const Crossing* worst = worstOf(found);
    ASSERT_TRUE(worst);
    EXPECT_EQ(worst->words.in(text), word);
  }
  EXPECT_EQ(worstOf({}), nullptr);
}

} // namespace
