// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/carry_over.h"

#include "store/schema.h"

namespace soran {

using namespace Qt::StringLiterals;

namespace {

void carrySettings(const Tables& live, Database& database) {
  const QString settingsTable = table::設定.toString();
  const QStringList known = database.columns(settingsTable);
  const QStringList& stored = live.byName(table::設定)->columns();
  QStringList assignments;
  QVariantList values;
  for (size_t i = 0; i < settingSpecs.size(); ++i) {
    const QString column = settingSpecs[i].column.toString();
    // A key that the new file no longer has is left behind, and one that is new there keeps its value.
    if (!known.contains(column) || !stored.contains(column))
      continue;
    assignments.append(quotedName(column) + u" = ?");
    values.append(live.settings().record().value(static_cast<SettingIndex>(i)));
  }
  database.execute(u"UPDATE "_s + quotedName(settingsTable) + u" SET " + assignments.join(u", "), values);
}

void carryList(const RowSet& rows, Database& database) {
  if (rows.recordCount() == 0)
    return;
  if (isOptional(rows.table()) && database.columns(rows.table()).isEmpty())
    createTable(database, rows.table());
  const QString name = quotedName(rows.table());
  const QStringList known = database.columns(rows.table());
  QStringList columns;
  QStringList quoted;
  for (const QString& column : rows.columns()) {
    // One of a newer program stays behind.
    if (!known.contains(column))
      continue;
    columns.append(column);
    quoted.append(quotedName(column));
  }
  database.execute(u"DELETE FROM "_s + name);
  const QString insert = u"INSERT INTO "_s + name + u" (" + quoted.join(u", ") + u") VALUES (" +
                         QStringList(quoted.size(), u"?"_s).join(u", ") + u")";
  for (int i = 0; i < rows.recordCount(); ++i) {
    QVariantList values;
    for (const QString& column : columns)
      values.append(rows.valueAt(i, column));
    database.execute(insert, values);
  }
}

} // namespace

void carryOverData(const Tables& live, const QString& newFile) {
  Database database;
  database.open(newFile);
  // The new file counts only once it is whole: a journal on the disk would guard nothing and costs three
  // syncs.
  database.query(u"PRAGMA journal_mode = MEMORY"_s);
  Transaction transaction(database);
  carrySettings(live, database);
  for (const QStringView list :
       {table::飛行場情報, table::自動デコード, table::カンパニー, table::気象略語, table::空港別制限})
    carryList(*live.byName(list), database);
  transaction.commit();
}

} // namespace soran
