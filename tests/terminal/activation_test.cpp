// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/ordinary_user.h"
#include "terminal/harness.h"

#include <QElapsedTimer>
#include <QFile>
#include <QScopeGuard>

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

const QString initialized = u"SYSTEM INITIALIZED\r\n"_s;
const QString connected = u"DATABASE CONNECTION COMPLETED\r\n"_s;

void setFlag(Tables& tables, SettingKey<SettingType::YesNo> key, bool value) {
  tables.settings().store(key, value);
}

/// The version file of the start, then that of the first activation.
void serveVersions(World& world, const Answer& atActivation) {
  auto asked = std::make_shared<int>(0);
  world.server.removeFile(u"/data/version.dat"_s);
  world.server.setHandler(u"/data/version.dat"_s, [asked, atActivation](const QUrl&) {
    return std::optional(++*asked == 1 ? Answer{.body = "4.31\n1.00\n1.00\n"} : atActivation);
  });
}

/// Does something once the start waits for the Enter key.
void whenWaiting(ProgramRun& run, const std::function<void()>& act) {
  auto* timer = new QTimer(&run.program.console);
  QObject::connect(timer, &QTimer::timeout, &run.program.console, [&run, timer, act] {
    if (!run.screen().contains(u"To continue, hit ENTER key."))
      return;
    timer->stop();
    act();
  });
  timer->start(5);
}

} // namespace

TEST(Start, FirstStartFetchesWhatIsMissing) {
  World world;
  ProgramRun run(world);
  ASSERT_TRUE(run.start());
  EXPECT_EQ(run.asked(), (QStringList{u"/data/version.dat"_s, u"/data/soran.mdb"_s, u"/data/update.exe"_s,
                                      u"/data/error.wav"_s, u"/data/ring.wav"_s, u"/data/update.exe"_s,
                                      u"/data/soran.mdb"_s, u"/data/server.dat"_s, u"/data/version.dat"_s}));
  EXPECT_EQ(run.screen(), initialized + connected);
  EXPECT_EQ(run.program.console.status().panel1(), u"ネットワーク接続待機");
  EXPECT_EQ(run.panel2(), u"システム初期化中");
  EXPECT_TRUE(run.program.console.overlay());
  const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther |
                      QFile::WriteOther | QFile::ExeOther;
  for (const QString& name : {u""_s, u"data"_s, u"sound"_s, u"soran.mdb"_s})
    EXPECT_FALSE(QFile::permissions(world.path(name)) & others) << name.toStdString();
  EXPECT_FALSE(fileExists(world.path(u"data/version.dat"_s)));
  EXPECT_EQ(contents(world.path(u"sound/ring.wav"_s)), delivered::file(u"update/data/ring.wav"_s));
}

TEST(Start, SecondStartAsksForVersionsAlone) {
  World world;
  ASSERT_TRUE(ProgramRun(world).start());
  for (const QString& name : {u"05.dat"_s, u"23.dat"_s, u"sequence.dat"_s, u"figure.dat"_s})
    writeWhole(world.path(u"data/" + name), "old");
  ProgramRun run(world);
  ASSERT_TRUE(run.start());
  EXPECT_EQ(run.asked(),
            (QStringList{u"/data/version.dat"_s, u"/data/server.dat"_s, u"/data/version.dat"_s}));
  EXPECT_EQ(QDir(world.path(u"data"_s)).count(), 2U); // . and ..
  EXPECT_TRUE(run.desk.takeSeen().dialogs.isEmpty());
}

TEST(Start, ComesUpWithoutNetworkWhereAProbeIsSet) {
  World world;
  world.prepare();
  world.endpoints.probe = world.endpoints.metar + u"RJTT.TXT";
  ProgramRun run(world);
  ASSERT_TRUE(run.start());
  EXPECT_EQ(run.screen(), u"\r\nNO NETWORK CONNECTION\r\n\r\n" + connected);
  EXPECT_EQ(run.program.console.status().panel1(), QString());
  EXPECT_FALSE(run.program.console.overlay());
  run.type(u"RJTT"_s);
  EXPECT_TRUE(run.screen().endsWith(u"\r\nNO NETWORK CONNECTION\r\n"_s + ready));
  world.report(u"RJTT"_s, u"05:00"_s, u"240500Z"_s);
  run.shown();
  run.tick();
  EXPECT_EQ(run.shown(), u"\r\nRECONNECT NETWORK\r\n");
  EXPECT_TRUE(run.program.networkAvailable);
}

