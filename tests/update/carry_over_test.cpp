// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/carry_over.h"

#include "fakes/updating.h"
#include "support/printing.h"

#include <gmock/gmock.h>

using namespace soran;
using namespace Qt::StringLiterals;
using ::testing::ElementsAre;

namespace {

class CarryOverTest : public ::testing::Test {
 protected:
  CarryOverTest() {
    writeWhole(desk.path(u"live.mdb"_s), Updating::deliveredDatabase(), true);
    live.openAllTables(desk.path(u"live.mdb"_s));
  }

  /// Carries the live data into a new delivered database and opens that one.
  Tables& carried(const QByteArray& newDelivered) {
    const QString path = desk.path(u"new.mdb"_s);
    writeWhole(path, newDelivered, true);
    carryOverData(live, path);
    result.openAllTables(path);
    return result;
  }
  Tables& carried() {
    return carried(desk.database([](Tables& t) {
      t.rewrite(table::日本語解析, {{1, u"NEW"_s, u"新しい句"_s}});
      t.rewrite(table::飛行場情報, {{1, u"ZZZZ"_s, u"新"_s}});
      t.rewrite(table::カンパニー, {{1, u"NEWGROUP"_s, u"ZZZZ"_s}});
      t.rewrite(table::気象略語, {{1, u"NW"_s, u"新"_s}});
      t.rewrite(table::自動デコード, {{1, u"ZZZZ"_s, u"新"_s}});
    }));
  }

  Updating desk;
  Tables live;
  Tables result;
};

} // namespace

TEST_F(CarryOverTest, ListsWithRowsAreTheUsersWithTheirRanks) {
  live.rewrite(table::飛行場情報, {{7, u"RJXX"_s, u"七"_s}, {3, u"RJYY"_s, u"三'\""_s}});
  live.rewrite(table::自動デコード, {{1, u"RJTT"_s, u"羽田"_s}});
  live.rewrite(table::カンパニー, {{2, u"MINE"_s, u"RJXX RJYY"_s}});
  live.rewrite(table::気象略語, {{5, u"MY"_s, u"私の"_s}});
  Tables& tables = carried();
  EXPECT_THAT(tables.airportRows(), ElementsAre(Airport{u"RJYY"_s, u"三'\""_s}, Airport{u"RJXX"_s, u"七"_s}));
  EXPECT_EQ(tables.airports().valueAt(1, u"順位"), 7);
  EXPECT_THAT(tables.autoRows(), ElementsAre(Airport{u"RJTT"_s, u"羽田"_s}));
  EXPECT_THAT(tables.groupRows(), ElementsAre(Group{u"MINE"_s, u"RJXX RJYY"_s}));
  EXPECT_THAT(tables.abbreviationRows(), ElementsAre(DictionaryEntry{u"MY"_s, u"私の"_s}));
}

TEST_F(CarryOverTest, LimitsOfAirportsGoIntoADatabaseThatHasTheirTableOrNot) {
  const auto write = [](Tables& tables, const QString& code, int crosswind) {
    tables.rewrite(table::空港別制限, {{1, code, 3, QVariant(), QVariant(), QVariant(), QVariant(),
                                        QVariant(), crosswind, u"TS"_s}});
  };
  write(live, u"RJTT"_s, 25);
  const AirportLimits own{.code = u"RJTT"_s, .condition = 3, .crosswind = 25, .weather = u"TS"_s};
  EXPECT_THAT(carried().limitRows(), ElementsAre(own));
  EXPECT_THAT(carried(desk.database([&](Tables& t) { write(t, u"ZZZZ"_s, 9); })).limitRows(),
              ElementsAre(own));
}

TEST_F(CarryOverTest, EmptiedListsComeBackAsDelivered) {
  for (const QStringView list : {table::飛行場情報, table::自動デコード, table::カンパニー, table::気象略語})
    live.rewrite(list, {});
  Tables& tables = carried();
  EXPECT_THAT(tables.airportRows(), ElementsAre(Airport{u"ZZZZ"_s, u"新"_s}));
  EXPECT_THAT(tables.autoRows(), ElementsAre(Airport{u"ZZZZ"_s, u"新"_s}));
  EXPECT_THAT(tables.groupRows(), ElementsAre(Group{u"NEWGROUP"_s, u"ZZZZ"_s}));
  EXPECT_THAT(tables.abbreviationRows(), ElementsAre(DictionaryEntry{u"NW"_s, u"新"_s}));
}

