// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/foreign_text.h"
#include "base/text.h"
#include "support/printing.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace soran;

TEST(Text, LeadingNumberReadsTheLongestPlainNumber) {
  const struct {
    QStringView text;
    double value;
  } cases[] = {
      {u"030", 30},    {u"///", 0}, {u"M060", 0}, {u"", 0},     {u"  7Z", 7},
      {u"+9", 9},      {u"-5", -5}, {u"±0", 0},   {u"1E2", 1},  {u"4.31\r\n", 4.31},
      {u"1.2.3", 1.2}, {u"- 5", 0}, {u"+-5", 0},  {u".5", 0.5}, {u"5.", 5},
      {u"\u30005", 0}, {u"\t5", 0}, {u"０", 0},   {u"-0", 0},
  };
  for (const auto& c : cases)
    EXPECT_DOUBLE_EQ(leadingNumber(c.text), c.value) << c.text.toUtf8().toStdString();
  EXPECT_EQ(leadingInteger(QString(400, u'9')), std::numeric_limits<int>::max());
}

TEST(Text, PositionsFromOneAreClippedToTheText) {
  EXPECT_EQ(mid1(u"RJTT", 2, 2), u"JT");
  EXPECT_EQ(mid1(u"RJTT", 4, 9), u"T");
  EXPECT_EQ(mid1(u"RJTT", 5, 1), u"");
  EXPECT_EQ(mid1(u"RJTT", 0, 2), u"R");
  EXPECT_EQ(mid1(u"RJTT", -3, 2), u"");
  EXPECT_EQ(at1(u"RJTT", 0), QChar());
  EXPECT_EQ(at1(u"RJTT", 4), u'T');
  EXPECT_EQ(find1(u"RJTT RJTT", u"RJ", 2), Position1(6));
  EXPECT_EQ(find1(u"RJTT", u"rj"), Position1());
}

TEST(Text, NumbersPrintInTheirShortestForm) {
  EXPECT_EQ(plainNumber(58.4F, 7), u"58.4");
  EXPECT_EQ(plainNumber(1487.9F, 7), u"1487.9");
  EXPECT_EQ(plainNumber(3000), u"3000");
  EXPECT_EQ(plainNumber(10000000), u"10000000");
  EXPECT_EQ(plainNumber(0.00001), u"0.00001");
  EXPECT_EQ(twoDigits(-3), u"-03");
  EXPECT_EQ(twoDigits(123), u"123");
}

TEST(Text, CodeListIsFourLettersAndOneBlank) {
  for (const QStringView good : {u"RJTT", u"rjtt RJAA", u"RJTT RJAA RJBB"})
    EXPECT_TRUE(isCodeList(good)) << good.toUtf8().toStdString();
  for (const QStringView bad :
       {u"", u"RJT", u"RJ01", u"RJTT ", u"RJTT  RJAA", u"RJTTRRJAA", u"RJTT RJA", u"ＲＪＴＴ"})
    EXPECT_FALSE(isCodeList(bad)) << bad.toUtf8().toStdString();
}

TEST(Text, RememberedWordsAreDroppedOldestFirstBeyondTwoHundredCharacters) {
  QString list = QStringLiteral(" ");
  rememberWord(list, u"RJTT");
  rememberWord(list, u"RJTT");
  EXPECT_EQ(list, u" RJTT ");
  list = QStringLiteral(" AAAA ") + QString(193, u'B') + u' ';
  ASSERT_EQ(list.size(), 200);
  rememberWord(list, u"AAAA");
  EXPECT_EQ(list.size(), 200);
  rememberWord(list, u"C");
  EXPECT_EQ(list, QStringLiteral(" ") + QString(193, u'B') + QStringLiteral(" C "));
}

TEST(ForeignText, MasksWhatMisleads) {
  const struct {
    QString text;
    QString clean;
  } cases[] = {
      {u"RJTT 240500Z\t=\r\n"_s, u"RJTT 240500Z\t=\r\n"_s},
      {u"羽田 Tōkyō ｶﾅ ±・\u3000"_s, u"羽田 Tōkyō ｶﾅ ±・\u3000"_s},
      {u"葛\U000E0100城 😀"_s, u"葛\U000E0100城 😀"_s},
      {u"\u202E9999 \u2066\u2069\u200F\u061C"_s, u"·9999 ····"_s},
      {u"1\u200B2\u200D3\u2060\uFEFF4\u00AD5\u034F"_s, u"1·2·3··4·5·"_s},
      {u"\x1B[2J\x07\x7F\u0085\u009B0m\f"_s, u"·[2J····0m·"_s},
      {u"a\u2028b\u2029c\U000E0041d"_s, u"a·b·c·d"_s},
      {QString(u'x') + QChar(0xD83D) + u'y' + QChar(0xDE00) + QChar(0xD83D), u"x·y··"_s},
  };
  for (const auto& c : cases)
    EXPECT_EQ(cleaned(c.text), c.clean);
}
