// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runs/station_files.h"

#include "runs/run_bench.h"

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

const QString stations = u"RJTT RJAA ZZZZ RJBB RJCC RJTT RJFF RJSN RJGG RJOO YYYY RJCH"_s;
constexpr int waitsAt = 4; // the place of RJCC, which is slow

/// A station of every kind of fate. The slow ones take `delay` milliseconds.
void serve(World& world, int delay) {
  for (const QString& code : {u"RJTT"_s, u"RJBB"_s, u"RJCC"_s, u"RJFF"_s, u"RJGG"_s, u"RJOO"_s, u"RJCH"_s})
    world.report(code, u"05:15"_s, u"240515Z 36010KT "_s + code, u"240500Z AMD "_s + code);
  world.report(u"RJAA"_s, u"05:00"_s, u"240500Z 36010KT"_s); // its forecast is refused
  world.server.setFile(stationsPath + u"RJSN.TXT", "");
  world.server.setAnswer(stationsPath + u"YYYY.TXT", {.body = "not here", .status = 404});
  world.server.setDelivery(stationsPath + u"RJBB", {.cutAt = 20});
  world.server.setDelivery(stationsPath + u"RJCC", {.delay = delay});
  world.server.setDelivery(forecastsPath + u"RJFF", {.cutAt = 20});
  world.server.setDelivery(forecastsPath + u"RJGG", {.delay = 60});
  for (const QString& hour : {u"02"_s, u"03"_s, u"04"_s, u"05"_s})
    writeWhole(world.path(u"data/"_s + hour + u".dat"), "RJTT 240400Z X\n");
}

/// What the user and the server see of a run.
struct Seen {
  QStringList steps; ///< the screen at each step of the progress
  QString screen;
  QStringList logged;
  QStringList stamps;
  QByteArray record;
  QStringList asked;  ///< sorted
  QStringList served; ///< sorted
};

using Act = std::function<void(RunBench&)>;

Act list(const QString& codes) {
  return [codes](RunBench& run) { run.list(codes); };
}

void letPass(int milliseconds) {
  QEventLoop loop;
  QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
  loop.exec();
}

/// One run over the stations; `meanwhile` happens while it waits for the slow one.
Seen see(int ahead, const Act& act, const Act& meanwhile) {
  World world;
  world.endpoints.ahead = ahead;
  world.prepare([](Tables& tables) { setAutoList(tables, stations); });
  RunBench run(world);
  EXPECT_TRUE(run.begin());
  serve(world, meanwhile ? 1500 : 60);
  world.server.clearRequests();
  Seen seen;
  bool reached = false;
  QTimer untilAsked;
  QObject::connect(&untilAsked, &QTimer::timeout, &run.program.console, [&] {
    if (!world.server.requests().contains(stationsPath + u"RJCC.TXT"))
      return;
    untilAsked.stop();
    meanwhile(run);
  });
  QObject::connect(&run.program.console, &Console::progress, &run.program.console, [&](int place, int total) {
    seen.steps.append(QString::number(place) + u'/' + QString::number(total) + u' ' + run.screen());
    if (place == waitsAt && meanwhile && !std::exchange(reached, true))
      untilAsked.start(10);
  });
  act(run);
  EXPECT_FALSE(run.inet.stillExecuting());
  seen.screen = run.screen();
  seen.logged = run.logged();
  for (const Station& station : run.program.stationTable.rows())
    seen.stamps.append(station.stationCode.text() + station.metarStamp.text() + u' ' +
                       station.tafStamp.text());
  seen.record = contents(world.path(u"data/sequence.dat"_s));
  seen.asked = run.asked();
  if (run.shutdown.requested()) {
    letPass(1600);
    EXPECT_EQ(run.asked(), QStringList());
  }
  // Where a connection is cut the network may ask again by itself.
  for (const QString& path : world.server.requests()) {
    if (!path.contains(u"RJBB") && !path.contains(u"RJFF"))
      seen.served.append(path);
  }
  seen.asked.sort();
  seen.served.sort();
  return seen;
}

} // namespace