TEST_F(CarryOverTest, PhrasesAndPicturesAreTheMakers) {
  live.rewrite(table::日本語解析, {{1, u"MINE"_s, u"私の句"_s}});
  live.pictures().moveFirst();
  const QString name = live.pictures().text(u"名称");
  const QByteArray picture = live.picture(name);
  live.pictures().appendChunk(u"データ", "mine");
  live.pictures().update();
  Tables& tables = carried();
  EXPECT_THAT(tables.phraseRows(), ElementsAre(DictionaryEntry{u"NEW"_s, u"新しい句"_s}));
  EXPECT_EQ(tables.picture(name), picture);
}

TEST_F(CarryOverTest, EverySettingIsTheUsers) {
  // A value that no delivered row has, of the type of each key; an empty one stays empty.
  for (size_t i = 0; i < settingSpecs.size(); ++i) {
    const auto index = static_cast<SettingIndex>(i);
    const QVariant before = live.settings().record().value(index);
    const SettingType type = settingSpecs[i].type;
    QVariant value;
    if (type == SettingType::YesNo)
      value = before.toInt() == 0;
    else if (type == SettingType::Text || type == SettingType::Date)
      value = u"値%1"_s.arg(i);
    else if (i % 7 != 0)
      value = int(1000 + i);
    ASSERT_TRUE(live.settings().storeValue(index, value));
  }
  live.closeAll();
  live.openAllTables(desk.path(u"live.mdb"_s));
  Tables& tables = carried();
  for (size_t i = 0; i < settingSpecs.size(); ++i) {
    const auto index = static_cast<SettingIndex>(i);
    EXPECT_EQ(tables.settings().record().value(index), live.settings().record().value(index))
        << settingSpecs[i].column.toString().toStdString();
  }
  EXPECT_EQ(tables.byName(table::設定)->recordCount(), 1);
}

TEST_F(CarryOverTest, AKeyIsCarriedWhereBothFilesHaveIt) {
  const QString made = desk.path(u"columns.mdb"_s);
  writeWhole(made, Updating::deliveredDatabase(), true);
  {
    Database database;
    database.open(made);
    QStringList kept = database.columns(u"設定"_s);
    ASSERT_TRUE(kept.removeOne(u"ポップアップ"_s) && kept.removeOne(u"規約読み"_s));
    database.execute(u"CREATE TABLE 別 AS SELECT \""_s + kept.join(u"\", \""_s) + u"\" FROM 設定");
    database.execute(u"DROP TABLE 設定"_s);
    database.execute(u"ALTER TABLE 別 RENAME TO 設定"_s);
    database.execute(u"ALTER TABLE 設定 ADD COLUMN 新しい設定 INTEGER DEFAULT 77"_s);
  }
  live.settings().store(key::シーケンス時間, 9);
  Tables& tables = carried(desk.bytes(u"columns.mdb"_s));
  EXPECT_EQ(tables.byName(table::設定)->value(u"新しい設定"), 77);
  EXPECT_EQ(tables.settings()[key::シーケンス時間], 9);
  live.openAllTables(made);
  EXPECT_EQ(live.settings()[key::規約読み], true);
  ASSERT_TRUE(live.settings().storeValue(key::規約読み.index, false));
  live.openAllTables(made);
  EXPECT_EQ(live.settings()[key::規約読み], false);
  live.settings().store(key::規約読み, true);
  live.settings().restoreStandardSettings(u"-5"_s);
  EXPECT_EQ(carried(Updating::deliveredDatabase()).settings()[key::ポップアップ], true);
  EXPECT_EQ(tables.settings()[key::時差], u"-5"_s);
}

TEST_F(CarryOverTest, AFailureLeavesTheNewFileAsItWas) {
  const QString path = desk.path(u"new.mdb"_s);
  for (const QByteArray& bytes :
       {QByteArray(), QByteArray("<html>"), Updating::deliveredDatabase().first(6000)}) {
    writeWhole(path, bytes, true);
    EXPECT_THROW(carryOverData(live, path), StoreError);
  }
  // The last list of the copy cannot be written, so the first ones go back too.
  writeWhole(path, Updating::deliveredDatabase(), true);
  {
    Database database;
    database.open(path);
    database.execute(u"CREATE TRIGGER t BEFORE INSERT ON 気象略語 BEGIN SELECT RAISE(ABORT, 'no'); END"_s);
  }
  live.rewrite(table::飛行場情報, {{1, u"RJXX"_s, u"x"_s}});
  EXPECT_THROW(carryOverData(live, path), StoreError);
  result.openAllTables(path);
  EXPECT_EQ(result.airportRows(), delivered::airports());
}
