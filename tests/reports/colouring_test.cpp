// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/colouring.h"

#include "colouring_reference.h"
#include "support/printing.h"

#include <gtest/gtest.h>
#include <random>

using namespace Qt::StringLiterals;
using namespace soran;

namespace {

// One letter for each unit: '.' plain, w weather, k kind of report, r red, R red and bold, 1 to 3 below the
// ceiling of that condition, a to c below the visibility of condition 1 to 3, y yellow, ? anything else.
constexpr struct {
  char letter;
  Colour colour;
} palette[] = {{'.', Colour{0x7FFFFFFE}}, {'w', Colour{11}}, {'k', Colour{12}},   {'r', Colour{255}},
               {'1', Colour{21}},         {'2', Colour{22}}, {'3', Colour{23}},   {'a', Colour{31}},
               {'b', Colour{32}},         {'c', Colour{33}}, {'y', Colour{65535}}};

// Limits of 1000, 200 and 200 feet and 5000, 1600 and 800 metres, all switches on.
SettingsRecord lettered() {
  SettingsRecord settings = SettingsRecord::standard(QStringLiteral("+9"));
  settings.set(key::表示文字の色, palette[0].colour);
  settings.set(key::天気略語の色, Colour{11});
  settings.set(key::SPECIの色, Colour{12});
  settings.set(key::雲高1の色, Colour{21});
  settings.set(key::雲高2の色, Colour{22});
  settings.set(key::雲高3の色, Colour{23});
  settings.set(key::視程1の色, Colour{31});
  settings.set(key::視程2の色, Colour{32});
  settings.set(key::視程3の色, Colour{33});
  return settings;
}

QString picture(const std::vector<AttributeRun>& runs) {
  QString letters;
  for (const AttributeRun& run : runs) {
    char letter = '?';
    for (const auto& entry : palette) {
      if (entry.colour == run.colour)
        letter = entry.letter;
    }
    if (run.bold)
      letter = letter == 'r' ? 'R' : '?';
    letters += QString(run.length, QLatin1Char(letter));
  }
  return letters;
}

QString picture(QStringView text, const SettingsRecord& settings, QStringView codes = u" ",
                QStringView group = {}) {
  return picture(colourRuns(text, settings, codes, group));
}

struct Case {
  QStringView text;
  QStringView letters;
};

TEST(Colouring, WordsAndTheirFalseHits) {
  const Case cases[] = {
      {u"", u""},
      {u"RJTT", u"...."},
      {u"-SHRA BR", u"wwwww.ww"},
      {u"+TSRA", u"wwwww"},
      {u"SHRA", u"wwww"},
      {u" -5 - -RA", u"......www"},
      {u"RA -", u"ww.w"},
      {u" -0", u".w."},
      {u"N-E- RI++", u".....wwww"},
      {u"SSS", u"ww."},
      {u"WS -WS", u"rr.wrr"},
      {u"CB TCU -CB", u"RR.RRR.RRR"},
      {u"SAVE POSITION READY TEMPO", u"........................."},
      {u"SPECI RJSS 220642Z", u"kkkkkkkk.........."},
      {u"SPECI RJTT 220642Z", u"kkkkkkkkkkk......."},
      {u"TAF AMD SPECI", u"....kkk.kkkkk"},
      {u"LOADING xxxxxxxxxxxxxxxxxxLOADINGxx LOADING", u"yyyyyyyyyyyyyyyyyyyyyyyyyyyyyy......yyyyyyy"},
  };
  for (const auto& [text, letters] : cases)
    EXPECT_EQ(picture(text, lettered()), letters) << text.toUtf8().toStdString();
}

TEST(Colouring, CeilingsBelowTheLimit) {
  const Case cases[] = {
      {u"BKN009 BKN010 OVC001 BKN/// BKN", u"111111...........333........333"},
      {u"BKNBKN001", u"333333..."},
      {u"BKN 1\r", u"333333"},
      {u"5CU009 4CU009 6ST/// CU001", u"111111........333333......"},
      {u"9CU5CU001", u"111111..."},
      {u"CU001", u"....."},
      {u"VV/// VV001 VV", u"33333.33333.33"},
  };
  for (const auto& [text, letters] : cases)
    EXPECT_EQ(picture(text, lettered()), letters) << text.toUtf8().toStdString();

  SettingsRecord settings = lettered();
  settings.set(key::雲高3, 250);
  settings.set(key::鉛直視程3有効, false);
  EXPECT_EQ(picture(u"BKN002 BKN003 VV001", settings), u"333333.111111.22222");
}

TEST(Colouring, VisibilitiesAndRunwayVisualRangesBelowTheLimit) {
  const Case cases[] = {
      {u" 0300 9999 3000 1500 ", u".cccc......aaaa.bbbb."},
      {u" 0799 0800 1600 5000 ", u".cccc.bbbb.aaaa......"},
      {u" 0300", u"....."},
      {u" 0300\r", u"......"},
      {u" 03/0 03000 ", u"............"},
      {u"TEMPO 3000 3000 ", u"...........aaaa."},
      {u"NEXT 0306 FCST 0306 ", u"...................."},
      {u"BECMG 0306 BECMG   0809 ", u"........................"},
      {u"EMPO 0300 ", u"..ww.cccc."},
      {u" BR 0300 ", u".ww......"},
      {u"ELV 1220 ", u"........."},
      {u"R34L/0600V1200U", u".....cccc.bbbb."},
      {u"R34L///////", u"..........."},
      {u"R34/12345", u"....bbbba"},
      {u"R34L/M\r\n0600 0600", u"........cccc....."},
      {u"R/R34L/0600", u"..........."},
      {u"R01L/R/R34L/0600", u"............cccc"},
      {u"R34L 0600/0600", u".............."},
  };
  for (const auto& [text, letters] : cases)
    EXPECT_EQ(picture(text, lettered()), letters) << text.toUtf8().toStdString();
}

TEST(Colouring, ShownCodesAndTheGroupKeepTheColourOfTheText) {
  EXPECT_EQ(picture(u"RJSS\r\n", lettered()), u"..ww..");
  EXPECT_EQ(picture(u"RJSS\r\n", lettered(), u" RJTT RJSS "), u"......");
  EXPECT_EQ(picture(u"SPECI RJTT 220642Z", lettered(), u" RJTT "), u"kkkkkk....k.......");
  EXPECT_EQ(picture(u"SASASA", lettered(), u" ", u"SASA"), u"....ww");
  EXPECT_EQ(picture(u"SHIRAHAMA RA", lettered(), u" ", u"SHIRAHAMA"), u"..........ww");
  EXPECT_EQ(picture(u"関東SA東", lettered(), u" 関東 SA東 ", u"関東"), u".....");
  EXPECT_EQ(picture(u"SA", lettered(), u"", u""), u"ww");
}

TEST(Colouring, SwitchesLimitsAndColoursThatAreOffOrMissing) {
  constexpr QStringView text = u"COR -RA CB BKN001 0300 ";
  const struct {
    SettingIndex index;
    QVariant value;
    QStringView letters;
  } cases[] = {
      {key::天気略語着色.index, false, u"kkk.....RR.333333.cccc."},
      {key::天気略語の色.index, {}, u"kkk.....RR.333333.cccc."},
      {key::SPECI着色.index, false, u"....www.RR.333333.cccc."},
      {key::計器気象状態を強調.index, false, u"kkk.www................"},
      {key::CBTCUを強調.index, {}, u"kkk.www....333333.cccc."},
      {key::条件3有効.index, false, u"kkk.www.RR.222222.bbbb."},
      {key::雲高3.index, {}, u"kkk.www.RR.222222.cccc."},
      {key::視程3.index, 0, u"kkk.www.RR.333333.bbbb."},
      {key::視程3の色.index, {}, u"kkk.www.RR.333333.bbbb."},
  };
  for (const auto& c : cases) {
    SettingsRecord settings = lettered();
    settings.setValue(c.index, c.value);
    EXPECT_EQ(picture(text, settings), c.letters) << static_cast<int>(c.index);
  }
}

TEST(Colouring, TheTextKeepsTheAttributesItWasWrittenWith) {
  const std::vector<AttributeRun> before = {
      {1, 3, Colour{7}, true}, {4, 9, Colour{8}, true}, {90, 5, Colour{9}, false}};
  const std::vector<AttributeRun> after = {{0, 1, palette[0].colour, false}, {1, 3, Colour{7}, true},
                                           {4, 2, Colour{11}, true},         {6, 1, Colour{8}, true},
                                           {7, 3, palette[0].colour, false}, {10, 3, Colour{8}, true}};
  EXPECT_EQ(colourRuns(u"XYZQRA OVC///", lettered(), u" ", {}, before), after);
}

// Texts that mix whole words, their pieces and what stands between them, close enough for every rule to meet
// every other.
class Generator {
 public:
  explicit Generator(unsigned seed) : random_(seed) {}

