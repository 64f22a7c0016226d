// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/schema.h"

#include "store/tables.h"

#include <optional>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

QString declaredType(SettingType type) {
  switch (type) {
  case SettingType::Text:
  case SettingType::Date:
    return u" TEXT"_s;
  case SettingType::Version:
    return u" "_s; // kept as written, text or number
  default:
    return u" INTEGER"_s;
  }
}

/// The columns of a table, each quoted and with its type.
QStringList declarations(QStringView table) {
  QStringList columns;
  if (table == table::設定) {
    for (const SettingSpec& spec : settingSpecs)
      columns.append(quotedName(spec.column) + declaredType(spec.type));
    return columns;
  }
  for (const QString& column : columnsOf(table))
    columns.append(quotedName(column));
  columns[0] += u" INTEGER";
  columns[1] += u" TEXT";
  if (table == table::空港別制限) {
    for (qsizetype i = 2; i < columns.size() - 1; ++i)
      columns[i] += u" INTEGER";
    columns.back() += u" TEXT";
    return columns;
  }
  columns[2] += table == table::データ ? u" BLOB" : u" TEXT";
  return columns;
}

} // namespace

QStringList columnsOf(QStringView table) {
  if (table == table::データ)
    return {u"順位"_s, u"名称"_s, u"データ"_s};
  if (table != table::設定)
    return listColumns(table);
  QStringList columns;
  for (const SettingSpec& spec : settingSpecs)
    columns.append(spec.column.toString());
  return columns;
}

void createTable(Database& database, QStringView table) {
  database.execute(u"CREATE TABLE "_s + quotedName(table) + u" (" + declarations(table).join(u", ") + u")");
}

void addMissingSettings(Database& database) {
  const QStringList there = database.columns(table::設定.toString());
  const QStringList declared = declarations(table::設定);
  const QVariantList standard = standardRow();
  std::optional<Transaction> transaction;
  for (size_t i = 0; i < settingSpecs.size(); ++i) {
    const QString column = settingSpecs[i].column.toString();
    if (there.isEmpty() || there.contains(column))
      continue;
    if (!transaction)
      transaction.emplace(database);
    database.execute(u"ALTER TABLE 設定 ADD COLUMN "_s + declared[qsizetype(i)]);
    database.execute(u"UPDATE 設定 SET "_s + quotedName(column) + u" = ?"_s, {standard[qsizetype(i)]});
  }
  if (transaction)
    transaction->commit();
}

void insertRow(Database& database, QStringView table, const QVariantList& row) {
  database.execute(u"INSERT INTO "_s + quotedName(table) + u" VALUES (" +
                       QStringList(row.size(), u"?"_s).join(u", ") + u")",
                   row);
}

QVariantList standardRow() {
  const SettingsRecord standard = SettingsRecord::standard(u"+9"_s);
  QVariantList values;
  for (size_t i = 0; i < settingSpecs.size(); ++i)
    values.append(standard.value(static_cast<SettingIndex>(i)));
  return values;
}

} // namespace soran
