// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/list_rules.h"

#include "base/files.h"
#include "delivered.h"
#include "support/own_folder.h"
#include "support/printing.h"

#include <gtest/gtest.h>

using namespace soran;
using namespace Qt::StringLiterals;

TEST(ListRules, ClosingAnEditorTrimsRaisesCaseAndDropsEmptyRows) {
  OwnFolder directory;
  const QString path = directory.filePath(u"soran.mdb"_s);
  writeWhole(path, delivered::file(u"update/data/soran.mdb"_s));
  Tables tables;
  tables.openAllTables(path);

  storeAirports(tables, {{u" rjtt "_s, u" 羽田 "_s}, {u""_s, u"x"_s}, {u"RJAA"_s, u" "_s}});
  EXPECT_EQ(tables.airportRows(), (QList<Airport>{{u"RJTT"_s, u"羽田"_s}, {u"RJAA"_s, QString()}}));

  storeAutoList(tables, {{u" rjtt "_s, u"東京"_s}, {u" "_s, u"x"_s}, {u"RJAA"_s, u""_s}});
  EXPECT_EQ(tables.autoRows(), (QList<Airport>{{u"RJTT"_s, u"東京"_s}, {u"RJAA"_s, QString()}}));
  EXPECT_EQ(tables.settings()[key::自動デコード有効], true);
  storeAutoList(tables, {});
  EXPECT_EQ(tables.settings()[key::自動デコード有効], false);

  storeGroups(tables, {{u"a"_s, u" rjtt rjaa "_s}, {u"B"_s, u""_s}, {u"c"_s, u"RJBB"_s}});
  EXPECT_EQ(tables.groupRows(), (QList<Group>{{u"A"_s, u"RJTT RJAA"_s}, {u"C"_s, u"RJBB"_s}}));
  EXPECT_EQ(tables.groups().valueAt(1, u"順位"), 3);

  storeDictionary(tables, table::気象略語, {{u" ra "_s, u" 雨 "_s}, {u""_s, u"?"_s}, {u" "_s, u""_s}});
  EXPECT_EQ(tables.abbreviationRows(), (QList<DictionaryEntry>{{u"RA"_s, u"雨"_s}, {QString(), u"?"_s}}));
  EXPECT_FALSE(storeList(tables, table::設定, {}));
}