  int below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
  bool often() { return below(6) != 0; }

  QString text(int pieces) {
    static const QStringList words = [] {
      QStringList all = u"CB TCU BKN CU ST VV NEXT BECMG LOADING 1220 RJSS RJTT 関東 AA R34L/ R16/ "
                        "R06R/0600V1200 BKN009 OVC/// 6CU008 VV001"_s.split(u' ');
      for (const auto& entry : colouring::weatherWords)
        all.append(entry.word.toString());
      for (const auto& entry : colouring::kindWords)
        all.append(entry.word.toString());
      for (const QStringView word : colouring::restoredWords)
        all.append(word.toString());
      return all;
    }();
    static const QString marks = QStringLiteral("     --++///0123456789R.\r\nSABKNV東");
    QString text;
    while (pieces-- > 0) {
      switch (below(6)) {
      case 0:
      case 1:
        text += words[below(static_cast<int>(words.size()))];
        break;
      case 2:
        text += QString::number(below(10000)).rightJustified(4 - below(2), u'0');
        break;
      case 3:
        text += u' ';
        break;
      default:
        text += marks[below(static_cast<int>(marks.size()))];
      }
    }
    return text;
  }

  SettingsRecord settings() {
    SettingsRecord settings = lettered();
    for (const auto& toggle : {key::天気略語着色, key::SPECI着色, key::計器気象状態を強調, key::CBTCUを強調,
                               key::条件1有効, key::条件2有効, key::条件3有効, key::鉛直視程2有効})
      settings.set(toggle, often());
    for (const auto& ceiling : {key::雲高1, key::雲高2, key::雲高3})
      settings.set(ceiling, below(3) * below(5000));
    for (const auto& visibility : {key::視程1, key::視程2, key::視程3})
      settings.set(visibility, below(10000));
    if (!often())
      settings.setValue(static_cast<SettingIndex>(below(static_cast<int>(settingSpecs.size()))), {});
    return settings;
  }