TEST(Start, WaitsForEnterBehindThePassiveNotice) {
  const QString notice = u"SYSTEM INITIALIZED\r\n\r\nNow you can download a latest version 4.32\r\n"
                         "For download, keep network connection and select menu UPDATE or type 'UPDATE' "
                         "out.\r\n\r\nTo continue, hit ENTER key. \r\n"_s +
                         ready + crlf;
  const auto prepared = [](World& world) {
    world.prepare([](Tables& tables) { setFlag(tables, key::起動時にバージョン確認, false); });
    serveVersions(world, {.body = "4.32\n1\n1\n"});
    world.report(u"RJTT"_s, u"05:00"_s, u"240500Z"_s);
  };
  const struct {
    QString keys;
    QString screen; ///< what begins the screen afterwards
    bool ends;
  } cases[] = {{u"\r"_s, notice + connected, false},
               {u"RJTT\r"_s, u"*** RJTT - WEATHER OBSERVATION AND FORECASTS ***\r\n"_s, false},
               {u"\x1B"_s, notice, true},
               {u"EXIT\r"_s, notice, true}};
  for (const auto& c : cases) {
    World world;
    prepared(world);
    ProgramRun run(world);
    QString waiting;
    std::vector<AttributeRun> runs;
    whenWaiting(run, [&] {
      waiting = run.screen();
      runs = run.program.console.screen().runs();
      EXPECT_FALSE(run.terminal.cycle().watchEnabled());
      run.keys(c.keys);
    });
    EXPECT_EQ(run.start(), !c.ends);
    EXPECT_EQ(waiting, notice);
    ASSERT_EQ(runs.size(), 3U);
    EXPECT_EQ(runs[1], (AttributeRun{18, 162, yellow, false}));
    EXPECT_TRUE(run.screen().startsWith(c.screen));
    EXPECT_EQ(run.terminal.cycle().watchEnabled(), !c.ends);
  }
}

TEST(Start, AutomaticDecodeOffGivesThePromptAtOnce) {
  const QString text = u"DATABASE CONNECTION COMPLETED\r\nAUTO DECODE SEQUENCE DISABLED\r\n"_s + ready + crlf;
  for (const bool emptyList : {false, true}) {
    World world;
    world.prepare([emptyList](Tables& tables) {
      if (emptyList)
        tables.rewrite(table::自動デコード, {});
      else
        setFlag(tables, key::自動デコード有効, false);
    });
    ProgramRun run(world);
    ASSERT_TRUE(run.start());
    EXPECT_EQ(run.screen(), text);
    EXPECT_FALSE(run.program.runMemory.loadPending);
    run.tick(4);
    EXPECT_TRUE(run.program.console.overlay());
    run.tick();
    EXPECT_FALSE(run.program.console.overlay());
    run.terminal.close();
    world.store([](Tables& tables) { EXPECT_EQ(tables.settings()[key::自動デコード有効], false); });
  }
}

TEST(Start, ServesFromAFolderThatCannotBeWritten) {
  for (const bool hasDatabase : {true, false}) {
    World world;
    world.report(u"RJTT"_s, u"05:00"_s, u"240500Z 33010KT"_s);
    world.prepare();
    if (!hasDatabase)
      QFile::remove(world.path(u"soran.mdb"_s));
    QFile::setPermissions(world.path(u"soran.mdb"_s), QFile::ReadOwner);
    const auto setFolders = [&world](QFile::Permissions permissions) {
      for (const QString& folder : {world.folder.path(), world.home(), world.path(u"data"_s)})
        QFile::setPermissions(folder, permissions);
    };
    setFolders(QFile::ReadOwner | QFile::ExeOwner);
    const auto back =
        qScopeGuard([&] { setFolders(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner); });
    const OrdinaryUser user;
    ProgramRun run(world);
    ASSERT_TRUE(run.start());
    EXPECT_EQ(run.screen().contains(u"DATABASE CANNOT BE WRITTEN / NOTHING WILL BE STORED"), !hasDatabase);
    EXPECT_EQ(textsOf(run.desk.takeSeen().dialogs).join(u' ').contains(u"終了すると失われます"),
              !hasDatabase);
    run.type(u"RJTT"_s);
    EXPECT_TRUE(run.screen().contains(u"RJTT  METAR 1400I\r\n      240500Z 33010KT\n"));
    run.type(u"SQ RJTT"_s);
    run.type(u"EXIT"_s);
    EXPECT_TRUE(run.terminal.ended());
  }
  World world;
  writeWhole(world.home(), "a file in its place");
  ProgramRun run(world);
  EXPECT_FALSE(run.start());
  EXPECT_EQ(run.result, Opening::Result::NoDirectory);
}

