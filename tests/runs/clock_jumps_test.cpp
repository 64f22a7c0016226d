// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/utc.h"
#include "runs/run_bench.h"

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

class ClockJumpTest : public ::testing::Test {
 protected:
  ClockJumpTest() {
    world.prepare([](Tables& tables) {
      setAutoList(tables, u"RJTT"_s);
      tables.settings().store(key::シーケンス時間, 1);
    });
    serve(inUtc({2026, 11, 23}, {5, 0}));
    world.forecast(u"RJTT"_s, u"05:00"_s, u"TAF RJTT 240500Z\n"_s);
    world.server.setHandler(cyclesPath, [](const QUrl&) { return Answer{.body = "RJTT 240400Z\n"}; });
  }
  void serve(const QDateTime& written) {
    world.server.setFile(stationsPath + u"RJTT.TXT",
                         written.toString(u"yyyy/MM/dd HH:mm\n'RJTT' ddHHmm'Z'\n"_s).toUtf8());
  }
  void set(const QString& instant) { world.clock = SetClock(QDateTime::fromString(instant, Qt::ISODate)); }

  World world;
  RunBench run{world};
};

} // namespace

TEST_F(ClockJumpTest, TheCycleGoesOnAndAnnouncesANewReportOnce) {
  const struct {
    const char* name;
    QString from;
    QString to;
    bool inPass; ///< the clock jumps in the middle of a pass
    int wait;    ///< seconds within which a new report is on the screen
  } jumps[] = {
      {"an hour on", u"2026-11-24T14:20:00+09:00"_s, u"2026-11-24T15:20:00+09:00"_s, false, 21},
      {"an hour on in a pass", u"2026-11-24T14:20:00+09:00"_s, u"2026-11-24T15:20:00+09:00"_s, true, 81},
      {"over midnight", u"2026-11-24T23:50:00+09:00"_s, u"2026-11-25T00:00:30+09:00"_s, false, 24 * 3600},
      {"over midnight in a pass", u"2026-11-24T23:50:00+09:00"_s, u"2026-11-25T00:00:30+09:00"_s, true, 121},
      {"midnight by itself", u"2026-11-24T23:59:00+09:00"_s, u"2026-11-24T23:59:10+09:00"_s, false, 81},
      {"the year's end by itself", u"2026-12-31T23:59:00+09:00"_s, u"2026-12-31T23:59:10+09:00"_s, false, 81},
      {"a day on", u"2026-11-24T14:20:00+09:00"_s, u"2026-11-25T14:20:00+09:00"_s, false, 81},
      {"a minute back", u"2026-11-24T14:20:00+09:00"_s, u"2026-11-24T14:19:00+09:00"_s, false, 160},
      {"back in a pass", u"2026-11-24T14:20:00+09:00"_s, u"2026-11-24T13:20:00+09:00"_s, true, 81},
      {"an hour back", u"2026-11-24T14:20:00+09:00"_s, u"2026-11-24T13:20:00+09:00"_s, false, 3700},
      {"back over midnight", u"2026-11-25T00:10:00+09:00"_s, u"2026-11-24T23:50:00+09:00"_s, false, 21},
      {"back to the old year", u"2027-01-01T00:10:00+09:00"_s, u"2026-12-31T23:50:00+09:00"_s, false, 21},
  };
  ASSERT_TRUE(run.begin());
  QDateTime written = inUtc({2026, 11, 23}, {5, 0});
  for (const auto& jump : jumps) {
    SCOPED_TRACE(jump.name);
    set(jump.from);
    run.program.lastCycleTime = u"00:00"_s;
    run.program.watchTicks = 999;
    if (jump.inPass)
      run.onRequest = [&](const QString& name) {
        if (name == u"T/RJTT") {
          run.onRequest = [](const QString&) {};
          set(jump.to);
        }
      };
    run.tick();
    if (!jump.inPass)
      set(jump.to);
    written = written.addSecs(30 * 60);
    serve(written);
    run.logged();
    run.desk.takeSeen();
    const QString wanted = u"METAR "_s + written.addSecs(9 * 60 * 60).toString(u"HHmm"_s) + u"I";
    int waited = 0;
    while (waited < jump.wait && !run.screen().contains(wanted)) {
      run.tick();
      ++waited;
    }
    EXPECT_TRUE(run.screen().contains(wanted)) << waited;
    run.tick(180);
    EXPECT_EQ(run.logged().count(u"RJTT METAR CHANGED"_s), 1);
    EXPECT_EQ(run.desk.takeSeen().sounds.size(), 1);
    EXPECT_TRUE(run.cycle.watchEnabled());
  }
}
