// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/turns.h"
#include "terminal/harness.h"

#include <QElapsedTimer>

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

struct RunToClose {
  const char* name;
  std::function<void(ProgramRun&)> go;
  int fewestTurns; ///< a run that waits less often is none
  int ahead = 0;   ///< stations asked for ahead of their turn
};

void PrintTo(const RunToClose& run, std::ostream* out) {
  *out << run.name;
}

void typed(ProgramRun& run, const QString& line) {
  run.type(line);
}

const RunToClose runs[] = {
    {"Typed", [](ProgramRun& r) { typed(r, u"RJTT RJAA ZZZZ"_s); }, 10},
    {"TypedAhead", [](ProgramRun& r) { typed(r, u"RJTT RJAA ZZZZ"_s); }, 5, 8},
    {"RunInsideARun",
     [](ProgramRun& r) {
       QTimer::singleShot(0, &r.program.console, [&r] {
         r.program.console.setInput({});
         typed(r, u"TTAA"_s);
       });
       typed(r, u"RJTT RJAA"_s);
     },
     16},
    {"Japanese", [](ProgramRun& r) { typed(r, u"JP RJTT RJAA"_s); }, 4},
    {"Sequence", [](ProgramRun& r) { typed(r, u"SQ RJTT RJAA"_s); }, 4},
    {"Group", [](ProgramRun& r) { typed(r, u"TTAA"_s); }, 8},
    {"FirstCycle", [](ProgramRun& r) { r.tick(); }, 20},
    {"CycleThatAnnounces",
     [](ProgramRun& r) {
       r.program.runMemory.loadPending = false;
       r.program.currentInput = u"RJTT RJAA"_s;
       r.program.stationTable.rebuild(r.program.currentInput);
       r.tick();
     },
     20},
    {"SequenceRetry",
     [](ProgramRun& r) {
       typed(r, u"SQ RJTT"_s);
       r.tick(3);
     },
     6},
    {"Update", [](ProgramRun& r) { typed(r, u"UPDATE"_s); }, 2},
};

class CloseTest : public ::testing::TestWithParam<RunToClose> {
 protected:
  static void prepare(World& world) {
    world.prepare([](Tables& tables) {
      storeAutoList(tables, {{u"RJTT"_s, u"羽田"_s}, {u"RJAA"_s, u"成田"_s}});
      storeGroups(tables, {{u"TTAA"_s, u"RJTT RJAA"_s}});
      tables.settings().store(key::シーケンス時間, 1);
      tables.settings().store(key::印刷更新時印刷, true);
      tables.settings().store(key::プリンター, u"OFFICE"_s);
    });
    for (const QString& code : {u"RJTT"_s, u"RJAA"_s})
      world.report(code, u"05:00"_s, u"240500Z 36010KT"_s, u"240500Z 36010KT"_s);
    world.server.setHandler(cyclesPath, [](const QUrl&) { return Answer{.body = "RJTT 240400Z\n"}; });
  }
};

void spin(int milliseconds) {
  QEventLoop loop;
  QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
  loop.exec();
}

} // namespace

TEST_P(CloseTest, AtEveryTurnOfTheEventLoopUnwinds) {
  int turn = 1;
  for (;; ++turn) {
    SCOPED_TRACE(turn);
    World world;
    prepare(world);
    world.endpoints.ahead = GetParam().ahead;
    ProgramRun run(world);
    ASSERT_TRUE(run.begin());
    run.desk.printers.names = {u"OFFICE"_s};
    world.server.setFile(u"/data/version.dat"_s, "4.32\n1\n1\n");
    QString screen;
    QMap<QString, QByteArray> files;
    QStringList asked;
    bool closed = false;
    AtTurn closing(turn, [&] {
      run.terminal.close();
      closed = true;
      screen = run.screen();
      files = filesBelow(world.home());
      asked = run.asked();
      run.desk.takeSeen();
    });
    run.desk.dialogs.onDialog = [&](const QString&) { closing.next(); };
    QElapsedTimer time;
    time.start();
    GetParam().go(run);
    EXPECT_LT(time.elapsed(), 3000);
    if (!closing.came())
      break;
    spin(2);
    run.tick(30);
    ASSERT_TRUE(closed);
    EXPECT_EQ(run.screen(), screen);
    EXPECT_TRUE(filesBelow(world.home()) == files);
    EXPECT_EQ(run.asked(), QStringList());
    const Desk::Seen seen = run.desk.takeSeen();
    EXPECT_TRUE(seen.dialogs.isEmpty() && seen.forms.isEmpty() && seen.sounds.isEmpty() &&
                seen.prints.isEmpty() && seen.pages.isEmpty());
    EXPECT_FALSE(fileExists(world.path(u"data"_s)));
    world.store([](Tables& tables) {
      EXPECT_EQ(tables.settings()[key::起動回数], 1);
      EXPECT_EQ(tables.autoRows().size(), 2);
    });
    ASSERT_LT(turn, 500);
  }
  EXPECT_GE(turn, GetParam().fewestTurns);
}

INSTANTIATE_TEST_SUITE_P(Close, CloseTest, testing::ValuesIn(runs),
                         [](const auto& fault) { return fault.param.name; });

TEST(CloseAtTheStart, LeavesWholeFilesAtEveryTurn) {
  for (const bool first : {true, false}) {
    for (int turn = 1;; ++turn) {
      SCOPED_TRACE(turn);
      World world;
      if (!first)
        world.prepare([](Tables& tables) { storeAirports(tables, {{u"RJXX"_s, u"自分"_s}}); });
      world.server.setFile(u"/data/version.dat"_s, "4.31\n2.00\n2.00\n");
      bool came = false;
      {
        ProgramRun run(world);
        AtTurn closing(turn, [&] {
          run.shutdown.request();
          run.inet.cancel();
        });
        try {
          run.start();
        } catch (const Unwind&) {
        }
        came = closing.came();
        closing.next(); // nothing more
      }
      if (!came) {
        EXPECT_GE(turn, 4);
        break;
      }
      for (const QString& name : {u"soran.mdb"_s, u"soran.mdb.bak"_s})
        EXPECT_TRUE(!fileExists(world.path(name)) || isWholeDatabase(world.path(name)));
      ProgramRun again(world);
      ASSERT_TRUE(again.start());
      EXPECT_FALSE(again.screen().contains(u"RESTORED"));
      if (!first) {
        EXPECT_EQ(again.program.tables.airportRows(), (QList<Airport>{{u"RJXX"_s, u"自分"_s}}));
      }
      ASSERT_LT(turn, 500);
    }
  }
}
