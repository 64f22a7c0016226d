// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/program_update.h"

#include "fakes/test_key.h"
#include "fakes/updating.h"
#include "support/child_process.h"
#include "support/printing.h"

#include <QCryptographicHash>
#include <gmock/gmock.h>
#include <unistd.h>

using namespace soran;
using namespace Qt::StringLiterals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class ProgramUpdateTest : public ::testing::Test {
 protected:
  ProgramUpdateTest() {
    QDir().mkpath(desk.path(u"data"_s));
    writeWhole(desk.path(u"soran.mdb"_s), Updating::deliveredDatabase(), true);
    writeWhole(desk.path(u"update.exe"_s), "former module", true);
    tables.openAllTables(desk.path(u"soran.mdb"_s));
    tables.settings().store(key::DBバージョン, 1.0);
    tables.settings().store(key::UPDATEバージョン, 1.0);
    tables.settings().store(key::更新確認メッセージ, true);
    tables.rewrite(table::カンパニー, {{1, u"MINE"_s, u"RJTT"_s}});
  }

  QByteArray newDatabase() const {
    return desk.database([](Tables& t) { t.rewrite(table::日本語解析, {{1, u"NEW"_s, u"新"_s}}); });
  }

  Updating desk;
  Services services = desk.services();
  Tables tables;
  ProgramUpdate update{services, tables, services.endpoints.update};
};

} // namespace

TEST(EndpointVersions, AreThreeNumbersOneALine) {
  const struct {
    QStringView text;
    EndpointVersions versions;
  } cases[] = {
      {u"4.31\n1.02\n1.00\n", {4.31, 1.02, 1.0}},
      {u"4.31\r\n1.02\r\n2\r\n", {4.31, 1.02, 2.0}},
      {u"4.31\n1.02", {4.31, 1.02, 0}},
      {u"4.31", {4.31, 0, 0}},
      {u"", {0, 0, 0}},
      {u"x\n\n3", {0, 0, 3}},
  };
  for (const auto& c : cases) {
    const EndpointVersions read = readVersions(c.text);
    EXPECT_EQ(read.program, c.versions.program);
    EXPECT_EQ(read.module, c.versions.module);
    EXPECT_EQ(read.database, c.versions.database);
  }
}

TEST_F(ProgramUpdateTest, RenewsTheModuleWithItsSignature) {
  update.renewModule(1.0);
  EXPECT_EQ(desk.server.requests(), QStringList());
  for (const double version : {1.02, 0.5}) {
    update.renewModule(version);
    EXPECT_EQ(desk.bytes(u"update.exe"_s), "module");
    EXPECT_EQ(desk.bytes(u"update.exe.sig"_s), "signature");
    EXPECT_EQ(tables.settings()[key::UPDATEバージョン], version);
    EXPECT_EQ(tables.settings()[key::UPDATE更新日], u"2026/11/24"_s);
    EXPECT_THAT(desk.dialogs(),
                ElementsAre(u" 更新 | 自動アップデートモジュールを更新しました　　\r\n\r\nVersion " +
                            versionText(version)));
  }
  EXPECT_FALSE(fileExists(desk.path(u"update$.exe"_s)));
  // A signature that is there no longer does not stay from before.
  desk.server.removeFile(u"/data/update.exe.sig"_s);
  tables.settings().store(key::更新確認メッセージ, false);
  update.renewModule(2.0);
  EXPECT_FALSE(fileExists(desk.path(u"update.exe.sig"_s)));
  EXPECT_THAT(desk.dialogs(), IsEmpty());
  EXPECT_EQ(tables.settings()[key::UPDATEバージョン], 2.0);
}

