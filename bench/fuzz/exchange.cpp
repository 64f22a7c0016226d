// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A file to import: it is taken over whole or not at all, and what is exported can be imported.
#include "forms/exchange.h"

#include "delivered.h"
#include "store/json_fields.h"
#include "support/own_folder.h"
#include "targets.h"

namespace soran::fuzz {

namespace {

/// The delivered database with empty lists, so that a run is quick.
class Desk {
 public:
  Desk() {
    const QString path = directory_.filePath(QStringLiteral("soran.mdb"));
    writeWhole(path, delivered::file(QStringLiteral("update/data/soran.mdb")));
    tables.openAllTables(path);
    clear();
    initial_ = exportedData(tables);
  }
  void clear() {
    for (const QStringView list :
         {table::飛行場情報, table::自動デコード, table::カンパニー, table::気象略語, table::日本語解析})
      tables.rewrite(list, {});
    if (!initial_.isEmpty())
      importData(tables, initial_);
  }
  Tables tables;

 private:
  OwnFolder directory_;
  QByteArray initial_;
};

} // namespace

void exchange(QByteArrayView input) {
  static Desk office;
  static Desk desk;
  const QByteArray before = exportedData(office.tables);
  try {
    importData(office.tables, input.toByteArray());
  } catch (const InputError&) {
    require(exportedData(office.tables) == before, "what is refused changes nothing");
    return;
  }
  const QByteArray exported = exportedData(office.tables);
  importData(desk.tables, exported);
  require(exportedData(desk.tables) == exported, "an import gives what was exported");
  office.clear();
  desk.clear();
}

} // namespace soran::fuzz
