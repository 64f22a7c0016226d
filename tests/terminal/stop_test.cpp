// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "start/own_directory.h"
#include "support/turns.h"
#include "terminal/harness.h"

#include <QFile>

using namespace soran;
using namespace Qt::StringLiterals;

TEST(Stop, CompactsAtEveryFiftySecondExit) {
  const struct {
    int before;
    int after;
    bool compacts;
  } cases[] = {{0, 1, false}, {50, 51, false}, {51, 0, true}};
  for (const auto& c : cases) {
    World world;
    world.prepare([&c](Tables& tables) { tables.settings().store(key::起動回数, c.before); });
    writeWhole(world.path(u"soran_temp.mdb"_s), "left by an exit that was interrupted");
    ProgramRun run(world);
    ASSERT_TRUE(run.start());
    run.type(u"EXIT"_s);
    EXPECT_EQ(fileExists(world.path(u"soran_temp.mdb"_s)), !c.compacts);
    EXPECT_TRUE(isWholeDatabase(world.path(u"soran.mdb"_s)));
    world.store([&c](Tables& tables) { EXPECT_EQ(tables.settings()[key::起動回数], c.after); });
  }
}

TEST(Stop, KeepsACopyOfTheDay) {
  World world;
  const QString database = world.path(u"soran.mdb"_s);
  const QString copy = database + u".day";
  const auto group = [&](const QString& id) {
    world.store([&](Tables& tables) { storeGroups(tables, {{id, u"RJTT"_s}}); });
  };
  const auto exitOnce = [&] {
    ProgramRun run(world);
    EXPECT_TRUE(run.start());
    run.type(u"EXIT"_s);
  };
  const auto copied = [&] {
    Tables tables;
    tables.openAllTables(copy);
    return tables.groupRows().value(0).id;
  };
  world.prepare([](Tables& tables) { storeGroups(tables, {{u"ONE"_s, u"RJTT"_s}}); });
  exitOnce();
  EXPECT_EQ(copied(), u"ONE");
  EXPECT_EQ(QFile::permissions(copy) & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
  const struct {
    QString id;
    int hours; ///< the age of the copy
    QString kept;
  } cases[] = {{u"TWO"_s, 23, u"ONE"_s}, {u"THREE"_s, 25, u"THREE"_s}, {u"FOUR"_s, -25, u"FOUR"_s}};
  const auto age = [&](const QString& path, int hours) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(
        file.setFileTime(world.clock.now().addSecs(-3600 * hours), QFileDevice::FileModificationTime));
  };
  for (const auto& c : cases) {
    age(copy, c.hours);
    group(c.id);
    exitOnce();
    EXPECT_EQ(copied(), c.kept) << c.hours;
  }
  // Under a clock that is years back, the later one is put aside once, not at each exit.
  const QStringList copies = {u"soran.mdb.day*"_s};
  const qsizetype kept = QDir(world.home()).entryList(copies).size();
  world.clock.advance(-2 * 365 * 24 * 3600);
  for (int i = 0; i < 3; ++i)
    exitOnce();
  EXPECT_EQ(QDir(world.home()).entryList(copies).size(), kept + 1);
  // It is newer than what a renewal left.
  writeWhole(database + u".bak", contents(copy));
  age(database + u".bak", 1);
  age(copy, 25);
  group(u"FIVE"_s);
  exitOnce();
  writeWhole(database, "damaged");
  ProgramRun run(world);
  ASSERT_TRUE(run.start());
  EXPECT_TRUE(run.screen().contains(u"DATABASE RESTORED FROM BACKUP"));
  EXPECT_EQ(run.program.tables.groupRows().value(0).id, u"FIVE");
}

