// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The format of the database file, which releases of the library must share.
#include "store/cipher.h"

#include "base/files.h"
#include "store/tables.h"
#include "support/own_folder.h"
#include "support/printing.h"

#include <QFile>
#include <gtest/gtest.h>

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

QByteArray fixture(const QString& name) {
  QFile file(QStringView(SORAN_SOURCE_DIR) + u"/tests/store/fixtures/" + name);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
  return file.readAll();
}

/// Reads what the maker of the fixtures put into each table.
void expectFixtureRows(const Tables& tables) {
  const Airport own{u"RJXX"_s, u"自分の飛行場"_s};
  EXPECT_EQ(tables.airportRows().last(), own);
  EXPECT_EQ(tables.autoRows().last(), own);
  EXPECT_EQ(tables.groupRows().last(), (Group{u"OWN"_s, u"RJTT RJXX"_s}));
  EXPECT_EQ(tables.abbreviationRows().last(), (DictionaryEntry{u"OWNWX"_s, u"自分の略語"_s}));
  EXPECT_EQ(tables.phraseRows().last(), (DictionaryEntry{u"OWNPH"_s, u"自分の語句"_s}));
  EXPECT_EQ(tables.picture(u"自分の絵"), QByteArray("\x00\xFF\x10", 3));
}

} // namespace

TEST(Cipher, FilesOfEachReleaseAreReadEditedAndCompacted) {
  for (const QString& name : {u"sqlcipher-3.4.mdb"_s, u"sqlcipher-4.6.mdb"_s}) {
    SCOPED_TRACE(name.toStdString());
    const OwnFolder directory;
    const QString path = directory.filePath(u"soran.mdb"_s);
    ASSERT_TRUE(writeWhole(path, fixture(name)));
    {
      Tables tables;
      tables.openAllTables(path);
      expectFixtureRows(tables);
      EXPECT_EQ(tables.settings()[key::雲高1], 1234);
      EXPECT_TRUE(tables.settings().store(key::雲高1, 4321));
      tables.rewrite(table::カンパニー, {{1, u"NEW"_s, u"RJAA"_s}, {2, u"OWN"_s, u"RJTT RJXX"_s}});
    }
    compactDatabase(path, directory.filePath(u"soran_temp.mdb"_s));
    Tables tables;
    tables.openAllTables(path);
    expectFixtureRows(tables);
    EXPECT_EQ(tables.settings()[key::雲高1], 4321);
    EXPECT_EQ(tables.groupRows().first(), (Group{u"NEW"_s, u"RJAA"_s}));
    // The copy that compacting made is of the same format.
    EXPECT_EQ(tables.database().query(u"PRAGMA page_size"_s), std::vector{QVariantList{1024}});
  }
}

TEST(Cipher, TellsOtherFormatsFromWhatIsNoDatabase) {
  const QByteArray standard = fixture(u"sqlcipher-4-standard.mdb"_s);
  QByteArray flipped = standard;
  flipped[100] = char(flipped[100] ^ 1);
  const struct {
    const char* what;
    QByteArray bytes;
    bool isDatabase;
  } cases[] = {
      {"the standard format of release 4", standard, true},
      {"its first page alone", standard.left(4096), true},
      {"its first page torn", standard.left(4095), false},
      {"a flipped bit in it", flipped, false},
      {"a plain database", QByteArray("SQLite format 3\0", 16) + QByteArray(1008, '\0'), true},
      {"a plain text", "SQLite format 3 is what this text is about", false},
      {"nothing", {}, false},
      {"zeros", QByteArray(8192, '\0'), false},
      {"a page of the network", "<html>" + QByteArray(2042, ' '), false},
  };
  const OwnFolder directory;
  const QString path = directory.filePath(u"soran.mdb"_s);
  for (const auto& [what, bytes, isDatabase] : cases) {
    ASSERT_TRUE(writeWhole(path, bytes));
    EXPECT_EQ(cipher::isDatabaseOfAnotherFormat(path), isDatabase) << what;
  }
  EXPECT_FALSE(cipher::isDatabaseOfAnotherFormat(directory.filePath(u"missing"_s)));
}
