// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/tables.h"

#include "base/files.h"
#include "base/skip.h"
#include "store/schema.h"

#include <QFile>
#include <QScopeGuard>

namespace soran {

using namespace Qt::StringLiterals;

Q_DECLARE_LOGGING_CATEGORY(lcStore)

QStringList listColumns(QStringView table) {
  if (table == table::飛行場情報 || table == table::自動デコード)
    return {u"順位"_s, u"ICAOコード"_s, u"飛行場名"_s};
  if (table == table::カンパニー)
    return {u"順位"_s, u"id"_s, u"route"_s};
  if (table == table::気象略語 || table == table::日本語解析)
    return {u"順位"_s, u"略語"_s, u"意味"_s};
  if (table == table::空港別制限)
    return {u"順位"_s, u"ICAOコード"_s, u"条件"_s, u"視程"_s, u"RVR"_s,
            u"雲高"_s, u"風速"_s,       u"突風"_s, u"横風"_s, u"天気"_s};
  return {};
}

Tables::Tables()
    : sets_{RowSet{table::飛行場情報.toString(), u"順位"_s},
            RowSet{table::自動デコード.toString(), u"順位"_s},
            RowSet{table::カンパニー.toString(), u"順位"_s},
            RowSet{table::気象略語.toString(), u"順位"_s},
            RowSet{table::日本語解析.toString(), u"順位"_s},
            RowSet{table::データ.toString(), u"順位"_s, u"データ"_s},
            RowSet{table::設定.toString(), QString()},
            RowSet{table::空港別制限.toString(), u"順位"_s}} {}

void Tables::openAllTables(const QString& path) {
  closeAll();
  database_.open(path);
  try {
    addMissingSettings(database_);
  } catch (const StoreError&) {
    // A file that cannot be written is read as it is.
  }
  openSets();
}

void Tables::readPictures() const {
  database_.forEachRow(u"SELECT データ FROM "_s + quotedName(table::データ), [](const QVariantList&) {});
}

void Tables::openSets() {
  const Transaction reading(database_, Transaction::For::Reading);
  for (RowSet& set : sets_) {
    if (isOptional(set.table()) && database_.columns(set.table()).isEmpty())
      set.close();
    else
      set.open(database_);
  }
  settings_.load();
  ++revision_;
}

void Tables::closeAll() {
  for (RowSet& set : sets_)
    set.close();
  database_.close();
  ++revision_;
}

const RowSet* Tables::byName(QStringView table) const {
  for (const RowSet& set : sets_) {
    if (set.table() == table)
      return &set;
  }
  return nullptr;
}

void Tables::rewrite(QStringView table, const std::vector<QVariantList>& rows) {
  RowSet* set = byName(table);
  if (!set || !(set->isOpen() || isOptional(table)))
    throw StoreError("not open: " + table.toString().toStdString());
  const QStringList known = listColumns(table);
  const QStringList& columns = known.isEmpty() ? set->columns() : known;
  QStringList quoted;
  for (const QString& column : columns)
    quoted.append(quotedName(column));
  const QString insert = u"INSERT INTO "_s + quotedName(table) + u" (" + quoted.join(u", ") + u") VALUES (" +
                         QStringList(columns.size(), u"?"_s).join(u", ") + u")";
  {
    std::optional<Transaction> transaction;
    if (!inTransaction_)
      transaction.emplace(database_);
    if (!set->isOpen() && database_.columns(table.toString()).isEmpty())
      createTable(database_, table);
    database_.execute(u"DELETE FROM "_s + quotedName(table));
    for (const QVariantList& row : rows)
      database_.execute(insert, row);
    if (transaction)
      transaction->commit();
  }
  set->open(database_);
  ++revision_;
}

void Tables::inOneTransaction(const std::function<void()>& changes) {
  inTransaction_ = true;
  try {
    Transaction transaction(database_);
    changes();
    transaction.commit();
    inTransaction_ = false;
  } catch (...) {
    inTransaction_ = false;
    openSets();
    throw;
  }
}

QList<Airport> Tables::airportsOf(const RowSet& rows) {
  QList<Airport> list;
  for (int i = 0; i < rows.recordCount(); ++i)
    list.append({rows.valueAt(i, u"ICAOコード").toString(), rows.valueAt(i, u"飛行場名").toString()});
  return list;
}

QList<DictionaryEntry> Tables::dictionaryOf(const RowSet& rows) {
  QList<DictionaryEntry> list;
  for (int i = 0; i < rows.recordCount(); ++i)
    list.append({rows.valueAt(i, u"略語").toString(), rows.valueAt(i, u"意味").toString()});
  return list;
}

QList<Group> Tables::groupRows() const {
  QList<Group> list;
  for (int i = 0; i < sets_[2].recordCount(); ++i)
    list.append({sets_[2].valueAt(i, u"id").toString(), sets_[2].valueAt(i, u"route").toString()});
  return list;
}

QList<AirportLimits> Tables::limitRows() const {
  const RowSet& rows = *byName(table::空港別制限);
  QList<AirportLimits> list;
  for (int i = 0; i < rows.recordCount(); ++i) {
    const auto number = [&](QStringView column) -> std::optional<int> {
      const QVariant value = rows.valueAt(i, column);
      return value.typeId() == QMetaType::LongLong ? std::optional(value.toInt()) : std::nullopt;
    };
    list.append({.code = rows.valueAt(i, u"ICAOコード").toString(),
                 .condition = number(u"条件").value_or(0),
                 .visibility = number(u"視程"),
                 .runwayRange = number(u"RVR"),
                 .ceiling = number(u"雲高"),
                 .wind = number(u"風速"),
                 .gust = number(u"突風"),
                 .crosswind = number(u"横風"),
                 .weather = rows.valueAt(i, u"天気").toString()});
  }
  return list;
}

QByteArray Tables::picture(QStringView name) const {
  const RowSet& pictures = sets_[5];
  for (int i = 0; i < pictures.recordCount(); ++i) {
    if (pictures.valueAt(i, u"名称").toString() != name)
      continue;
    QByteArray bytes;
    passOver(lcStore(), "reading a picture", [&] { bytes = pictures.valueAt(i, u"データ").toByteArray(); });
    return bytes;
  }
  return {};
}

bool isWholeDatabase(const QString& path) {
  try {
    Database database;
    database.open(path);
    for (const QStringView name : allTables) {
      if (database.columns(name.toString()).isEmpty())
        return false;
      database.query(u"SELECT * FROM "_s + quotedName(name));
    }
    if (!database.columns(table::空港別制限.toString()).isEmpty())
      database.query(u"SELECT * FROM "_s + quotedName(table::空港別制限));
    return database.query(u"SELECT 1 FROM "_s + quotedName(table::設定)).size() == 1;
  } catch (const StoreError&) {
    return false;
  }
}

bool hasHotJournal(const QString& path) {
  QFile journal(path + u"-journal");
  char first = 0;
  // The library begins a journal with zeros, and ends it so where it does not delete it.
  return journal.open(QIODevice::ReadOnly) && journal.getChar(&first) && first != 0;
}

void compactDatabase(const QString& path, const QString& temporary) {
  if (!fileExists(path))
    throw StoreError("no database to compact");
  // The journal of a copy that was killed would be rolled back into the new one.
  for (const QString& stale : {temporary, QString(temporary + u"-journal")}) {
    if (fileExists(stale) && !QFile::remove(stale))
      throw StoreError("cannot delete the stale compacted copy");
  }
  // On a full disk what there is of the copy would take the last room.
  const auto removal = qScopeGuard([&temporary] { QFile::remove(temporary); });
  {
    Database database;
    // An attached file is made only where the connection itself may make files.
    database.open(path, Database::Mode::Create);
    database.attach(temporary, u"compacted"_s);
    database.query(u"SELECT sqlcipher_export('compacted')"_s);
    database.execute(u"DETACH DATABASE compacted"_s);
  }
  if (!isWholeDatabase(temporary))
    throw StoreError("the compacted copy is not whole");
  if (hasHotJournal(path))
    throw StoreError("the database has a journal");
  QFile::setPermissions(temporary, QFile::ReadOwner | QFile::WriteOwner);
  // Qt's rename does not replace an existing file; this one does, in one step.
  if (!renameOver(temporary, path))
    throw StoreError("cannot replace the database by its compacted copy");
}

} // namespace soran
