// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/tables.h"

#include "base/files.h"
#include "delivered.h"
#include "support/ordinary_user.h"
#include "support/own_folder.h"
#include "support/printing.h"

#include <QFile>
#include <gmock/gmock.h>
#include <sys/stat.h>

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

class TablesTest : public ::testing::Test {
 protected:
  TablesTest() {
    writeWhole(path, delivered::file(u"update/data/soran.mdb"_s), true);
    tables.openAllTables(path);
  }
  OwnFolder directory;
  QString path = directory.filePath(u"soran.mdb"_s);
  Tables tables;
};

} // namespace

TEST_F(TablesTest, DeliveredDatabaseHoldsAllTablesAndOneSettingsRow) {
  EXPECT_TRUE(isWholeDatabase(path));
  EXPECT_EQ(tables.byName(table::設定)->recordCount(), 1);
  EXPECT_EQ(tables.airportRows().first().code, u"RJTT");
  EXPECT_EQ(tables.airportRows(), delivered::airports());
  EXPECT_EQ(tables.settings()[key::時差], u"+9"_s);
  EXPECT_EQ(tables.settings()[key::プリンター], u"*"_s);
  for (const auto version : {key::SORANバージョン, key::UPDATEバージョン, key::DBバージョン})
    EXPECT_EQ(tables.settings()[version], 0.0);
  EXPECT_EQ(tables.byName(table::設定)->value(u"自動デコード有効"), QVariant(-1));
}

TEST_F(TablesTest, FileIsUnreadableWithoutThePassword) {
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const QByteArray bytes = file.readAll();
  EXPECT_FALSE(bytes.startsWith("SQLite format"));
  EXPECT_FALSE(bytes.contains("RJTT"));
}

TEST_F(TablesTest, AChangeIsInTheFileAtOnce) {
  tables.settings().store(key::雲高1, 1500);
  tables.settings().store(key::SORANバージョン, 4.31);
  tables.settings().store(key::PAD表示, false);
  tables.settings().set(key::雲高2, 300); // pending, never written
  Tables other;
  other.openAllTables(path);
  EXPECT_EQ(other.settings()[key::雲高1], 1500);
  EXPECT_EQ(other.settings()[key::SORANバージョン], 4.31);
  EXPECT_EQ(other.settings()[key::PAD表示], false);
  EXPECT_EQ(other.settings()[key::雲高2], 200);
}

TEST_F(TablesTest, ADatabaseWithoutTheLimitsGetsThemWithItsFirstRows) {
  ASSERT_TRUE(tables.database().columns(table::空港別制限.toString()).isEmpty());
  EXPECT_TRUE(tables.limitRows().isEmpty());
  const AirportLimits row{
      .code = u"RJTT"_s, .condition = 2, .visibility = 800, .crosswind = 25, .weather = u"TS"_s};
  const auto rewrite = [&] {
    tables.rewrite(table::空港別制限,
                   {{1, u"RJTT"_s, 2, 800, QVariant(), QVariant(), QVariant(), QVariant(), 25, u"TS"_s}});
  };
  EXPECT_THROW(tables.inOneTransaction([&] {
    rewrite();
    throw StoreError("the disk is full");
  }),
               StoreError);
  EXPECT_TRUE(tables.limitRows().isEmpty());
  EXPECT_TRUE(isWholeDatabase(path));
  rewrite();
  Tables other;
  other.openAllTables(path);
  EXPECT_THAT(other.limitRows(), ::testing::ElementsAre(row));
  // What nobody here wrote is no limit.
  other.database().execute(u"UPDATE 空港別制限 SET 視程 = 'far', 条件 = NULL"_s);
  other.openAllTables(path);
  EXPECT_EQ(other.limitRows().first().visibility, std::nullopt);
  EXPECT_EQ(other.limitRows().first().condition, 0);
}

TEST_F(TablesTest, AnEmptySettingIsNeitherTrueNorFalse) {
  tables.settings().storeValue(SettingIndex::ブラウザー, QVariant());
  EXPECT_FALSE(tables.settings()[key::ブラウザー] == true);
  EXPECT_FALSE(tables.settings()[key::ブラウザー] == false);
}

TEST_F(TablesTest, RestoringTheStandardSettingsKeepsVersionsAndAddress) {
  tables.settings().store(key::DBバージョン, 1.5);
  tables.settings().store(key::BASEurl, u"http://x"_s);
  tables.settings().store(key::RVR1, 77);
  tables.settings().store(key::起動回数, 40);
  tables.settings().store(key::視程1, 1);
  tables.settings().restoreStandardSettings(u"-5"_s);
  Tables other;
  other.openAllTables(path);
  EXPECT_EQ(other.settings()[key::DBバージョン], 1.5);
  EXPECT_EQ(other.settings()[key::BASEurl], u"http://x"_s);
  EXPECT_EQ(other.settings()[key::RVR1], 77);
  EXPECT_EQ(other.settings()[key::起動回数], 0);
  EXPECT_EQ(other.settings()[key::視程1], 5000);
  EXPECT_EQ(other.settings()[key::時差], u"-5"_s);
}

