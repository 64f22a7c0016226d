// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/rows.h"
#include "store/settings.h"

#include <functional>

namespace soran {

/// The names of the tables.
namespace table {
inline constexpr QStringView 飛行場情報 = u"飛行場情報";
inline constexpr QStringView 自動デコード = u"自動デコード";
inline constexpr QStringView カンパニー = u"カンパニー";
inline constexpr QStringView 気象略語 = u"気象略語";
inline constexpr QStringView 日本語解析 = u"日本語解析";
inline constexpr QStringView データ = u"データ";
inline constexpr QStringView 設定 = u"設定";
inline constexpr QStringView 空港別制限 = u"空港別制限";
} // namespace table

/// The tables that every database holds, in the order in which they are opened and closed.
inline constexpr std::array allTables = {table::飛行場情報, table::自動デコード, table::カンパニー,
                                         table::気象略語,   table::日本語解析,   table::データ,
                                         table::設定};

/// Whether the table is one that a database need not hold: one that lacks it reads as empty and gets it with
/// its first rows. The delivered database has none, as programs of before take no file with a table that they
/// do not know.
inline bool isOptional(QStringView table) {
  return table == table::空港別制限;
}

/// The columns of a list table that an editor fills, in the order of a rewritten row; empty for another
/// table. A file made for a newer program may hold further ones.
QStringList listColumns(QStringView table);

/// The program's database: one connection and its row sets, open from the start to the exit.
class Tables {
 public:
  Tables();

  /// Opens the connection and the row sets in order. The first failure abandons the rest and throws
  /// StoreError; what was reached stays open.
  void openAllTables(const QString& path);

  /// Reads the pictures, which stay in the file until one is asked for. Throws StoreError where they are
  /// damaged.
  void readPictures() const;

  /// Closes the row sets and the connection.
  void closeAll();

  RowSet& airports() { return sets_[0]; }
  RowSet& autoList() { return sets_[1]; }
  RowSet& groups() { return sets_[2]; }
  RowSet& abbreviations() { return sets_[3]; }
  RowSet& phrases() { return sets_[4]; }
  RowSet& pictures() { return sets_[5]; }
  Settings& settings() { return settings_; }
  const Settings& settings() const { return settings_; }

  /// The row set of a table, null where there is no such table.
  RowSet* byName(QStringView table) { return const_cast<RowSet*>(std::as_const(*this).byName(table)); }
  const RowSet* byName(QStringView table) const;

  /// Replaces all rows of a list table in one transaction and loads it anew: after a failure at any moment
  /// the file holds the former rows or the new ones. Each row holds the columns of
  /// listColumns(), or all columns of a table that is no list. Throws StoreError.
  void rewrite(QStringView table, const std::vector<QVariantList>& rows);

  /// Carries out several changes of the tables as one: where one of them throws, all of them are undone, in
  /// the file and in memory.
  void inOneTransaction(const std::function<void()>& changes);

  QList<Airport> airportRows() const { return airportsOf(sets_[0]); }
  QList<Airport> autoRows() const { return airportsOf(sets_[1]); }
  QList<Group> groupRows() const;
  /// A field of another type than the editor writes is missing.
  QList<AirportLimits> limitRows() const;
  QList<DictionaryEntry> abbreviationRows() const { return dictionaryOf(sets_[3]); }
  QList<DictionaryEntry> phraseRows() const { return dictionaryOf(sets_[4]); }

  /// The picture stored under the name, empty where there is none or where it cannot be read.
  QByteArray picture(QStringView name) const;

  /// Counts the reloads of the list tables, so that those who keep a copy know when it is old.
  int revision() const { return revision_; }

  Database& database() { return database_; }

 private:
  void openSets();
  static QList<Airport> airportsOf(const RowSet& rows);
  static QList<DictionaryEntry> dictionaryOf(const RowSet& rows);

  Database database_;
  std::array<RowSet, 8> sets_;
  Settings settings_{sets_[6]};
  int revision_ = 0;
  bool inTransaction_ = false;
};

/// True where the file opens with the program's password and holds all tables but optional ones and exactly
/// one settings row.
bool isWholeDatabase(const QString& path);

/// True where a journal beside the closed database file would be rolled back into it at the next opening. It
/// belongs to this very file: another one must not take its place before that.
bool hasHotJournal(const QString& path);

/// Writes a compacted copy of the closed database file beside it, checks the copy and renames it over. Throws
/// StoreError; the file is then untouched.
void compactDatabase(const QString& path, const QString& temporary);

} // namespace soran