TEST_F(ProgramUpdateTest, RenewsTheDatabaseAndKeepsWhatIsTheUsers) {
  desk.server.setFile(u"/data/soran.mdb"_s, newDatabase());
  update.renewDatabase(1.0);
  EXPECT_EQ(desk.server.requests(), QStringList());
  update.renewDatabase(1.5);
  EXPECT_THAT(desk.dialogs(), ElementsAre(u" 更新 | データベースを更新しました　　\r\n\r\nVersion 1.5"_s));
  EXPECT_THAT(tables.phraseRows(), ElementsAre(DictionaryEntry{u"NEW"_s, u"新"_s}));
  EXPECT_THAT(tables.groupRows(), ElementsAre(Group{u"MINE"_s, u"RJTT"_s}));
  EXPECT_EQ(tables.settings()[key::DBバージョン], 1.5);
  EXPECT_EQ(tables.settings()[key::DB更新日], u"2026/11/24"_s);
  EXPECT_FALSE(fileExists(desk.path(u"data/soran$.mdb"_s)));
  Tables backup;
  backup.openAllTables(desk.path(u"soran.mdb.bak"_s));
  EXPECT_EQ(backup.phraseRows(), delivered::phrases());
  EXPECT_EQ(backup.settings()[key::DBバージョン], 1.0);

  // A version of 0 asked for it: the message tells so even where messages are off.
  tables.settings().store(key::更新確認メッセージ, false);
  tables.settings().store(key::DBバージョン, 0.0);
  update.renewDatabase(1.5);
  EXPECT_THAT(desk.dialogs(), ElementsAre(u" 確認 | データベースを初期化しました　　"_s));
  EXPECT_THAT(tables.groupRows(), ElementsAre(Group{u"MINE"_s, u"RJTT"_s}));
  update.renewDatabase(1.25);
  EXPECT_THAT(desk.dialogs(), IsEmpty());
  EXPECT_EQ(tables.settings()[key::DBバージョン], 1.25);
}

TEST_F(ProgramUpdateTest, ABadDownloadReplacesNothing) {
  const QByteArray good = newDatabase();
  QByteArray flipped = good;
  flipped[5000] = char(flipped[5000] ^ 1);
  const QByteArray noSettings = desk.database([](Tables& t) { t.database().execute(u"DELETE FROM 設定"_s); });
  const QByteArray twoSettings =
      desk.database([](Tables& t) { t.database().execute(u"INSERT INTO 設定 (BASEurl) VALUES ('x')"_s); });
  const QByteArray noTable = desk.database([](Tables& t) { t.database().execute(u"DROP TABLE データ"_s); });
  const struct {
    const char* name;
    Answer answer;
    Delivery delivery = {};
    bool forModule = true;
  } cases[] = {
      {"empty", {}},
      {"error page", {.body = "<html>not here</html>", .status = 404}},
      {"page with status 200", {.body = "<html>maintenance</html>"}},
      {"refused", {.body = "no", .status = 403}},
      {"cut", {.body = good}, {.cutAt = good.size() / 2}},
      {"cut head", {.body = good}, {.cutHead = true}},
      {"no database", {.body = "hello"}, {}, false},
      {"half a database", {.body = good.first(good.size() / 2)}, {}, false},
      {"a flipped bit", {.body = flipped}, {}, false},
      {"no settings row", {.body = noSettings}, {}, false},
      {"two settings rows", {.body = twoSettings}, {}, false},
      {"six tables", {.body = noTable}, {}, false},
  };
  const QByteArray before = desk.bytes(u"soran.mdb"_s);
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    for (const QString& path : {u"/data/soran.mdb"_s, u"/data/update.exe"_s}) {
      desk.server.setAnswer(path, c.answer);
      desk.server.setDelivery(path, c.delivery);
    }
    update.renewDatabase(2.0);
    EXPECT_EQ(tables.settings()[key::DBバージョン], 1.0);
    EXPECT_EQ(desk.bytes(u"soran.mdb"_s), before);
    if (c.forModule)
      update.renewModule(2.0);
    EXPECT_EQ(desk.bytes(u"update.exe"_s), "former module");
    EXPECT_EQ(tables.settings()[key::UPDATEバージョン], 1.0);
    EXPECT_THAT(desk.dialogs(), IsEmpty());
    EXPECT_THAT(QDir(desk.path(u"data"_s)).entryList(QDir::Files), IsEmpty());
  }
  EXPECT_THAT(tables.groupRows(), ElementsAre(Group{u"MINE"_s, u"RJTT"_s}));
}

