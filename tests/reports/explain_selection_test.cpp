// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/explain_selection.h"

#include "reports/sample_tables.h"
#include "support/printing.h"

#include <gtest/gtest.h>

using namespace soran;

namespace {

const SettingsRecord utc = zoned(false, QStringLiteral("+9"));
const QDate today(2026, 11, 24);

/// The tip over the part of the text in square brackets; "none" where there is no tip.
QString tip(const QString& marked, const SettingsRecord& settings = utc, QDate date = today) {
  const qsizetype start = marked.indexOf(u'[');
  const qsizetype length = marked.indexOf(u']') - start - 1;
  QString screen = marked;
  screen.remove(u'[').remove(u']');
  const auto explanation = ExplainSelection(screen, start, length, date, settings, sampleTables());
  return explanation ? explanation->text : QStringLiteral("none");
}

struct Explained {
  QStringView group;
  QStringView text; ///< behind the group; empty for no tip
};

} // namespace

TEST(ExplainSelection, GroupsAreToldByTheFirstFormThatFits) {
  constexpr Explained cases[] = {
      {u"RJTT", u" : 東京国際"},
      {u"RJTF", u" : 飛行場(字)"},
      {u"PAKT", u" : ケチカン"},
      {u"R/12", u" ： 滑走路のRVRは、12メートルで、変化傾向は不明"},
      {u"rjtt", u""},
      {u"br", u" : もや(Mist)"},
      {u"-RA", u" : 弱い雨"},
      {u"BKN020CB", u" ： 2000フィートに多量 (5/8～7/8) の積乱雲"},
      {u"FEW030TCU", u" ： 3000フィートに小量 (1/8～2/8) の塔状積雲"},
      {u"SCT///", u" ： 雲底高度不明な散在 (3/8～4/8) した雲"},
      {u"OVC///CB", u" ： 0フィートに全天を覆う積乱雲"},
      {u"A2992", u" ： 高度計規正値 29.92インチ水銀柱"},
      {u"Q1013", u" ： 地上気圧 1013.0 ヘクトパスカル"},
      {u"27015G25KT", u" ： 270°方向から 15ノット / 最大瞬間風速 25ノット"},
      {u"9010KT", u""},
      {u"240V300", u" ： 方位 240°から 300°の間で風向変動あり"},
      {u"CALM", u" ： 無風"},
      {u"M05/M07", u" ：  地上気温 マイナス5℃  露点温度 マイナス7℃"},
      {u"18/12", u" ：  地上気温 18℃  露点温度 12℃"},
      {u"3CU030", u" ： 3000フィートに散在 (3/8) した積雲"},
      {u"8ST005", u" ： 500フィートに全天 (8/8) を覆う層雲"},
      {u"1CI250", u" ： 25000フィートに少量 (1/8) の巻雲"},
      {u"9AC070", u" ： 7000フィートに (9/8) の高積雲"},
      {u"150000Z", u" ： 15日 00:00 UTC"},
      {u"R34L/1000U", u" ： 滑走路34LのRVRは、1000メートルで、さらに上昇中"},
      {u"SLP134", u" ： 海面水位圧力 913.4ヘクトパスカル"},
      {u"VV002", u" ： 鉛直視程 200フィート"},
      {u"9999", u" : 視程10km以上"},
      {u"T10050212", u" : 地上気温 マイナス 0.5℃ 露点温度 21.2℃"},
      {u"⊿H", u" ： 大気視差高 (deviation eye height)"},
      {u"2112", u""},
      {u"/R", u""},
  };
  for (const Explained& c : cases) {
    const QString text = c.text.isEmpty() ? QStringLiteral("none") : c.group.toString().append(c.text);
    EXPECT_EQ(tip(QStringLiteral("RJTT [%1] X").arg(c.group)), text);
  }
  constexpr Explained byCode[] = {
      {u"SLP134", u" ： 海面水位圧力 1013.4ヘクトパスカル"},
      {u"A2984", u" ： 高度計規正値 29.84インチ水銀柱 (1010.5ヘクトパスカル)"},
      {u"R34L/M0600V1200",
       u" ： 滑走路34LのRVRは、600メートル(測定範囲の下限)から1200メートルの間を変動しており、"
       u"変化傾向は不明"},
      {u"VRB03G15KT", u" ： 風向が特定できない 3ノットの風 / 最大瞬間風速 15ノット"},
      {u"OVC///CB", u" ： 雲底高度不明な全天を覆う積乱雲"},
      {u"VV///", u" ： 鉛直視程の通報なし"},
      {u"Q////", u" ： 気圧の通報なし"},
      {u"M01///", u" ：  地上気温 マイナス 1℃  露点温度 値の通報なし"},
  };
  for (const Explained& c : byCode)
    EXPECT_EQ(tip(QStringLiteral("RJTT [%1] X").arg(c.group), zoned(false, QStringLiteral("+9"), true)),
              c.group.toString().append(c.text));
  EXPECT_EQ(tip(QStringLiteral("[ 18 /\u300012 ]")), u"18/12 ：  地上気温 18℃  露点温度 12℃");
  EXPECT_EQ(tip(QStringLiteral("[ \u3000]")), u"none");
}

