// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/endpoints.h"

#include "base/files.h"
#include "support/own_folder.h"

#include <gtest/gtest.h>

using namespace soran;
using namespace Qt::StringLiterals;

TEST(Endpoints, AheadIsANumberWithinItsBounds) {
  OwnFolder folder;
  const struct {
    const char* line;
    int ahead;
  } cases[] = {
      {"", 2},
      {"ahead=", 0},
      {"ahead=0", 0},
      {"ahead=1", 1},
      {"ahead= 5 ", 5},
      {"ahead=8", 8},
      {"ahead=9", 8},
      {"ahead=-1", 0},
      {"ahead=-99999999999", 0},
      {"ahead=\"4\"", 4},
      {"ahead=many", 0},
      {"ahead=nan", 0},
      {"ahead=99999999999999999999", 8},
      {"ahead=3,4", 0},
  };
  Endpoints before;
  before.ahead = 2;
  EXPECT_EQ(Endpoints::builtIn(QString()).ahead, 0);
  int files = 0;
  for (const auto& c : cases) {
    // QSettings takes a file of the same size and second for the one it has read.
    const QString ini = folder.filePath(QString::number(++files));
    ASSERT_TRUE(writeWhole(ini, QByteArray("[endpoints]\n") + c.line + '\n'));
    const Endpoints read = before.overriddenBy(ini);
    EXPECT_EQ(read.ahead, c.ahead) << c.line;
    EXPECT_TRUE(read.others.isEmpty());
  }
}

TEST(Endpoints, TellWhatOfAFileIsNotTaken) {
  const OwnFolder folder;
  const std::pair<QByteArray, QStringList> cases[] = {
      {"", {}},
      {"; a comment\n\n  # and another\n", {}},
      {"hello world\n", {u"NO SECTION [endpoints] OR [source.1] IN IT"_s}},
      {"[endpoint]\nmetar=http://a/\n",
       {u"[endpoint] IS NO SECTION OF IT"_s, u"NO SECTION [endpoints] OR [source.1] IN IT"_s}},
      {"[endpoints]\nmetar=hello world\nprobe=\nhome=./home\nupdate=http://127.0.0.1:1\n",
       {u"metar IS NO ADDRESS"_s}},
      {"[source.1]\nmetar=http://a/{code}\nform=zzz\nlist=-4\npause=0\n",
       {u"[source.1] HAS NO ADDRESS FOR TAF"_s, u"[source.1] form IS NEITHER noaa-station NOR raw-lines"_s,
        u"[source.1] list IS NO SUCH NUMBER"_s}},
      {"[source.x]\nmetar=http://a/\ntaf=http://a/\n[endpoints]\nahead=2\n",
       {u"[source.x] IS NO SECTION OF IT"_s}},
  };
  int files = 0;
  for (const auto& [text, remarks] : cases) {
    const QString name = u"e"_s + QString::number(++files);
    ASSERT_TRUE(writeWhole(folder.filePath(name), text));
    QStringList told = Endpoints::builtIn(QString()).overriddenBy(folder.filePath(name)).remarks;
    for (QString& line : told)
      line.remove(name + u": ");
    EXPECT_EQ(told, remarks) << text.toStdString();
  }
  for (const QString& shipped : {u"/packaging/endpoints.ini"_s, u"/packaging/relay/endpoints.ini"_s})
    EXPECT_EQ(Endpoints().overriddenBy(QStringView(SORAN_SOURCE_DIR) + shipped).remarks, QStringList());
}

TEST(Endpoints, NameTheSourcesOfReportsInTheirOrder) {
  const OwnFolder folder;
  auto read = [&, files = 0](const QByteArray& text) mutable {
    const QString ini = folder.filePath(u"own"_s + QString::number(++files));
    EXPECT_TRUE(writeWhole(ini, text));
    FileFault fault = FileFault::Failed;
    Endpoints overridden = Endpoints::builtIn(QString()).overriddenBy(ini, &fault);
    EXPECT_EQ(fault, FileFault::None) << text.toStdString();
    return overridden;
  };
  const QByteArray second = "[source.10]\nname=b\nform=raw-lines\nmetar=http://b/m?ids={codes}&format=raw\n"
                            "taf=http://b/t?ids={codes},X\nlist=999\npause=-1\n";
  const QByteArray first =
      "[source.2]\nmetar=./m/{code}.TXT\ntaf=http://a/{code}.TXT\n[source.x]\nmetar=x\ntaf=x\n"
      "[source.3]\nmetar=http://c/\n";
  const Endpoints both = read(second + first);
  ASSERT_EQ(both.sources.size(), 2U);
  const std::array codes = {StationCode(u"RJTT"_s), StationCode(u"RJ/T"_s)};
  EXPECT_EQ(both.sources[0].name, u"2");
  EXPECT_FALSE(both.sources[0].takesLists(ReportKind::Metar));
  EXPECT_EQ(both.sources[0].address(ReportKind::Metar, codes),
            QUrl(QUrl::fromLocalFile(folder.path()).toString() + u"/m/RJTT.TXT"));
  EXPECT_EQ(both.sources[1].address(ReportKind::Metar, codes).toString(QUrl::FullyEncoded),
            u"http://b/m?ids=RJTT,RJ%2FT&format=raw");
  EXPECT_EQ(both.sources[1].addressForm(ReportKind::Taf), u"http://b/t?ids={codes},X");
  EXPECT_EQ(both.sources[1].form, ReportSource::Form::RawLines);
  EXPECT_EQ(both.sources[1].list, 400);
  EXPECT_EQ(both.sources[1].pause, 0);
  EXPECT_TRUE(both.sigmet.isEmpty());
  // The keys of old mean one source, and no other host is asked.
  const Endpoints old = read("[endpoints]\nmetar=http://a/\nsigmet=http://a/s\n");
  EXPECT_TRUE(old.sources.empty());
  EXPECT_EQ(old.reportSources()[0].address(ReportKind::Metar, codes), QUrl(u"http://a/RJTT.TXT"_s));
  EXPECT_EQ(old.sigmet, u"http://a/s");
  FileFault fault = FileFault::Failed;
  const Endpoints shipped =
      Endpoints().overriddenBy(QStringView(SORAN_SOURCE_DIR) + u"/packaging/endpoints.ini", &fault);
  EXPECT_EQ(fault, FileFault::None);
  EXPECT_EQ(shipped.sources, Endpoints::builtIn(QString()).sources);
  EXPECT_EQ(shipped.sigmet, Endpoints::builtIn(QString()).sigmet);
  EXPECT_EQ(shipped.ahead, 4);
}