TEST(Start, CloseDuringTheFirstActivationUnwinds) {
  World world;
  world.prepare();
  serveVersions(world, {.body = "4.32\n"});
  ProgramRun run(world);
  int versions = 0;
  run.onRequest = [&](const QString& name) {
    if (name != u"/data/version.dat" || ++versions != 2)
      return;
    world.server.setDelivery(u"/"_s, {.delay = 5'000});
    QTimer::singleShot(20, &run.program.console, [&run] { run.keys(u"\x1B"_s); });
  };
  QElapsedTimer time;
  time.start();
  EXPECT_FALSE(run.start());
  EXPECT_LT(time.elapsed(), 2000);
  EXPECT_TRUE(run.terminal.ended());
  EXPECT_FALSE(run.terminal.updaterRequested());
  EXPECT_EQ(run.screen(), initialized);
}

// The offset from UTC is that of the start; the time of day follows the clock.
TEST(ClockJumpTest, AnotherTimeZoneShiftsTheWindowOfASequenceUntilTheNextStart) {
  World world;
  world.prepare([](Tables& tables) {
    setAutoList(tables, u"RJTT"_s);
    tables.settings().store(key::シーケンス時間, 1);
    tables.settings().store(key::LOCAL使用, false);
  });
  world.report(u"RJTT"_s, u"05:00"_s, u"240500Z"_s, u"240500Z"_s);
  world.server.setHandler(cyclesPath, [](const QUrl&) { return Answer{.body = "RJTT 240400Z\n"}; });
  auto first = std::make_unique<ProgramRun>(world);
  ASSERT_TRUE(first->begin());
  first->tick();
  EXPECT_EQ(first->asked().filter(u"C/"_s), (QStringList{u"C/04"_s, u"C/05"_s, u"C/05"_s}));
  world.clock = SetClock(
      QDateTime::fromString(u"2026-11-24T05:30:00+00:00"_s, Qt::ISODate)); // ten minutes later, in London
  first->tick(20);
  EXPECT_EQ(first->asked().filter(u"C/"_s), (QStringList{u"C/19"_s, u"C/20"_s, u"C/20"_s}));
  first->type(u"RJTT"_s);
  EXPECT_TRUE(first->screen().contains(u"RJTT  METAR 0500Z\r\n      240500Z\n"));
  first->terminal.close();
  first.reset();
  ProgramRun next(world);
  ASSERT_TRUE(next.begin());
  next.tick();
  EXPECT_EQ(next.asked().filter(u"C/"_s), (QStringList{u"C/04"_s, u"C/05"_s, u"C/05"_s}));
}

TEST(WatchCycleTest, TrayIconGoesASecondAfterTheWindowIsBack) {
  World world;
  world.prepare();
  ProgramRun run(world);
  ASSERT_TRUE(run.begin());
  run.terminal.forms().setMinimised(true);
  EXPECT_EQ(run.desk.takeSeen().forms, QStringList{u"taskicon"_s});
  run.terminal.forms().setMinimised(false);
  // Minimised again within the second the window needs its icon.
  run.terminal.forms().setMinimised(true);
  EXPECT_FALSE(run.terminal.cycle().trayTimerEnabled());
  run.terminal.forms().setMinimised(false);
  EXPECT_TRUE(run.terminal.cycle().trayTimerEnabled());
  run.tick();
  EXPECT_FALSE(run.terminal.cycle().trayTimerEnabled());
}
