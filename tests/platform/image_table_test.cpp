// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/utc.h"
#include "platform/image_table.h"

#include "support/printing.h"

#include <gtest/gtest.h>

using namespace soran;
using namespace Qt::StringLiterals;

TEST(ImageTable, ABadRowIsNamedAndTheOthersLiveOn) {
  const struct {
    const char* lines;
    int at; // line of the fault, from 1 and that of the section; 0 for a good row
    QStringView told;
  } cases[] = {
      {"address=https://a.example/x_{yyyy}{MM}{dd}{HH}{mm}.png\nstep=30\noffset=20\nback=2\nzone=JST", 0,
       u""},
      {"list=https://a.example/l.json\npath=near.now[max]\naddress=https://a.example/{name}", 0, u""},
      {"reason=なし", 0, u""},
      {"", 1, u"address"},
      {"address=//a.example", 1, u"アドレスではありません"},
      {"address=ftp://a.example/a", 1, u"アドレスではありません"},
      {"address=https://a.example/{hh}", 1, u"{hh}"},
      {"address=https://a.example/{HH}", 1, u"step"},
      {"address=https://a.example/{HH}\nstep=7", 1, u"1440"},
      {"address=https://a.example/\nstep=1441", 3, u"step"},
      {"address=https://a.example/\n\n; x\nback=many", 5, u"back"},
      {"address=https://a.example/{name}", 1, u"list"},
      {"list=https://a.example/", 1, u"path"},
      {"list=https://a.example/\npath=a\npattern=b", 1, u"同時"},
      {"address=https://a.example/\nzone=EST", 3, u"EST"},
      {"address=https://a.example/\nlayer.1=https://a.example/", 3, u"layer.1"},
      {"adress=https://a.example/100%1", 2, u"adress"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.lines);
    const ImageTable table = readImageTable(
        QByteArray("[bad]\n") + c.lines + "\n[good]\naddress=https://g.example/\n", u"t.ini"_s);
    ASSERT_EQ(table.rows.size(), 2U);
    EXPECT_TRUE(table.find(u"good"_s, -1)->isAvailable());
    EXPECT_EQ(table.faults.isEmpty(), c.at == 0) << table.faults.join(u'|').toStdString();
    const QString fault = table.faults.value(0);
    EXPECT_TRUE(c.at == 0 || fault.startsWith(u"t.ini の %1 行目 [bad]"_s.arg(c.at))) << fault.toStdString();
    EXPECT_TRUE(fault.contains(c.told)) << fault.toStdString();
    EXPECT_TRUE(c.at == 0 || table.find(u"bad"_s, 3)->reason == fault);
  }
}

TEST(ImageTable, TheUsersRowStandsForTheWholeOfTheOther) {
  ImageTable table =
      readImageTable("[a]\naddress=https://a.example/a.pdf\n[b.2]\nreason=x\n[b]\nreason=y", {});
  EXPECT_EQ(table.find(u"a"_s, -1)->kind, ImageRow::Kind::Pdf);
  table.overrideBy(readImageTable("x=1\n[a]\nreason=z\n[a]\nreason=w", u"own"_s));
  EXPECT_EQ(table.faults.size(), 2);
  EXPECT_TRUE(table.find(u"a"_s, -1)->layers.isEmpty());
  EXPECT_EQ(table.find(u"b"_s, 2)->reason, u"x");
  EXPECT_EQ(table.find(u"b"_s, 1)->reason, u"y");
  EXPECT_EQ(table.find(u"c"_s, 1), nullptr);
}

TEST(ImageTable, TimesAreThoseOfTheZoneAndWalkBack) {
  const QDateTime now = inUtc(QDate(2026, 11, 23), QTime(15, 10)); // 00:10 of the 24th in Japan
  const struct {
    ImageRow row;
    QStringView name, addresses;
  } cases[] = {
      {{.layers = {u"http://a/{yyyy}{MM}{dd}{HH}{mm}"_s}, .step = 30, .offset = 15, .back = 2},
       u"",
       u"http://a/202611231430 http://a/202611231400 http://a/202611231330"},
      {{.layers = {u"http://a/{dd}_{HH}"_s}, .japanTime = true, .step = 720}, u"", u"http://a/24_00"},
      {{.layers = {u"http://a/{dd}_{HH}"_s}, .japanTime = true, .step = 1440, .offset = 11},
       u"",
       u"http://a/23_00"},
      {{.layers = {u"http://a/x.png"_s}}, u"", u"http://a/x.png"},
      {{.layers = {u"http://a/p/{name}"_s}, .list = u"http://b/l"_s}, u"n.png", u"http://a/p/n.png"},
      {{.layers = {u"{name}"_s}, .list = u"http://b/l/{dd}"_s, .step = 720}, u"../n.png", u"http://b/n.png"},
      // A list tells names, not whom to ask.
      {{.layers = {u"{name}"_s}, .list = u"http://b/l"_s}, u"http://c/n.png", u""},
      {{.layers = {u"{name}"_s}, .list = u"http://b/l"_s}, u"file:///etc/passwd", u""},
      {{.layers = {u"http://a{name}"_s}, .list = u"http://b/l"_s}, u".evil/n.png", u""},
  };
  for (const auto& c : cases) {
    QStringList addresses;
    for (const QDateTime& time : imageTimes(c.row, now))
      addresses.append(imageAddress(c.row, c.row.layers.first(), time, c.name.toString()).toString());
    EXPECT_EQ(addresses.join(u' '), c.addresses);
  }
}
