// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/list_rules.h"

#include "base/text.h"
#include "reports/airport_limits.h"

namespace soran {

using namespace Qt::StringLiterals;

namespace {

QString trimmedText(QStringView text) {
  return trimBlanks(text).toString();
}
QString upperText(QStringView text) {
  return asciiUpper(trimBlanks(text));
}

void rewriteAutoList(Tables& tables, const std::vector<QVariantList>& stored) {
  tables.rewrite(table::自動デコード, stored);
  if (stored.empty())
    tables.settings().store(key::自動デコード有効, false);
}

} // namespace

void storeAirports(Tables& tables, const std::vector<EditedRow>& rows) {
  std::vector<QVariantList> stored;
  for (const auto& [code, name] : rows) {
    if (!trimmedText(code).isEmpty())
      stored.push_back({int(stored.size()) + 1, upperText(code), trimmedText(name)});
  }
  tables.rewrite(table::飛行場情報, stored);
}

void storeAutoList(Tables& tables, const std::vector<EditedRow>& rows) {
  std::vector<QVariantList> stored;
  for (const auto& [code, name] : rows) {
    // The editor shows a row as one text and cuts it apart again by position.
    if (trimmedText(code).isEmpty())
      continue;
    const QString shown = u' ' + upperText(code) + u"   " + trimmedText(name);
    stored.push_back(
        {int(stored.size()) + 1, trimmedText(mid1(shown, 2, 4)), trimmedText(mid1(shown, 7, 99))});
  }
  rewriteAutoList(tables, stored);
}

void restoreAutoList(Tables& tables, const std::vector<EditedRow>& rows) {
  constexpr qsizetype codeLength = 4;
  constexpr qsizetype nameLength = 99;
  std::vector<QVariantList> stored;
  for (const auto& [code, name] : rows) {
    const QString cut = upperText(code).left(codeLength);
    if (!cut.isEmpty())
      stored.push_back(
          {int(stored.size()) + 1, trimmedText(cut), trimmedText(trimmedText(name).left(nameLength))});
  }
  rewriteAutoList(tables, stored);
}

void storeGroups(Tables& tables, const std::vector<EditedRow>& rows) {
  std::vector<QVariantList> stored;
  for (size_t i = 0; i < rows.size(); ++i) {
    const QString id = upperText(rows[i].first);
    const QString route = upperText(rows[i].second);
    if (!id.isEmpty() && !route.isEmpty())
      stored.push_back({int(i) + 1, id, route});
  }
  tables.rewrite(table::カンパニー, stored);
}

void storeDictionary(Tables& tables, QStringView table, const std::vector<EditedRow>& rows) {
  std::vector<QVariantList> stored;
  for (const auto& [word, meaning] : rows) {
    // A meaning whose key was emptied waits for another one.
    if (!trimmedText(word).isEmpty() || !trimmedText(meaning).isEmpty())
      stored.push_back({int(stored.size()) + 1, upperText(word), trimmedText(meaning)});
  }
  tables.rewrite(table, stored);
}

void storeLimits(Tables& tables, const QList<AirportLimits>& rows) {
  std::vector<QVariantList> stored;
  for (const AirportLimits& row : rows)
    stored.push_back(storedRow(row, int(stored.size()) + 1));
  tables.rewrite(table::空港別制限, stored);
}

bool storeList(Tables& tables, QStringView table, const std::vector<EditedRow>& rows) {
  if (table == table::飛行場情報)
    storeAirports(tables, rows);
  else if (table == table::自動デコード)
    storeAutoList(tables, rows);
  else if (table == table::カンパニー)
    storeGroups(tables, rows);
  else if (table == table::気象略語 || table == table::日本語解析)
    storeDictionary(tables, table, rows);
  else
    return false;
  return true;
}

} // namespace soran
