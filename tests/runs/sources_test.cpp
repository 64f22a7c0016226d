// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/utc.h"
#include "runs/change_detector.h"
#include "runs/headline_note.h"
#include "runs/last_known.h"
#include "runs/run_bench.h"
#include "support/printing.h"

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

const QStringList codes = {u"RJTT"_s, u"RJAA"_s, u"RJBB"_s, u"RJCC"_s, u"RJFF"_s, u"ROAH"_s};
const QString nobody = u"http://127.0.0.1:1"_s;

QString metarOf(const QString& code) {
  return code + u" 240500Z 36010KT 9999 -RA FEW030 BKN0"_s + QString::number(code[3].unicode()) +
         u" 12/02 Q1018 RMK 1CU030 A3006"_s;
}
QString tafOf(const QString& code, const QString& gap) {
  return code + u" 240505Z 2406/2512 36010KT 9999 FEW030" + gap + u"BECMG 2409/2411 18012KT" + gap +
         u"TEMPO 2412/2415 4000 TSRA BKN010CB"_s;
}

/// Serves the same reports as station files and as raw lines.
class TwoSources : public ::testing::Test {
 protected:
  TwoSources() {
    world.prepare([](Tables& tables) { setAutoList(tables, codes.join(u' ')); });
    for (const QString& code : codes) {
      world.report(code, u"05:00"_s, metarOf(code).mid(5));
      world.forecast(code, u"05:05"_s, u"TAF " + tafOf(code, u"\n     "_s) + u'\n');
    }
    serveLists();
  }

  void serveLists() {
    world.server.setHandler(u"/api/"_s, [this](const QUrl& url) -> std::optional<Answer> {
      if (--left < 0)
        return Answer{.status = 503};
      const bool isMetar = url.path() == u"/api/metar";
      QString body;
      for (const QString& code : url.query().mid(4).split(u'&').first().split(u',')) {
        if (codes.contains(code))
          body += (isMetar ? u"METAR "_s + metarOf(code) : u"TAF "_s + tafOf(code, u"\n  "_s)) + u'\n';
      }
      return body.isEmpty() ? Answer{.status = 204} : Answer{.body = body.toUtf8()};
    });
  }

  ReportSource files(const QString& base) const {
    return {.name = u"files"_s,
            .metar = base + stationsPath + u"{code}.TXT",
            .taf = base + forecastsPath + u"{code}.TXT"};
  }
  ReportSource lists(const QString& base) const {
    return {.name = u"lists"_s,
            .form = ReportSource::Form::RawLines,
            .metar = base + u"/api/metar?ids={codes}&format=raw",
            .taf = base + u"/api/taf?ids={codes}&format=raw",
            .list = 4};
  }

  struct Seen {
    QStringList screens;
    QStringList log;
    QString panel1;
    bool operator==(const Seen&) const = default;
  };
  /// A list, a translation and a sequence, with one station that nobody has.
  Seen see(std::vector<ReportSource> sources, int ahead = 0) {
    world.endpoints.sources = std::move(sources);
    world.endpoints.ahead = ahead;
    QFile::remove(world.path(u"data/sequence.dat"_s));
    RunBench run(world);
    EXPECT_TRUE(run.begin());
    run.program.console.setPanel(1, run.program.connectedText());
    Seen seen;
    const QString list = codes.join(u' ') + u" ZZZZ";
    run.list(list), seen.screens.append(run.screen());
    run.japanese(list), seen.screens.append(run.screen());
    run.sequence(list), seen.screens.append(run.screen());
    seen.log = run.logged();
    seen.panel1 = run.program.console.status().panel1();
    requests = world.server.requests();
    world.server.clearRequests();
    return seen;
  }

  World world;
  QString here = world.server.baseAddress();
  int left = 1000; ///< requests that the lists answer still
  QStringList requests;
};

} // namespace

TEST_F(TwoSources, ShowTheSameAloneTogetherAndWhereOneDies) {
  const Seen plain = see({});
  ASSERT_TRUE(plain.screens[0].contains(u"BECMG   2409/2411"));
  const struct {
    const char* name;
    std::vector<ReportSource> sources;
    int listsAnswer = 1000;
    bool firstIsAway = false;
  } cases[] = {
      {"files", {files(here)}},
      {"lists", {lists(here)}},
      {"both", {files(here), lists(here)}},
      {"lists first", {lists(here), files(here)}},
      {"files dead", {files(nobody), lists(here)}, 1000, true},
      {"lists dead", {lists(nobody), files(here)}, 1000, true},
      {"lists die in the middle", {lists(here), files(here)}, 1, true},
      {"lists are busy", {lists(here), files(here)}, 0, true},
  };
  for (const auto& c : cases) {
    for (const int ahead : {0, 4}) {
      SCOPED_TRACE(testing::Message() << c.name << ' ' << ahead);
      left = c.listsAnswer;
      Seen seen = see(c.sources, ahead);
      EXPECT_EQ(seen.panel1, c.firstIsAway ? panelConnected + u" (" + c.sources[0].name + u" 応答なし)"
                                           : panelConnected.toString());
      seen.panel1 = plain.panel1;
      EXPECT_EQ(seen.screens, plain.screens);
      EXPECT_EQ(seen.log, plain.log);
    }
  }
}

TEST_F(TwoSources, AListIsARequestForAsManyStationsAsItTakes) {
  see({lists(here), files(here)});
  // Two stretches of each kind, and the station that the lists do not have.
  EXPECT_EQ(requests.filter(u"/api/metar"_s).size(), 2 + 2 + 2);
  EXPECT_EQ(requests.filter(u"/api/taf"_s).size(), 2);
  EXPECT_EQ(requests.filter(u".TXT"_s).filter(u"ZZZZ"_s).size(), 3);
}

