// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/exchange.h"

#include "base/files.h"
#include "delivered.h"
#include "store/json_fields.h"
#include "support/own_folder.h"
#include "support/printing.h"

#include <gtest/gtest.h>

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

class ExchangeTest : public ::testing::Test {
 protected:
  ExchangeTest() {
    for (Tables* tables : {&office, &desk}) {
      const QString path = directory.filePath(tables == &office ? u"office"_s : u"desk"_s);
      writeWhole(path, delivered::file(u"update/data/soran.mdb"_s));
      tables->openAllTables(path);
    }
  }
  OwnFolder directory;
  Tables office;
  Tables desk;
};

} // namespace

TEST_F(ExchangeTest, ADeskTakesOverWhatAnotherHas) {
  office.rewrite(table::カンパニー, {{1, u"AREA"_s, u"RJTT RJAA"_s}});
  office.rewrite(table::日本語解析, {{1, u"QQ"_s, u"\"引用\"\t\\"_s}});
  office.rewrite(table::自動デコード, {});
  storeLimits(office, {{.code = u"RJTT"_s, .condition = 2, .gust = 40, .weather = u"TS +SN"_s},
                       {.code = u"ALL"_s, .condition = 3, .visibility = 800, .crosswind = 25}});
  office.settings().store(key::視程1, 4321);
  office.settings().store(key::LOCAL使用, false);
  office.settings().store(key::DBバージョン, 9);
  importData(desk, exportedData(office));
  EXPECT_EQ(exportedData(desk), exportedData(office));
  EXPECT_EQ(desk.groupRows(), office.groupRows());
  EXPECT_EQ(desk.limitRows(), office.limitRows());
  EXPECT_EQ(desk.limitRows().size(), 2);
  EXPECT_EQ(desk.settings()[key::LOCAL使用], false);
  EXPECT_EQ(desk.settings()[key::DBバージョン], 0.0);
}

TEST_F(ExchangeTest, WhatIsNotWholeChangesNothing) {
  const QByteArray before = exportedData(desk);
  const QString head = u"{\"format\":\"SORAN data\",\"version\":1,\"tables\":{\"カンパニー\":[]"_s;
  const QString cases[] = {
      QString(),
      u"[]"_s,
      u"{}"_s,
      QString::fromUtf8(before).chopped(3),
      QString::fromUtf8(before).replace(u"\"version\": 1"_s, u"\"version\": 2"_s),
      QString(head + u"},\"settings\":{\"視程1\":\"far\"}}"),
      QString(head + u"},\"settings\":{\"なし\":1}}"),
      QString(head + u"},\"settings\":{\"DBバージョン\":1}}"),
      QString(head + u",\"設定\":[]},\"settings\":{}}"),
      QString(head + u",\"気象略語\":[[\"RA\"]]},\"settings\":{}}"),
      QString(head + u",\"空港別制限\":[{\"ICAOコード\":\"RJTT\",\"条件\":4}]},\"settings\":{}}"),
      u"{\"format\":\"SORAN data\",\"version\":1,\"tables\":{\"カンパニー\":[[\"A\",\"RJTTRJAA\"]]},\"settings\":{}}"_s,
  };
  for (const QString& json : cases)
    EXPECT_THROW(importData(desk, json.toUtf8()), InputError) << json.left(90).toStdString();
  EXPECT_EQ(exportedData(desk), before);
}

TEST_F(ExchangeTest, TakesNoDatabaseAndNothingBeyondItsBounds) {
  const auto lists = [](const QByteArray& rows) -> QByteArray {
    return R"({"format":"SORAN data","version":1,"tables":{"カンパニー":[)" + rows + "]},\"settings\":{}}";
  };
  const struct {
    QByteArray bytes;
    QString reason;
  } cases[] = {
      {delivered::file(u"update/data/soran.mdb"_s), u"file: データベースは"_s},
      {QByteArray("SQLite format 3\0plain", 21), u"file: データベースは"_s},
      {QByteArray((16 << 20) + 1, ' '), u"file: ファイルが大きすぎます(上限 16 MB)"_s},
      {lists("[\"A\",\"\"]" + QByteArray(",[\"A\",\"\"]").repeated(100'000)), u"too many rows"_s},
      {lists("[\"A\",\"" + QByteArray(2 << 20, 'A') + "\"]"), u"too long"_s},
  };
  const QByteArray before = exportedData(desk);
  for (const auto& c : cases) {
    const QString file = directory.filePath(u"file"_s);
    ASSERT_TRUE(writeWhole(file, c.bytes));
    try {
      importFile(desk, file);
      ADD_FAILURE() << c.reason.toStdString();
    } catch (const InputError& e) {
      EXPECT_TRUE(e.fault().contains(c.reason)) << e.what();
    }
  }
  EXPECT_EQ(exportedData(desk), before);
}

TEST_F(ExchangeTest, AFailureInTheMiddleUndoesAll) {
  const QByteArray before = exportedData(desk);
  EXPECT_THROW(desk.inOneTransaction([this] {
    desk.rewrite(table::カンパニー, {});
    desk.settings().set(key::視程1, 1);
    desk.settings().update();
    desk.rewrite(table::飛行場情報, {{1, u"too few columns"_s}});
  }),
               StoreError);
  EXPECT_EQ(exportedData(desk), before);
  Tables other;
  other.openAllTables(directory.filePath(u"desk"_s));
  EXPECT_EQ(exportedData(other), before);
}