TEST_F(TablesTest, RewritingKeepsTheOrderOfTheRanks) {
  tables.rewrite(table::カンパニー, {{2, u"B"_s, u"RJBB"_s}, {1, u"A'\""_s, u"RJAA RJTT"_s}});
  const QList<Group> groups = tables.groupRows();
  ASSERT_EQ(groups.size(), 2);
  EXPECT_EQ(groups[0], (Group{u"A'\""_s, u"RJAA RJTT"_s}));
  tables.rewrite(table::カンパニー, {});
  EXPECT_EQ(tables.groups().recordCount(), 0);
  EXPECT_TRUE(tables.groups().eof());
}

TEST_F(TablesTest, AFailedRewriteLeavesTheFormerRows) {
  const QList<Airport> before = tables.airportRows();
  EXPECT_THROW(
      tables.rewrite(table::飛行場情報, {{1, u"RJTT"_s, u"羽田"_s}, {2, u"RJAA"_s, u"成田"_s, u"more"_s}}),
      StoreError);
  Tables other;
  other.openAllTables(path);
  EXPECT_EQ(other.airportRows(), before);
}

TEST_F(TablesTest, RowSetAddsUpdatesAndKeepsBytes) {
  RowSet& groups = tables.groups();
  groups.addNew();
  EXPECT_TRUE(groups.value(u"id").isNull());
  groups.setValue(u"順位", 99);
  groups.setValue(u"id", u"NEW"_s);
  groups.update();
  EXPECT_EQ(groups.text(u"id"), u"NEW");
  groups.setValue(u"route", u"RJTT"_s);
  groups.update();
  EXPECT_THROW(groups.setValue(u"ない", 1), StoreError);

  RowSet& pictures = tables.pictures();
  pictures.moveFirst();
  const QByteArray bytes("\0\xFF picture", 10);
  pictures.appendChunk(u"データ", bytes);
  pictures.update();
  Tables other;
  other.openAllTables(path);
  EXPECT_EQ(other.groupRows().last(), (Group{u"NEW"_s, u"RJTT"_s}));
  other.pictures().moveFirst();
  EXPECT_EQ(other.pictures().actualSize(u"データ"), 10);
  EXPECT_EQ(other.pictures().getChunk(u"データ", 10), bytes);
  EXPECT_EQ(other.picture(other.pictures().text(u"名称")), bytes);
  EXPECT_EQ(other.picture(u"no such name"), QByteArray());
}

TEST_F(TablesTest, AReadOnlyFileKeepsItsValues) {
  tables.closeAll();
  const OrdinaryUser user;
  QFile::setPermissions(path, QFile::ReadOwner);
  tables.openAllTables(path);
  EXPECT_FALSE(tables.settings().store(key::雲高1, 1234));
  EXPECT_EQ(tables.settings()[key::雲高1], 1000);
  // Nor is there anything to keep where no file is open.
  Tables none;
  EXPECT_FALSE(none.settings().store(key::雲高1, 5));
  EXPECT_EQ(none.settings()[key::雲高1], std::nullopt);
}

TEST_F(TablesTest, DamagedForeignAndMissingFilesDoNotOpen) {
  tables.closeAll();
  const QByteArray good = delivered::file(u"update/data/soran.mdb"_s);
  QByteArray flipped = good;
  flipped[2000] = char(flipped[2000] ^ 1);
  for (const QByteArray& bytes : {QByteArray(), QByteArray("<html>"), good.first(good.size() / 2), flipped,
                                  QByteArray(8192, 'x'), QByteArray("SQLite format 3\0", 16)}) {
    writeWhole(path, bytes);
    EXPECT_FALSE(isWholeDatabase(path)) << bytes.size();
  }
  EXPECT_FALSE(isWholeDatabase(directory.filePath(u"missing"_s)));
  EXPECT_FALSE(fileExists(directory.filePath(u"missing"_s)));
}

TEST_F(TablesTest, CompactingKeepsTheContentAndRemovesAStaleCopy) {
  std::vector<QVariantList> many;
  for (int i = 0; i < 20000; ++i)
    many.push_back({i, u"X%1"_s.arg(i), u"much text that goes away again"_s});
  tables.rewrite(table::気象略語, many);
  tables.rewrite(table::気象略語, {{1, u"RA"_s, u"雨"_s}});
  tables.closeAll();
  const qint64 before = QFileInfo(path).size();
  const QString temporary = directory.filePath(u"soran_temp.mdb"_s);
  writeWhole(temporary, "stale");
  compactDatabase(path, temporary);
  EXPECT_LT(QFileInfo(path).size(), before / 2);
  EXPECT_FALSE(fileExists(temporary));
  tables.openAllTables(path);
  EXPECT_EQ(tables.abbreviationRows(), (QList<DictionaryEntry>{{u"RA"_s, u"雨"_s}}));
  struct stat info {};
  ASSERT_EQ(::stat(QFile::encodeName(path).constData(), &info), 0);
  EXPECT_EQ(info.st_mode & 0777U, 0600U);
}
