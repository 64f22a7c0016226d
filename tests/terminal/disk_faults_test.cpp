// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/airport_editor.h"
#include "support/child_process.h"
#include "support/ordinary_user.h"
#include "support/turns.h"
#include "terminal/harness.h"

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

/// As long as it lives no file takes bytes beyond the first `size`, as on a full disk.
class FullDisk {
 public:
  explicit FullDisk(rlim_t size = 0) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    ::getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit full{size, before_.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &full);
  }
  ~FullDisk() {
    ::setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  rlimit before_{};
  void (*handler_)(int);
};

const QList<Airport> own = {{u"RJXX"_s, u"自分"_s}};

/// A copy of the database in another form.
QByteArray exported(const World& world, const QString& key) {
  const QString path = world.folder.filePath(u"exported"_s);
  QFile::remove(path);
  Database database;
  database.open(world.path(u"soran.mdb"_s), Database::Mode::Create);
  database.execute(u"ATTACH DATABASE ? AS other KEY "_s + key, {path});
  database.query(u"SELECT sqlcipher_export('other')"_s);
  database.execute(u"DETACH DATABASE other"_s);
  return filesBelow(world.folder.path()).value(path);
}

void prepareOwn(World& world) {
  world.prepare([](Tables& tables) {
    storeAirports(tables, {{u"RJXX"_s, u"自分"_s}});
    tables.settings().store(key::雲高1, 1234);
  });
  world.report(u"RJTT"_s, u"05:00"_s, u"240500Z"_s);
}

void expectOwn(const World& world) {
  EXPECT_TRUE(isWholeDatabase(world.path(u"soran.mdb"_s)));
  world.store([](Tables& tables) {
    EXPECT_EQ(tables.airportRows(), own);
    EXPECT_EQ(tables.settings()[key::雲高1], 1234);
  });
}

} // namespace

