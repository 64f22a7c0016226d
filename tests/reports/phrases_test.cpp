// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/phrases.h"

#include "base/zone_offset.h"
#include "reports/checked_text.h"
#include "support/printing.h"

#include <gtest/gtest.h>

using namespace soran;

namespace {

struct Phrase {
  QStringView group;
  QStringView sentence;
};

} // namespace

TEST(Phrases, WindIsToldWithItsGustsAndLimits) {
  constexpr Phrase cases[] = {
      {u"00000KT", u"風速 0.4ノット以下の静穏な風"},
      {u"VRB03KT", u"風向が特定できない 3ノットの風"},
      {u"VRB12G20KT", u"風向が特定できない 12ノットの風"},
      {u"VRBKT", u"風向が特定できない 0ノットの風"},
      {u"27015G25KT", u"270°方向から 15ノット / 最大瞬間風速 25ノット"},
      {u"270P99KT", u"270°方向から 100ノット以上"},
      {u"27015GP99KT", u"270°方向から 100ノット以上 / 最大瞬間風速 100ノット以上"},
      {u"/////KT", u"///°方向から 0ノット"},
      {u"270105KT", u"270°方向から 105ノット"},
  };
  for (const Phrase& c : cases)
    EXPECT_EQ(WindPhrase(c.group), c.sentence);
  for (const QStringView tooShort : {u"KT", u"VRB", u"1KT", u""})
    EXPECT_THROW(WindPhrase(tooShort), TextFailure) << tooShort.toUtf8().toStdString();
}

TEST(Phrases, RunwayRangeFollowsTheFirstFormThatFits) {
  constexpr Phrase cases[] = {
      {u"R34L//////", u"滑走路34LのRVRは、欠測している"},
      {u"R11/0800VP1800U",
       u"滑走路11のRVRは、800メートルから1800メートル(測定範囲の上限)の間を変動しながら上昇中"},
      {u"R34L/M0600V1200",
       u"滑走路34LのRVRは、0メートル(測定範囲の下限)から200メートルの間を変動しており、変化傾向は不明"},
      {u"R06/0600V1200D", u"滑走路06のRVRは、600メートルから1200メートルの間を変動しながら下降中"},
      {u"R06/0600V1200N", u"滑走路06のRVRは、600メートルから1200メートルの間を変動しており、変化なし"},
      {u"R06/P2000U", u"滑走路06のRVRは、2000メートル(測定範囲の上限)を超えており、さらに上昇中"},
      {u"R06/P2000D", u"滑走路06のRVRは、2000メートル(測定範囲の上限)を超えて"},
      {u"R06/M0050D", u"滑走路06のRVRは、50メートル(測定範囲の下限)を下回っており、さらに下降中"},
      {u"R06/M0050U", u"滑走路06のRVRは、50メートル(測定範囲の下限)を下回って"},
      {u"R06/M0050N", u"滑走路06のRVRは、50メートル(測定範囲の下限)を下回っており、変化なし"},
      {u"R06/1000U", u"滑走路06のRVRは、1000メートルで、さらに上昇中"},
      {u"R06/1000D", u"滑走路06のRVRは、1000メートルで、さらに下降中"},
      {u"R06/1000N", u"滑走路06のRVRは、1000メートルで、変化傾向は不明"},
      {u"R06/1000FT", u"滑走路06のRVRは、1000フィートで、変化傾向は不明"},
      {u"R/12", u"滑走路のRVRは、12メートルで、変化傾向は不明"},
  };
  for (const Phrase& c : cases)
    EXPECT_EQ(RvrPhrase(c.group), c.sentence);
  for (const QStringView malformed : {u"/R", u"R06", u"R/0V", u""})
    EXPECT_THROW(RvrPhrase(malformed), TextFailure) << malformed.toUtf8().toStdString();
}

TEST(Phrases, PressureAndTenthsReadTheirFigures) {
  EXPECT_EQ(SeaLevelPressureText(u"SLP012"), u"1001.2");
  EXPECT_EQ(SeaLevelPressureText(u"SLP987"), u"998.7");
  EXPECT_EQ(SeaLevelPressureText(u"SLP123"), u"912.3");
  EXPECT_EQ(SeaLevelPressureText(u"SLP"), u"10.");
  EXPECT_EQ(TenthsPhrase(u"T10050012", 2), u"マイナス 0.5℃");
  EXPECT_EQ(TenthsPhrase(u"T10050212", 6), u"21.2℃");
  EXPECT_EQ(TenthsPhrase(u"LIGHTNING", 2), u"0.T℃");
}

TEST(Phrases, ZoneLettersLeaveOutJ) {
  QString letters;
  for (int offset = -13; offset <= 13; ++offset)
    letters += ZoneLetter({offset});
  EXPECT_EQ(letters, u"YXWVUTSRQPONZABCDEFGHIKLM");
}
