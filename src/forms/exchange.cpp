// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/exchange.h"

#include "base/plain_file.h"
#include "base/text.h"
#include "forms/list_rules.h"
#include "reports/airport_limits.h"
#include "store/cipher.h"
#include "store/foreign_database.h"
#include "store/json_fields.h"

#include <QFileInfo>
#include <QJsonDocument>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView formatName = u"SORAN data";
constexpr int formatVersion = 1;
constexpr std::array userLists = {table::飛行場情報, table::自動デコード, table::カンパニー, table::気象略語,
                                  table::日本語解析};

bool isUsersOwn(SettingIndex index) {
  const SettingType type = settingSpecs[static_cast<size_t>(index)].type;
  return type != SettingType::Version && type != SettingType::Date && index != SettingIndex::BASEurl &&
         index != SettingIndex::起動回数;
}

QJsonArray rowsJson(const RowSet& rows) {
  QJsonArray list;
  const QStringList columns = listColumns(rows.table());
  for (int i = 0; i < rows.recordCount(); ++i)
    list.append(QJsonArray{rows.valueAt(i, columns.value(1)).toString(),
                           rows.valueAt(i, columns.value(2)).toString()});
  return list;
}

/// What an import is about to write, checked.
struct Import {
  std::vector<std::pair<QStringView, std::vector<EditedRow>>> lists;
  std::optional<QList<AirportLimits>> limits;
  std::vector<std::pair<SettingIndex, QVariant>> settings;
};

std::optional<QList<AirportLimits>> limitsIn(Fields& lists) {
  const QString name = table::空港別制限.toString();
  if (!lists.has(name))
    return std::nullopt;
  const QJsonArray rows = lists.array(name);
  if (rows.size() > mostForeignRows)
    throw InputError(u"too many rows in "_s + name);
  return airportLimitsOf(rows);
}

Import checkedImport(const QByteArray& json) {
  Fields fields(objectOf(json));
  if (fields.text(u"format"_s) != formatName || fields.integer(u"version"_s) != formatVersion)
    throw InputError(u"not an export of this program"_s);
  Import import;
  Fields lists(fields.object(u"tables"_s));
  for (const QStringView list : userLists) {
    const QString name = list.toString();
    if (!lists.has(name))
      continue;
    std::vector<EditedRow> rows;
    const QList<QStringList> given = textRows(lists.array(name), name, 2);
    if (given.size() > mostForeignRows)
      throw InputError(u"too many rows in "_s + name);
    for (const QStringList& row : given) {
      if (row[0].toUtf8().size() > largestForeignValue || row[1].toUtf8().size() > largestForeignValue)
        throw InputError(u"too long a text in "_s + name);
      if (list == table::カンパニー && !isCodeList(trimBlanks(row[1])))
        throw InputError(u"not a list of codes: "_s + row[1]);
      rows.emplace_back(row[0], row[1]);
    }
    import.lists.emplace_back(list, std::move(rows));
  }
  import.limits = limitsIn(lists);
  lists.finish();
  import.settings = settingValues(fields.object(u"settings"_s));
  fields.finish();
  for (const auto& [index, value] : import.settings) {
    const SettingSpec& spec = settingSpecs[static_cast<size_t>(index)];
    if (!isUsersOwn(index))
      throw InputError(u"a setting of one installation: "_s + spec.column);
    if (spec.type == SettingType::Integer)
      requireShort(value.toInt(), spec.column);
  }
  return import;
}

} // namespace

QByteArray exportedData(const Tables& tables) {
  QJsonObject lists;
  for (const QStringView list : userLists)
    lists.insert(list.toString(), rowsJson(*tables.byName(list)));
  QJsonArray limits;
  for (const AirportLimits& row : tables.limitRows())
    limits.append(limitsJson(row));
  // A program of before knows no such list.
  if (!limits.isEmpty())
    lists.insert(table::空港別制限.toString(), limits);
  QJsonObject settings;
  for (size_t i = 0; i < settingSpecs.size(); ++i) {
    const auto index = static_cast<SettingIndex>(i);
    const QVariant& value = tables.settings().record().value(index);
    if (isUsersOwn(index) && !value.isNull())
      settings.insert(settingSpecs[i].column.toString(), settingJson(index, value));
  }
  return QJsonDocument(QJsonObject{{u"format"_s, formatName.toString()},
                                   {u"version"_s, formatVersion},
                                   {u"tables"_s, lists},
                                   {u"settings"_s, settings}})
      .toJson(QJsonDocument::Indented);
}

void importData(Tables& tables, const QByteArray& json) {
  const Import import = checkedImport(json);
  tables.inOneTransaction([&] {
    for (const auto& [list, rows] : import.lists) {
      if (list == table::自動デコード)
        restoreAutoList(tables, rows);
      else
        storeList(tables, list, rows);
    }
    if (import.limits)
      storeLimits(tables, *import.limits);
    for (const auto& [index, value] : import.settings)
      tables.settings().setValue(index, value);
    tables.settings().update();
  });
}

void importFile(Tables& tables, const QString& path) {
  const QString name = QFileInfo(path).fileName();
  const FileBytes file = readPlainFile(path, largestListFile, Links::Followed);
  if (!file.ok())
    throw InputError(name + u": " + faultText(file.fault, largestListFile));
  if (cipher::isDatabase(file.bytes))
    throw InputError(name + u": データベースは読み込めません。書き出したデータのファイルを選択してください");
  importData(tables, file.bytes);
}

} // namespace soran