TEST_F(ProgramUpdateTest, ADownloadedDatabaseIsDataAlone) {
  const QString makeSchema = u"PRAGMA writable_schema = 1"_s;
  const QString row = u"INSERT INTO 気象略語 (順位, 略語, 意味) "_s;
  const QString many = u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < %1) "_s;
  const struct {
    const char* name;
    QStringList statements;
    bool taken = false;
  } cases[] = {
      {"a view named like a table",
       {u"DROP TABLE データ"_s, u"CREATE VIEW データ AS SELECT 1 順位, 2 名称, 3 データ"_s}},
      {"a further view", {u"CREATE VIEW v AS SELECT 1"_s}},
      {"a view that calls itself a table",
       {u"DROP TABLE データ"_s, u"CREATE VIEW データ AS SELECT 1 順位, 2 名称, 3 データ"_s, makeSchema,
        u"UPDATE sqlite_master SET type = 'table' WHERE type = 'view'"_s}},
      {"a trigger", {u"CREATE TRIGGER t AFTER UPDATE ON 設定 BEGIN DELETE FROM カンパニー; END"_s}},
      {"a trigger that calls itself an index",
       {u"CREATE TRIGGER t AFTER UPDATE ON 設定 BEGIN DELETE FROM カンパニー; END"_s, makeSchema,
        u"UPDATE sqlite_master SET type = 'index' WHERE type = 'trigger'"_s}},
      {"a virtual table", {u"CREATE VIRTUAL TABLE f USING fts4(x)"_s}},
      {"a virtual table in the place of a plain one",
       {u"DROP TABLE データ"_s, makeSchema,
        u"INSERT INTO sqlite_master VALUES ('table', 'データ', 'データ', 0, 'CREATE VIRTUAL TABLE データ USING fts4(順位, 名称, データ)')"_s}},
      {"a generated column",
       {u"DROP TABLE データ"_s, u"CREATE TABLE データ (順位, 名称, データ)"_s, makeSchema,
        u"UPDATE sqlite_master SET sql = 'CREATE TABLE データ (順位, 名称, データ AS (zeroblob(99)))' "
        "WHERE name = 'データ'"_s}},
      {"an index of an expression", {u"CREATE INDEX i ON 気象略語 (upper(略語))"_s}},
      {"an index of some rows", {u"CREATE INDEX i ON 気象略語 (略語) WHERE 順位 > 1"_s}},
      {"a further table", {u"CREATE TABLE 別 (a)"_s}},
      {"a table without a column of ours",
       {u"DROP TABLE データ"_s, u"CREATE TABLE データ (順位 INTEGER, 名称 TEXT)"_s}},
      {"200,000 rows", {many.arg(200'000) + row + u"SELECT i, 'A', 'a' FROM n"}},
      {"a text of 2 MB", {row + u"VALUES (1, 'A', replace(hex(zeroblob(1000000)), '0', 'x'))"}},
      {"a picture of 2 MB", {u"UPDATE データ SET データ = zeroblob(2000000)"_s}},
      {"a file of 70 MB", {many.arg(80) + u"INSERT INTO データ SELECT i, 'A', randomblob(900000) FROM n"}},
      {"limits without their columns", {u"CREATE TABLE 空港別制限 (順位, ICAOコード)"_s}},
      {"limits of airports",
       {u"CREATE TABLE 空港別制限 (順位, ICAOコード, 条件, 視程, RVR, 雲高, 風速, 突風, 横風, 天気)"_s},
       true},
      {"an index of columns", {u"CREATE UNIQUE INDEX i ON 気象略語 (順位, 略語)"_s}, true},
      {"a further column", {u"ALTER TABLE 気象略語 ADD COLUMN 新 TEXT DEFAULT 'x'"_s}, true},
      {"90,000 rows", {many.arg(90'000) + row + u"SELECT i, 'A', 'a' FROM n"}, true},
  };
  const QByteArray before = desk.bytes(u"soran.mdb"_s);
  double version = 2;
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    desk.server.setFile(u"/data/soran.mdb"_s, desk.database([&c](Tables& t) {
      for (const QString& statement : c.statements)
        t.database().execute(statement);
    }));
    update.renewDatabase(++version);
    EXPECT_EQ(tables.settings()[key::DBバージョン], c.taken ? version : 1.0);
    EXPECT_EQ(desk.bytes(u"soran.mdb"_s) == before, !c.taken);
    EXPECT_THAT(tables.groupRows(), ElementsAre(Group{u"MINE"_s, u"RJTT"_s}));
    EXPECT_THAT(QDir(desk.path(u"data"_s)).entryList(QDir::Files), IsEmpty());
  }
  // Nothing of the file itself is there.
  EXPECT_EQ(tables.database().query(u"SELECT 1 FROM sqlite_master"_s).size(), allTables.size());
  EXPECT_EQ(tables.abbreviations().columns(), listColumns(table::気象略語));
}

TEST_F(ProgramUpdateTest, AReadOnlyDatabaseStaysWithoutAWord) {
  QFile::setPermissions(desk.path(u"soran.mdb"_s), QFile::ReadOwner);
  const QByteArray before = desk.bytes(u"soran.mdb"_s);
  update.renewModule(2.0);
  update.renewDatabase(2.0);
  EXPECT_EQ(desk.bytes(u"soran.mdb"_s), before);
  EXPECT_EQ(desk.bytes(u"update.exe"_s), "former module");
  EXPECT_THAT(desk.dialogs(), IsEmpty());
  EXPECT_EQ(tables.settings()[key::DBバージョン], 1.0);
}

TEST_F(ProgramUpdateTest, AJournalOfAKilledCopyDoesNotReachTheNewFile) {
  // A copy ends in the middle: its journal would bring pages of another file back.
  const QString copy = desk.path(u"data/soran$.mdb"_s);
  writeWhole(copy, Updating::deliveredDatabase(), true);
  ChildProcess child([&copy] {
    Database database;
    database.open(copy);
    database.execute(u"PRAGMA cache_size = 1"_s);
    database.execute(u"BEGIN IMMEDIATE"_s);
    database.execute(u"UPDATE 飛行場情報 SET 飛行場名 = 飛行場名 || 'x'"_s);
    ::_exit(0);
  });
  child.wait();
  ASSERT_TRUE(fileExists(copy + u"-journal"));
  desk.server.setFile(u"/data/soran.mdb"_s, newDatabase());
  update.renewDatabase(2.0);
  EXPECT_EQ(tables.settings()[key::DBバージョン], 2.0);
  EXPECT_THAT(tables.phraseRows(), ElementsAre(DictionaryEntry{u"NEW"_s, u"新"_s}));
  EXPECT_FALSE(fileExists(copy + u"-journal"));
}

TEST_F(ProgramUpdateTest, RunsTheModuleOnlyWhereItMayBeTrusted) {
  const TestKey makers;
  const QByteArray module = "module";
  const QByteArray good = makers.sign(module);
  const auto folder = [&](const QString& name, QFile::Permissions others) {
    QDir().mkpath(desk.path(name));
    QFile::setPermissions(desk.path(name), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | others);
    return QUrl::fromLocalFile(desk.path(name)).toString();
  };
  const QString own = folder(u"own"_s, QFile::ReadOther | QFile::ExeOther);
  const QString shared = folder(u"shared"_s, QFile::WriteOther | QFile::ExeOther);
  const QString below = folder(u"shared/below"_s, {});
  QFile::link(desk.path(u"shared"_s), desk.path(u"link"_s));
  const struct {
    const char* name;
    QString endpoint;
    bool signedUpdates;
    QByteArray module;
    QByteArray signature;
    bool mayRun;
    bool copied = true; ///< in this run, from the user's own machine
  } cases[] = {
      {"own folder", own, false, module, {}, true},
      {"loopback", u"http://127.0.0.1:8080"_s, false, module, {}, true},
      {"loopback by name", u"http://localhost"_s, false, module, {}, true},
      {"loopback of IPv6", u"http://[::1]:80"_s, false, module, {}, true},
      {"compiled in", u"qrc:/delivered/update"_s, false, module, {}, true},
      {"folder of all", shared, false, module, {}, false},
      {"folder of all, signed", shared, false, module, good, true},
      {"folder below one of all", below, false, module, {}, false},
      {"link to one of all", QUrl::fromLocalFile(desk.path(u"link"_s)).toString(), false, module, {}, false},
      {"folder that is not there", own + u'x', false, module, {}, false},
      {"left by an earlier run", own, false, module, {}, false, false},
      {"left and signed", own, false, module, good, true, false},
      {"no module", own, false, {}, {}, false},
      {"folder with signatures", own, true, module, {}, false},
      {"loopback with signatures", u"http://127.0.0.1"_s, true, module, {}, false},
      {"signed folder", own, true, module, good, true},
      {"host", u"https://soran.example"_s, false, module, {}, false},
      {"signed host", u"https://soran.example"_s, false, module, good, true},
      {"altered", u"https://soran.example"_s, false, "modulE", good, false},
      {"other key", u"https://soran.example"_s, false, module, TestKey(2).sign(module), false},
      {"short signature", u"https://soran.example"_s, false, module, good.chopped(1), false},
      {"looks like loopback", u"http://127.0.0.1.soran.example"_s, false, module, {}, false},
      {"looks like a name", u"http://localhost.soran.example"_s, false, module, {}, false},
      {"loopback as user", u"http://127.0.0.1@soran.example"_s, false, module, {}, false},
      {"private network", u"http://192.168.0.1"_s, false, module, {}, false},
      {"no endpoint", QString(), false, module, {}, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    services.endpoints.update = c.endpoint;
    services.endpoints.signedUpdates = c.signedUpdates;
    services.copiedModule =
        c.copied ? QCryptographicHash::hash("module", QCryptographicHash::Sha256) : QByteArray();
    QFile::remove(desk.path(u"update.exe"_s));
    if (!c.module.isEmpty())
      writeWhole(desk.path(u"update.exe"_s), c.module);
    writeWhole(desk.path(u"update.exe.sig"_s), c.signature);
    EXPECT_EQ(ProgramUpdate::moduleMayRun(services, makers.publicKey), c.mayRun);
  }
  services.copiedModule.clear();
  // A program without a key takes no signature for good.
  services.endpoints.update = u"https://soran.example"_s;
  writeWhole(desk.path(u"update.exe"_s), module);
  writeWhole(desk.path(u"update.exe.sig"_s), good);
  EXPECT_FALSE(ProgramUpdate::moduleMayRun(services, {}));
}

TEST_F(ProgramUpdateTest, ALeftModuleIsCopiedAgainBeforeItRuns) {
  // The endpoint of before may have been anybody's.
  EXPECT_TRUE(update.readyModule());
  EXPECT_EQ(desk.bytes(u"update.exe"_s), "module");
  desk.server.clearRequests();
  EXPECT_TRUE(update.readyModule());
  EXPECT_THAT(desk.server.requests(), IsEmpty());
  writeWhole(desk.path(u"update.exe"_s), "changed meanwhile");
  desk.server.removeFile(u"/data/update.exe"_s);
  EXPECT_FALSE(update.readyModule());
  services.startsModule = false;
  EXPECT_TRUE(update.readyModule());
  EXPECT_FALSE(ProgramUpdate::moduleMayRun(services));
}

TEST_F(ProgramUpdateTest, NoOlderSignedModuleTakesThePlaceOfANewerOne) {
  const TestKey makers;
  services.endpoints.signedUpdates = true;
  ProgramUpdate signedUpdate(services, tables, services.endpoints.update, makers.publicKey);
  double served = 2;
  const auto offer = [&](const QByteArray& module) {
    desk.server.setFile(u"/data/update.exe"_s, module);
    desk.server.setFile(u"/data/update.exe.sig"_s, makers.sign(module));
    signedUpdate.renewModule(++served);
    return desk.bytes(u"update.exe"_s) == module && ProgramUpdate::moduleMayRun(services, makers.publicKey);
  };
  const QByteArray newer = "\177ELF soran-update  soran-update 4.32\n tail";
  EXPECT_TRUE(offer("without a version"));
  EXPECT_TRUE(offer(newer));
  EXPECT_FALSE(offer("soran-update 4.31\n"));
  EXPECT_FALSE(offer("without a version"));
  EXPECT_EQ(desk.bytes(u"update.exe"_s), newer);
  EXPECT_EQ(tables.settings()[key::UPDATEバージョン], 4.0);
  // Nor where it lies in its place already.
  writeWhole(desk.path(u"update.exe"_s), "soran-update 4.31\n");
  writeWhole(desk.path(u"update.exe.sig"_s), makers.sign("soran-update 4.31\n"));
  EXPECT_FALSE(ProgramUpdate::moduleMayRun(services, makers.publicKey));
  EXPECT_TRUE(offer("soran-update 4.33\n"));
}
