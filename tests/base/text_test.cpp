// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/text.h"
#include "support/printing.h"

#include <gtest/gtest.h>

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