  QString name() {
    static const QString names[] = {{},
                                    QStringLiteral("RJSS"),
                                    QStringLiteral("A"),
                                    QStringLiteral("AA"),
                                    QStringLiteral("SS"),
                                    QStringLiteral("関東"),
                                    QStringLiteral(" -"),
                                    QStringLiteral("RA -"),
                                    QStringLiteral("00")};
    return names[below(static_cast<int>(std::size(names)))];
  }

 private:
  std::mt19937 random_;
};

TEST(Colouring, AgreesWithTheReferenceOnGeneratedTexts) {
  Generator generate(20261124);
  for (int round = 0; round < 20000; ++round) {
    const QString text = generate.text(generate.below(round % 100 == 0 ? 400 : 40));
    const SettingsRecord settings = generate.settings();
    const QString group = generate.name();
    QString codes = QStringLiteral(" ");
    for (int i = generate.below(4); i > 0; --i)
      codes += generate.name().remove(u' ') + u' ';
    std::vector<AttributeRun> before;
    if (round % 2 == 0)
      before.push_back({generate.below(9), generate.below(40), Colour{-2}, true});

    ColouringReference reference(text, settings);
    reference.write(before);
    ASSERT_EQ(colourRuns(text, settings, codes, group, before), reference.runs(codes, group))
        << "round " << round << ": " << text.toUtf8().toStdString();
  }
}

} // namespace