TEST(Stop, EmptiesItsOwnFoldersOnly) {
  World world;
  const QString outside = world.folder.filePath(u"outside"_s);
  QDir().mkpath(outside);
  writeWhole(outside + u"/kept", "x");
  const auto runOnce = [&] {
    ProgramRun run(world);
    EXPECT_TRUE(run.start());
    run.type(u"EXIT"_s);
  };
  const auto filesIn = [&](const QString& folder) {
    return QDir(world.path(folder))
        .entryList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot);
  };
  // Its own: what it left goes; links, folders and what is not its own stay, and nothing behind a link is
  // touched.
  runOnce();
  EXPECT_FALSE(fileExists(world.path(u"data"_s)));
  for (const QString& folder : {u"data"_s, u"help"_s})
    EXPECT_TRUE(makeScratchFolder(world.path(folder)));
  QDir().mkpath(world.path(u"data/folder"_s));
  for (const QString& name : {u"data/05.dat"_s, u"data/thesis.txt"_s, u"data/.hidden"_s, u"help/help.html"_s})
    writeWhole(world.path(name), "x");
  QFile::link(outside + u"/kept", world.path(u"data/06.dat"_s));
  QFile::link(outside, world.path(u"data/linked"_s));
  runOnce();
  EXPECT_EQ(filesIn(u"data"_s),
            (QStringList{u".hidden"_s, u".soran"_s, u"folder"_s, u"linked"_s, u"thesis.txt"_s}));
  EXPECT_FALSE(fileExists(world.path(u"help"_s)));
  EXPECT_EQ(contents(outside + u"/kept"), "x");
}

TEST(Start, RefusesADirectoryThatHoldsWhatIsNotItsOwn) {
  const struct {
    const char* name;
    std::function<void(const World&)> lay;
    bool starts = false;
  } cases[] = {
      {"a file of somebody",
       [](const World& w) { QDir().mkpath(w.path(u"data"_s)), writeWhole(w.path(u"data/05.dat"_s), "x"); }},
      {"pages of somebody",
       [](const World& w) {
         QDir().mkpath(w.path(u"help"_s)), writeWhole(w.path(u"help/help.html"_s), "x");
       }},
      {"a link",
       [](const World& w) { QDir().mkpath(w.home()), QFile::link(w.folder.path(), w.path(u"data"_s)); }},
      {"a file in its place",
       [](const World& w) { QDir().mkpath(w.home()), writeWhole(w.path(u"data"_s), "x"); }},
      {"an earlier release's with a thesis",
       [](const World& w) {
         QDir().mkpath(w.path(u"data"_s));
         writeWhole(w.path(u".soran"_s), "x"), writeWhole(w.path(u"data/thesis.txt"_s), "x");
       }},
      {"a linked lock",
       [](const World& w) { QDir().mkpath(w.home()), QFile::link(w.path(u"x"_s), w.path(u"soran.lock"_s)); }},
      {"an earlier release's own",
       [](const World& w) {
         QDir().mkpath(w.path(u"data"_s));
         writeWhole(w.path(u".soran"_s), "x"), writeWhole(w.path(u"data/05.dat"_s), "x");
       },
       true},
      {"empty", [](const World& w) { QDir().mkpath(w.path(u"data"_s)); }, true},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    World world;
    c.lay(world);
    const auto before = filesBelow(world.folder.path());
    ProgramRun run(world);
    EXPECT_EQ(run.start(), c.starts);
    if (c.starts) {
      EXPECT_TRUE(fileExists(world.path(u"data/.soran"_s)));
      continue;
    }
    EXPECT_EQ(run.result, Opening::Result::NoDirectory);
    EXPECT_TRUE(filesBelow(world.folder.path()) == before);
    EXPECT_EQ(textsOf(run.desk.takeSeen().dialogs), QStringList{run.opening.failure()});
    EXPECT_TRUE(run.opening.failure().contains(world.home()));
  }
  // One that ends for another reason leaves nothing either.
  World world;
  world.server.stop();
  ProgramRun run(world);
  EXPECT_FALSE(run.start());
  EXPECT_FALSE(fileExists(world.home()));
}

TEST(Stop, CloseBoxTakesThePaneAwayFirst) {
  World world;
  world.prepare();
  ProgramRun run(world);
  ASSERT_TRUE(run.start());
  run.type(u"HELP"_s);
  run.terminal.closeBox();
  EXPECT_FALSE(run.terminal.ended());
  run.terminal.closeBox();
  EXPECT_TRUE(run.terminal.ended());
}