TEST_F(TwoSources, TheWatchAsksNothingTwiceWithinAPauseAndRingsAtNoChangeOfSource) {
  for (const bool listsFirst : {false, true}) {
    SCOPED_TRACE(listsFirst);
    std::vector<ReportSource> sources = {files(here), lists(here)};
    if (listsFirst)
      std::swap(sources[0], sources[1]);
    world.endpoints.sources = sources;
    RunBench run(world);
    ASSERT_TRUE(run.begin());
    run.program.stationTable.rebuild(codes.join(u' '));
    checkForChanges(run.program);
    run.forget();
    // The source that served everything is gone, and its files were written some minutes later than their
    // reports.
    run.program.services.endpoints.sources[0].metar.prepend(u"x"_s);
    run.program.services.endpoints.sources[0].taf.prepend(u"x"_s);
    world.clock.advance(120);
    checkForChanges(run.program);
    EXPECT_FALSE(run.program.cycleChanged);
    const qsizetype asked = world.server.requests().size();
    checkForChanges(run.program);
    EXPECT_EQ(world.server.requests().size(), asked);
    EXPECT_EQ(run.logged().filter(u"OLDER"_s), QStringList());
  }
}

TEST_F(TwoSources, WhatASourceServesOlderAnotherServesNewer) {
  world.endpoints.sources = {files(here), lists(here)};
  RunBench run(world);
  ASSERT_TRUE(run.begin());
  run.list(u"RJTT"_s);
  world.report(u"RJTT"_s, u"04:00"_s, u"240400Z 18010KT"_s);
  run.list(u"RJTT"_s);
  EXPECT_FALSE(run.screen().contains(u"18010KT"));
  EXPECT_EQ(run.logged().filter(u"OLDER REPORT 0400"_s).size(), 1);
  EXPECT_EQ(run.program.knownReports.find(StationCode(u"RJTT"_s), ReportKind::Metar)->source, u"lists");
}

TEST(SourceHealth, ASourceThatFailsIsLeftOutForLongerEachTime) {
  SourceHealth health;
  QDateTime now = inUtc(QDate(2026, 11, 24), QTime(5, 0));
  for (const int minutes : {1, 2, 4, 8, 16, 30, 30}) {
    health.tell(0, 60, 31, now);
    EXPECT_TRUE(health.isAway(0, now.addSecs(minutes * 60 - 1)));
    EXPECT_FALSE(health.isAway(0, now.addSecs(minutes * 60)));
    now = now.addSecs(minutes * 60);
  }
  health.tell(0, 0, 0, now);
  health.tell(0, 60, 30, now);
  EXPECT_FALSE(health.isAway(0, now));
  health.tell(0, 1, 1, now);
  EXPECT_FALSE(health.isAway(0, now.addSecs(60)));
}

TEST_F(TwoSources, TheLastKnownReportOutlivesTheProgramAndTellsItsAge) {
  world.endpoints.sources = {files(here)};
  {
    RunBench run(world);
    ASSERT_TRUE(run.begin());
    run.list(u"RJTT"_s);
    // The headline tells of itself, from its first to its last character, and nothing else does.
    const QString text = run.program.console.screen().text();
    const QString headline = u"RJTT  TAF   1405I"_s;
    const qsizetype at = text.indexOf(headline);
    for (const qsizetype position : {at, at + headline.size()})
      EXPECT_EQ(headlineNote(run.program, position),
                u"RJTT TAF 240505Z / 15 min OLD / FROM files / ASKED 05:20Z");
    for (const qsizetype position :
         {qsizetype(-1), qsizetype(0), at - 1, at + headline.size() + 2, text.size(), text.size() + 1})
      EXPECT_EQ(headlineNote(run.program, position), QString());
    EXPECT_EQ(watchNote(run.program), u"OLDEST METAR RJTT 240500Z / 20 min OLD / NONE OVERDUE");
  }
  EXPECT_FALSE(contents(world.path(u"last.mdb"_s)).contains("RJTT"));
  EXPECT_EQ(QFile::permissions(world.path(u"last.mdb"_s)) & (QFile::ReadGroup | QFile::ReadOther),
            QFile::Permissions());
  world.clock.advance(3 * 3600);
  for (const bool damaged : {false, true}) {
    SCOPED_TRACE(damaged);
    if (damaged)
      writeWhole(world.path(u"last.mdb"_s), QByteArray(5000, 'x'));
    RunBench run(world);
    ASSERT_TRUE(run.begin());
    run.program.networkAvailable = false;
    const QString text = lastKnownText(run.program, {u"RJTT"_s, u"ZZZZ"_s});
    EXPECT_EQ(text.startsWith(u"\r\n*** LAST KNOWN - 3 h 20 min OLD - NO NETWORK ***\r\nRJTT  METAR "
                              u"1400I\r\n      240500Z 36010KT"),
              !damaged);
    EXPECT_EQ(text.contains(u"RJTT  TAF   1405I"), !damaged);
    EXPECT_TRUE(text.endsWith(u"\r\nZZZZ  NOT FOUND\r\n"));
    run.program.networkAvailable = true;
    run.list(u"RJTT"_s);
    EXPECT_TRUE(
        lastKnownText(run.program, {u"RJTT"_s}).startsWith(u"\r\n*** LAST KNOWN - 3 h 20 min OLD ***\r\n"));
  }
}
