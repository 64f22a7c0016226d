// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
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
  for (const auto& c : cases) {
    QFile file(copy);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(
        file.setFileTime(world.clock.now().addSecs(-3600 * c.hours), QFileDevice::FileModificationTime));
    file.close();
    group(c.id);
    exitOnce();
    EXPECT_EQ(copied(), c.kept) << c.hours;
  }
  // It is newer than what a renewal left.
  writeWhole(database + u".bak", contents(copy));
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
  // A directory of somebody else: what lies in its folders stays.
  for (const QString& folder : {u"data"_s, u"help"_s}) {
    world.folder.remove(world.home());
    QDir().mkpath(world.path(folder));
    writeWhole(world.path(folder + u"/thesis.txt"), "x");
    runOnce();
    EXPECT_EQ(filesIn(folder), QStringList{u"thesis.txt"_s});
  }
  // Its own: plain files go, links and folders stay, and nothing behind a link is touched.
  world.folder.remove(world.home());
  runOnce();
  EXPECT_FALSE(fileExists(world.path(u"data"_s)));
  QDir().mkpath(world.path(u"data/folder"_s));
  QDir().mkpath(world.path(u"help"_s));
  writeWhole(world.path(u"data/.hidden"_s), "x");
  writeWhole(world.path(u"help/help.html"_s), "x");
  QFile::link(outside + u"/kept", world.path(u"data/link"_s));
  QFile::link(outside, world.path(u"data/linked"_s));
  runOnce();
  EXPECT_EQ(filesIn(u"data"_s), (QStringList{u"folder"_s, u"link"_s, u"linked"_s}));
  EXPECT_FALSE(fileExists(world.path(u"help"_s)));
  world.folder.remove(world.path(u"data"_s));
  QFile::link(outside, world.path(u"data"_s));
  runOnce();
  EXPECT_EQ(contents(outside + u"/kept"), "x");
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