TEST(ExplainSelection, NeighboursDecideWhatHalfAGroupIs) {
  const struct {
    QString screen;
    QStringView text;
  } cases[] = {
      {QStringLiteral("RJTT [M05]/M07"), u"M05 ：  地上気温 マイナス5℃"},
      {QStringLiteral("RJTT M05/[M07]"), u"M07 ：  露点温度 マイナス7℃"},
      {QStringLiteral("[05]/07"), u"05 ：  地上気温 5℃"},
      {QStringLiteral("05/[07]"), u"07 ：  露点温度 7℃"},
      {QStringLiteral("M1/[M2]"), u"M2 ：  露点温度 0℃"},
      {QStringLiteral("[⊿H]"), u"none"},
      {QStringLiteral("TAF [2112]/2218"), u"2112 ： 21日 12:00Z"},
      {QStringLiteral("[2112]/2218"), u"2112 ： 21日 12:00Z"},
      {QStringLiteral("TAF 2112/[2218]"), u"2218 ： 22日 18:00Z"},
      {QStringLiteral("TAF 2112/[0000]"), u"none"},
      {QStringLiteral("TAF 2112/[22X8]"), u"none"},
  };
  for (const auto& c : cases)
    EXPECT_EQ(tip(c.screen), c.text) << c.screen.toStdString();
}

TEST(ExplainSelection, TimesMoveToTheDayOfTheZone) {
  const struct {
    QString group;
    QString offset;
    QDate date;
    QStringView text;
  } cases[] = {
      {QStringLiteral("150000Z"), QStringLiteral("+9"), today, u" ： 15日 09:00 I (UTC9)"},
      {QStringLiteral("151545Z"), QStringLiteral("+9"), today, u" ： 16日 00:45 I (UTC9)"},
      {QStringLiteral("301545Z"), QStringLiteral("+9"), today, u" ： 01日 00:45 I (UTC9)"},
      {QStringLiteral("301545Z"), QStringLiteral("+9"), QDate(2026, 1, 5), u" ： 31日 00:45 I (UTC9)"},
      {QStringLiteral("281545Z"), QStringLiteral("+9"), QDate(2100, 2, 1), u" ： 29日 00:45 I (UTC9)"},
      {QStringLiteral("281545Z"), QStringLiteral("+9"), QDate(2026, 2, 1), u" ： 01日 00:45 I (UTC9)"},
      {QStringLiteral("010300Z"), QStringLiteral("-5"), QDate(2024, 3, 1), u" ： 29日 22:00 R (UTC-5)"},
      {QStringLiteral("010300Z"), QStringLiteral("-5"), QDate(2026, 1, 1), u" ： 31日 22:00 R (UTC-5)"},
      {QStringLiteral("000300Z"), QStringLiteral("-5"), today, u" ： -01日 22:00 R (UTC-5)"},
      {QStringLiteral("450000Z"), QStringLiteral("±0"), today, u" ： 45日 00:00 Z (UTC0)"},
      {QStringLiteral("3018"), QStringLiteral("+9"), today, u" ： 01日 03:00I (UTC9)"},
  };
  for (const auto& c : cases)
    EXPECT_EQ(tip(QStringLiteral("x/[%1]").arg(c.group), zoned(true, c.offset), c.date),
              QString(c.group).append(c.text));
}

TEST(ExplainSelection, SelectionIsCutToTheScreen) {
  const auto beyond = ExplainSelection(u"X CALM", 2, 99, today, utc, sampleTables());
  ASSERT_TRUE(beyond);
  EXPECT_EQ(beyond->text, u"CALM ： 無風");
  EXPECT_EQ(beyond->picture, u"CALM");
  EXPECT_FALSE(ExplainSelection(u"X CALM", 99, 4, today, utc, sampleTables()));
  EXPECT_FALSE(ExplainSelection(u"X CALM", 2, -1, today, utc, sampleTables()));
}