TEST(StationFiles, ARunIsSeenAsOneThatAsksOneByOne) {
  const struct {
    const char* name;
    Act act;
    Act meanwhile = {};
    int forecasts = 8; ///< asked for: one for each METAR that is there
  } cases[] = {
      {"list", list(stations)},
      {"group", [](RunBench& run) { run.group(u"ALL"_s, stations); }},
      {"automatic", [](RunBench& run) { run.tick(); }},
      {"Japanese", [](RunBench& run) { run.japanese(stations); }, {}, 0},
      {"sequence", [](RunBench& run) { run.sequence(stations); }, {}, 0},
      {"reload", [](RunBench& run) { run.list(u"RJTT"_s), run.again(); }, {}, 2},
      {"one is cancelled", list(stations), [](RunBench& run) { run.inet.cancel(); }, 7},
      {"another run inside", list(stations), list(u"RJAA RJGG ZZZZ"_s), 10},
      {"no server", [&](RunBench& run) { run.world.server.stop(), run.list(stations); }, {}, 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    const Seen serial = see(0, c.act, c.meanwhile);
    EXPECT_EQ(serial.asked.filter(u"T/"_s).size(), c.forecasts);
    for (const int ahead : {1, 3, 8}) {
      SCOPED_TRACE(ahead);
      const Seen seen = see(ahead, c.act, c.meanwhile);
      EXPECT_EQ(seen.steps, serial.steps);
      EXPECT_EQ(seen.screen, serial.screen);
      EXPECT_EQ(seen.logged, serial.logged);
      EXPECT_EQ(seen.stamps, serial.stamps);
      EXPECT_EQ(seen.record, serial.record);
      EXPECT_EQ(seen.asked, serial.asked);
      EXPECT_EQ(seen.served, serial.served);
    }
  }
}

TEST(StationFiles, NothingIsAskedBehindAClose) {
  for (const int ahead : {0, 1, 3, 8}) {
    SCOPED_TRACE(ahead);
    const Seen seen = see(ahead, list(stations), [](RunBench& run) { run.close(); });
    EXPECT_EQ(seen.steps.size(), waitsAt + 1);
    EXPECT_LE(seen.asked.filter(u"M/"_s).size(), waitsAt + 1 + ahead);
    EXPECT_LE(seen.served.size(), seen.asked.size());
  }
}

TEST(StationFiles, OverASlowLineTheNextRequestsAreAlreadyUnderWay) {
  World world;
  QStringList codes;
  for (int i = 0; i < 12; ++i) {
    codes.push_back(u"RJ"_s + twoDigits(i));
    world.report(codes.back(), u"05:00"_s, u"240500Z"_s, u"240500Z"_s);
  }
  world.server.setDelivery(u"/"_s, {.delay = 25});
  world.prepare();
  RunBench run(world);
  ASSERT_TRUE(run.begin());
  // The most requests that the server had had before their files were asked for.
  const auto mostAhead = [&](int ahead) {
    world.server.clearRequests();
    StationFiles files(run.program, codesOf(codes.join(u' ')), {.forecasts = true, .ahead = ahead});
    qsizetype taken = 0;
    qsizetype most = 0;
    for (size_t i = 0; i < size_t(codes.size()); ++i) {
      for (const ReportKind kind : {ReportKind::Metar, ReportKind::Taf}) {
        EXPECT_TRUE(files.take(i, kind).text.contains(codes[qsizetype(i)]));
        most = std::max(most, world.server.requests().size() - ++taken);
      }
    }
    return most;
  };
  EXPECT_EQ(mostAhead(0), 0);
  EXPECT_GE(mostAhead(1), 1);
  EXPECT_GE(mostAhead(8), 4);
}
