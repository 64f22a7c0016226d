// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/foreign_database.h"

#include "store/schema.h"
#include "store/tables.h"

#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>
#include <QSet>
#include <algorithm>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

[[noreturn]] void refuse(const QString& why) {
  throw StoreError("a foreign database is refused: " + why.toStdString());
}

bool isOurTable(QStringView name) {
  return isOptional(name) || std::find(allTables.begin(), allTables.end(), name) != allTables.end();
}

/// The statement counts, not the type beside it, which whoever made the file may have written there.
bool makesATable(const QString& statement) {
  return statement.startsWith(u"CREATE TABLE", Qt::CaseInsensitive);
}

bool makesAnIndex(const QVariant& statement) {
  const QString text = statement.toString();
  // One that stands for a UNIQUE in its table has no statement.
  return statement.isNull() || text.startsWith(u"CREATE INDEX", Qt::CaseInsensitive) ||
         text.startsWith(u"CREATE UNIQUE INDEX", Qt::CaseInsensitive);
}

/// Gives the names of the tables.
QSet<QString> requireOurTablesAlone(const Database& foreign) {
  QSet<QString> tables;
  foreign.forEachRow(u"SELECT type, name, tbl_name, sql FROM sqlite_master"_s, [&](const QVariantList& row) {
    const QString type = row[0].toString();
    const QString name = row[1].toString();
    const bool isTable = type == u"table" && isOurTable(name) && name == row[2].toString() &&
                         makesATable(row[3].toString()) && !tables.contains(name);
    if (isTable)
      tables.insert(name);
    else if (type != u"index" || !isOurTable(row[2].toString()) || !makesAnIndex(row[3]))
      refuse(type + u' ' + name);
  });
  for (const QStringView table : allTables) {
    if (!tables.contains(table.toString()))
      refuse(u"a table is missing"_s);
  }
  return tables;
}

/// The columns of a table, each of which must be stored as it is read.
QStringList plainColumns(const Database& foreign, const QString& table) {
  // A library from before such columns tells nothing here, and takes no statement that has one.
  constexpr int hidden = 6;
  for (const QVariantList& column : foreign.query(u"PRAGMA table_xinfo("_s + quotedName(table) + u")")) {
    if (column[hidden].toInt() != 0)
      refuse(u"a computed column "_s + column[1].toString());
  }
  return foreign.columns(table);
}

void requirePlainIndexes(const Database& foreign, const QString& table) {
  constexpr int isPartial = 4;
  constexpr int ofExpression = -2;
  for (const QVariantList& index : foreign.query(u"PRAGMA index_list("_s + quotedName(table) + u")")) {
    const QString name = index[1].toString();
    const auto columns = foreign.query(u"PRAGMA index_xinfo("_s + quotedName(name) + u")");
    const bool isOfColumns = std::none_of(columns.begin(), columns.end(), [](const QVariantList& column) {
      return column[1].toInt() == ofExpression;
    });
    // One that has none is not there under the name that it tells.
    if (index[isPartial].toInt() != 0 || columns.empty() || !isOfColumns)
      refuse(u"an index of more than columns "_s + name);
  }
}

/// Takes the rows of a foreign database over, table by table.
class Copy {
 public:
  Copy(const Database& foreign, Database& own) : foreign_(foreign), own_(own) {}

  void take(QStringView table) {
    const QString name = table.toString();
    requirePlainIndexes(foreign_, name);
    const QStringList known = plainColumns(foreign_, name);
    const QStringList columns = columnsOf(table);
    QStringList quoted;
    QList<qsizetype> places;
    for (qsizetype i = 0; i < columns.size(); ++i) {
      if (known.contains(columns[i])) {
        quoted.append(quotedName(columns[i]));
        places.append(i);
      } else if (table != table::設定) {
        refuse(u"no column "_s + columns[i] + u" in " + name);
      }
    }
    if (quoted.isEmpty())
      refuse(u"no column of "_s + name);
    createTable(own_, table);
    const QVariantList blank = table == table::設定 ? standardRow() : QVariantList(columns.size());
    int rows = 0;
    foreign_.forEachRow(u"SELECT "_s + quoted.join(u", ") + u" FROM " + quotedName(name) + u" NOT INDEXED",
                        [&](const QVariantList& values) {
                          if (++rows > mostForeignRows)
                            refuse(u"too many rows in "_s + name);
                          QVariantList row = blank;
                          for (qsizetype i = 0; i < values.size(); ++i)
                            row[places[i]] = bounded(values[i]);
                          insertRow(own_, table, row);
                        });
    if (table == table::設定 && rows != 1)
      refuse(u"not one row of settings"_s);
  }

 private:
  /// Rows of one page can share what a file holds once, so the file's size bounds nothing.
  QVariant bounded(const QVariant& value) {
    const qsizetype size = value.typeId() == QMetaType::QByteArray ? value.toByteArray().size()
                           : value.typeId() == QMetaType::QString  ? value.toString().toUtf8().size()
                                                                   : qsizetype(sizeof(qint64));
    all_ += size;
    if (size > largestForeignValue || all_ > largestForeignDatabase)
      refuse(u"a value beyond the bounds"_s);
    return value;
  }

  const Database& foreign_;
  Database& own_;
  qint64 all_ = 0; // bytes
};

void makeEmptyFile(const QString& path) {
  for (const QString& stale : {path, QString(path + u"-journal")})
    QFile::remove(stale);
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly, QFile::ReadOwner | QFile::WriteOwner))
    throw StoreError("cannot make a database");
}

} // namespace

void copyForeignDatabase(const QString& foreign, const QString& own) {
  const QFileInfo file(foreign);
  if (!file.isFile() || file.size() > largestForeignDatabase)
    refuse(u"its size"_s);
  makeEmptyFile(own);
  auto removal = qScopeGuard([&own] { QFile::remove(own); });
  Database from;
  from.open(foreign, Database::Mode::Foreign);
  const QSet<QString> tables = requireOurTablesAlone(from);
  {
    Database to;
    to.open(own);
    // The new file counts only once it is whole.
    to.query(u"PRAGMA journal_mode = MEMORY"_s);
    Transaction transaction(to);
    Copy copy(from, to);
    for (const QString& table : tables)
      copy.take(table);
    transaction.commit();
  }
  removal.dismiss();
}

} // namespace soran