TEST(FullDisk, KeepsWhatWasStoredAndServesReports) {
  // Full from the start, full from the first prompt on, and full at the exit that compacts.
  for (const int from : {0, 1, 2}) {
    SCOPED_TRACE(from);
    World world;
    prepareOwn(world);
    world.store([&](Tables& tables) { tables.settings().store(key::起動回数, from == 2 ? 51 : 7); });
    world.server.setFile(u"/data/version.dat"_s, "4.31\n9.00\n9.00\n");
    const auto files = filesBelow(world.home());
    std::optional<FullDisk> full;
    if (from == 0)
      full.emplace();
    ProgramRun run(world);
    ASSERT_TRUE(run.start());
    if (!full)
      full.emplace(from == 1 ? 0 : 40'000);
    run.type(u"RJTT"_s);
    EXPECT_TRUE(run.screen().contains(u"RJTT  METAR 1400I\r\n      240500Z\n"));
    run.desk.takeSeen();
    if (from < 2) {
      EXPECT_FALSE(run.program.settings().store(key::雲高1, 5));
      EXPECT_EQ(run.program.settings()[key::雲高1], 1234);
      run.desk.dialogs.answers = {true};
      AirportEditor editor(run.program);
      editor.remove();
      editor.close();
      EXPECT_EQ(textsOf(run.desk.takeSeen().dialogs).last(), u"保存できませんでした　　");
      EXPECT_EQ(run.program.tables.airportRows(), own);
      run.type(u"SQ RJTT"_s);
    }
    run.type(u"EXIT"_s);
    EXPECT_TRUE(run.terminal.ended());
    full.reset();
    expectOwn(world);
    EXPECT_FALSE(fileExists(world.path(u"soran_temp.mdb"_s)));
    if (from == 0) {
      EXPECT_TRUE(filesBelow(world.home()).value(world.path(u"soran.mdb"_s)) ==
                  files[world.path(u"soran.mdb"_s)]);
    }
  }
}

TEST(FullDisk, HasNoRoomForTheFirstDatabase) {
  World world;
  FullDisk full;
  ProgramRun run(world);
  EXPECT_FALSE(run.start());
  EXPECT_EQ(run.result, Opening::Result::NoDatabase);
}

TEST(DamagedDatabase, IsReplacedByTheBackupWhereverABitIsFlipped) {
  World world;
  prepareOwn(world);
  const QString path = world.path(u"soran.mdb"_s);
  const QByteArray whole = filesBelow(world.home()).value(path);
  QFile::copy(path, path + u".bak");
  int restored = 0;
  const qsizetype pages = whole.size() / 4096;
  for (qsizetype page = 0; page < pages; ++page) {
    SCOPED_TRACE(page);
    QByteArray flipped = whole;
    const qsizetype at = page * 4096 + (page * 577) % 4096;
    flipped[at] = char(flipped[at] ^ (1 << (page % 8)));
    writeWhole(path, flipped);
    QFile::remove(path + u".day"); // a copy of today lets the pictures be
    ProgramRun run(world);
    ASSERT_TRUE(run.start());
    EXPECT_EQ(run.program.tables.airportRows(), own);
    EXPECT_EQ(run.program.settings()[key::雲高1], 1234);
    if (run.screen().contains(u"DATABASE RESTORED FROM BACKUP\r\n")) {
      // Each is kept for good, under a name of its own.
      const QString kept = path + u".damaged-20261124-142000" +
                           (restored > 0 ? u'-' + QString::number(restored + 1) : QString());
      EXPECT_TRUE(filesBelow(world.home()).value(kept) == flipped);
      EXPECT_TRUE(run.screen().contains(u"LATER ENTRIES ARE MISSING\r\nDAMAGED FILE KEPT AS " +
                                        QFileInfo(kept).fileName()));
      EXPECT_TRUE(textsOf(run.desk.takeSeen().dialogs).last().endsWith(kept));
      ++restored;
    }
    run.terminal.close();
  }
  EXPECT_GT(restored, pages * 3 / 4); // a free page is not read
}

TEST(DamagedDatabase, ItsPicturesAreLookedOverOnceADay) {
  World world;
  prepareOwn(world);
  const QString path = world.path(u"soran.mdb"_s);
  const QByteArray whole = filesBelow(world.home()).value(path);
  const QString copy = path + u".day";
  QFile::copy(path, copy);
  const auto start = [&](int hoursSinceCopy) {
    QFile file(copy);
    EXPECT_TRUE(file.open(QIODevice::ReadWrite));
    EXPECT_TRUE(file.setFileTime(world.clock.now().addSecs(-3600 * hoursSinceCopy),
                                 QFileDevice::FileModificationTime));
    // Most of the file is pictures.
    QByteArray flipped = whole;
    flipped[whole.size() / 2] = char(flipped[whole.size() / 2] ^ 1);
    writeWhole(path, flipped);
    ProgramRun run(world);
    EXPECT_TRUE(run.start());
    EXPECT_EQ(run.program.tables.airportRows(), own);
    int shown = 0;
    for (int i = 0; i < run.program.tables.pictures().recordCount(); ++i) {
      const QString name = run.program.tables.pictures().valueAt(i, u"名称").toString();
      shown += run.program.tables.picture(name).isEmpty() ? 0 : 1;
    }
    const bool restored = run.screen().contains(u"DATABASE RESTORED FROM BACKUP\r\n");
    run.terminal.close();
    return std::pair(restored, shown);
  };
  const auto [restoredSoon, shownSoon] = start(3);
  EXPECT_FALSE(restoredSoon);
  EXPECT_TRUE(filesBelow(world.home()).value(copy) == whole);
  const auto [restoredNextDay, shownNextDay] = start(25);
  EXPECT_TRUE(restoredNextDay);
  EXPECT_EQ(shownSoon, shownNextDay - 1);
}

TEST(DamagedDatabase, UnderAnotherPasswordGivesWayAndIsKept) {
  World world;
  prepareOwn(world);
  const QByteArray foreign = exported(world, u"'another password'"_s);
  EXPECT_FALSE(foreign.isEmpty());
  World other;
  other.prepare();
  writeWhole(other.path(u"soran.mdb"_s), foreign);
  ProgramRun run(other);
  ASSERT_TRUE(run.start());
  EXPECT_TRUE(run.screen().contains(u"DATABASE RESTORED FROM DELIVERED FILE\r\n"));
  EXPECT_TRUE(filesBelow(other.home()).value(other.path(u"soran.mdb.damaged-20261124-142000"_s)) == foreign);
}

TEST(OtherFormat, IsToldAndNeverReplaced) {
  World world;
  prepareOwn(world);
  const QString standard = QStringView(SORAN_SOURCE_DIR) + u"/tests/store/fixtures/sqlcipher-4-standard.mdb";
  const QByteArray formats[] = {exported(world, u"''"_s), contents(standard)};
  EXPECT_TRUE(formats[0].startsWith("SQLite format 3"));
  EXPECT_FALSE(formats[1].isEmpty());
  for (const QByteArray& bytes : formats) {
    World other;
    other.prepare();
    const QString path = other.path(u"soran.mdb"_s);
    QFile::copy(path, path + u".bak");
    writeWhole(path, bytes);
    const auto before = filesBelow(other.home());
    ProgramRun run(other);
    EXPECT_FALSE(run.start());
    EXPECT_EQ(run.result, Opening::Result::OtherFormat);
    EXPECT_EQ(textsOf(run.desk.takeSeen().dialogs),
              QStringList{u"データベースの形式が異なるため、開くことができません　　\r\n\r\n" + path});
    EXPECT_TRUE(run.opening.failure().contains(path));
    auto behind = filesBelow(other.home());
    behind.remove(other.path(u"soran.lock"_s));
    EXPECT_TRUE(behind == before);
  }
}

TEST(UnopenableDatabase, IsNotReplacedByAnOlderOne) {
  const struct {
    const char* what;
    std::function<void(const QString&)> spoil;
  } cases[] = {
      {"unreadable", [](const QString& path) { QFile::setPermissions(path, {}); }},
      {"a folder in the journal's place", [](const QString& path) { QDir().mkdir(path + u"-journal"); }},
      {"a folder in the log's place", [](const QString& path) { QDir().mkdir(path + u"-wal"); }},
      {"a link in the journal's place", [](const QString& path) { QFile::link(path, path + u"-journal"); }},
      {"a link to it",
       [](const QString& path) { QFile::rename(path, path + u"x"), QFile::link(path + u"x", path); }},
      {"a link that leads nowhere",
       [](const QString& path) { QFile::rename(path, path + u"x"), QFile::link(path + u"y", path); }},
      {"a folder in its place",
       [](const QString& path) { QFile::rename(path, path + u"x"), QDir().mkdir(path); }},
      {"a pipe in its place",
       [](const QString& path) {
         QFile::rename(path, path + u"x"), ::mkfifo(QFile::encodeName(path).constData(), 0600);
       }},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    World world;
    prepareOwn(world);
    const QString path = world.path(u"soran.mdb"_s);
    QFile::copy(path, path + u".bak");
    world.store([](Tables& tables) { tables.settings().store(key::雲高1, 4321); });
    const QByteArray bytes = contents(path);
    {
      const OrdinaryUser user;
      c.spoil(path);
      ProgramRun run(world);
      EXPECT_FALSE(run.start());
      EXPECT_EQ(run.result, Opening::Result::NoDatabase);
      EXPECT_TRUE(run.opening.failure().contains(path));
      EXPECT_EQ(textsOf(run.desk.takeSeen().dialogs), QStringList{run.opening.failure()});
    }
    const bool isAside = fileExists(path + u"x");
    if (isAside)
      world.folder.remove(path), std::rename(qPrintable(path + u"x"), qPrintable(path));
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
    EXPECT_TRUE(contents(path) == bytes);
    EXPECT_EQ(QDir(world.home()).entryList({u"*.damaged*"_s}), QStringList());
  }
}

TEST(NewerDatabase, OpensAndTakesTheUsersEdits) {
  World world;
  prepareOwn(world);
  world.store([](Tables& tables) {
    Database& database = tables.database();
    database.execute(u"CREATE TABLE 新しい表 (順位 INTEGER)"_s);
    for (const QStringView table : allTables)
      database.execute(u"ALTER TABLE "_s + quotedName(table) + u" ADD COLUMN 新しい列 TEXT DEFAULT 'x'");
  });
  {
    ProgramRun run(world);
    ASSERT_TRUE(run.start());
    EXPECT_FALSE(run.screen().contains(u"RESTORED"));
    EXPECT_EQ(run.program.tables.airportRows(), own);
    storeGroups(run.program.tables, {{u"NEW"_s, u"RJTT"_s}});
    storeAutoList(run.program.tables, {{u"RJTT"_s, u"羽田"_s}});
    storeDictionary(run.program.tables, table::日本語解析, {{u"A"_s, u"B"_s}});
    EXPECT_TRUE(run.program.settings().store(key::雲高1, 99));
    run.type(u"EXIT"_s);
  }
  world.store([](Tables& tables) {
    EXPECT_EQ(tables.groupRows(), (QList<Group>{{u"NEW"_s, u"RJTT"_s}}));
    EXPECT_EQ(tables.autoRows(), (QList<Airport>{{u"RJTT"_s, u"羽田"_s}}));
    EXPECT_EQ(tables.phraseRows(), (QList<DictionaryEntry>{{u"A"_s, u"B"_s}}));
    EXPECT_EQ(tables.settings()[key::雲高1], 99);
  });
}

TEST(BusyDatabase, IsNotTakenForADamagedOne) {
  World world;
  prepareOwn(world);
  QFile::copy(world.path(u"soran.mdb"_s), world.path(u"soran.mdb.bak"_s));
  {
    Tables holder;
    holder.openAllTables(world.path(u"soran.mdb"_s));
    holder.database().execute(u"BEGIN EXCLUSIVE"_s);
    ProgramRun run(world);
    EXPECT_FALSE(run.start());
    EXPECT_EQ(run.result, Opening::Result::NoDatabase);
  }
  EXPECT_EQ(QDir(world.home()).entryList({u"*.damaged*"_s}), QStringList());
  expectOwn(world);
}
