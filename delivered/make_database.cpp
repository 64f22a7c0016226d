// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Makes the delivered database from the text files of a folder: make-database TABLES_DIR PICTURES_DIR OUTPUT.

#include "store/tables.h"

#include <QCoreApplication>
#include <QFile>
#include <QTextStream>

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

[[noreturn]] void stop(const QString& why) {
  QTextStream(stderr) << "make-database: " << why << Qt::endl;
  std::exit(1);
}

QByteArray contents(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly))
    stop(u"cannot read "_s + path);
  return file.readAll();
}

/// The rows of a text file: two fields a line, tab between them; lines that begin with # are comments.
std::vector<std::pair<QString, QString>> rowsOf(const QString& path) {
  std::vector<std::pair<QString, QString>> rows;
  const QString text = QString::fromUtf8(contents(path));
  for (const QString& line : text.split(u'\n', Qt::SkipEmptyParts)) {
    if (line.startsWith(u"# "))
      continue;
    const QStringList fields = line.split(u'\t');
    if (fields.size() != 2 || fields[0].isEmpty())
      stop(path + u": bad line: "_s + line);
    rows.emplace_back(fields[0], fields[1]);
  }
  return rows;
}

struct ListTable {
  QStringView name;
  QStringView key;
  QStringView value;
};
constexpr ListTable lists[] = {
    {table::飛行場情報, u"ICAOコード", u"飛行場名"},
    {table::自動デコード, u"ICAOコード", u"飛行場名"},
    {table::カンパニー, u"id", u"route"},
    {table::気象略語, u"略語", u"意味"},
    {table::日本語解析, u"略語", u"意味"},
};

void makeList(Database& database, const ListTable& list, const QString& folder) {
  const QString name = quotedName(list.name);
  database.execute(u"CREATE TABLE "_s + name + u" (\"順位\" INTEGER, " + quotedName(list.key) + u" TEXT, " +
                   quotedName(list.value) + u" TEXT)");
  int rank = 0;
  for (const auto& [first, second] : rowsOf(folder + u'/' + list.name + u".tsv"))
    database.execute(u"INSERT INTO "_s + name + u" VALUES (?, ?, ?)", {++rank, first, second});
}

void makePictures(Database& database, const QString& folder, const QString& pictures) {
  const QString name = quotedName(table::データ);
  database.execute(u"CREATE TABLE "_s + name + u" (\"順位\" INTEGER, \"名称\" TEXT, \"データ\" BLOB)");
  int rank = 0;
  for (const auto& [item, file] : rowsOf(folder + u'/' + table::データ + u".tsv")) {
    const QByteArray bytes = file.isEmpty() ? QByteArray() : contents(pictures + u'/' + file);
    database.execute(u"INSERT INTO "_s + name + u" VALUES (?, ?, ?)", {++rank, item, bytes});
  }
}

QString declaredType(SettingType type) {
  switch (type) {
  case SettingType::Text:
  case SettingType::Date:
    return u"TEXT"_s;
  case SettingType::Version:
    return QString(); // kept as written, text or number
  default:
    return u"INTEGER"_s;
  }
}

void makeSettings(Database& database) {
  QStringList columns;
  QStringList marks;
  QVariantList values;
  const SettingsRecord standard = SettingsRecord::standard(u"+9"_s);
  for (size_t i = 0; i < settingSpecs.size(); ++i) {
    columns.append(quotedName(settingSpecs[i].column) + u' ' + declaredType(settingSpecs[i].type));
    marks.append(u"?"_s);
    values.append(standard.value(static_cast<SettingIndex>(i)));
  }
  const QString name = quotedName(table::設定);
  database.execute(u"CREATE TABLE "_s + name + u" (" + columns.join(u", ") + u")");
  database.execute(u"INSERT INTO "_s + name + u" VALUES (" + marks.join(u", ") + u")", values);
}

} // namespace

int main(int argc, char** argv) {
  QCoreApplication app(argc, argv);
  const QStringList arguments = QCoreApplication::arguments();
  if (arguments.size() != 4)
    stop(u"usage: make-database TABLES_DIR PICTURES_DIR OUTPUT"_s);
  try {
    QFile::remove(arguments[3]);
    Database database;
    database.open(arguments[3], Database::Mode::Create);
    Transaction transaction(database);
    for (const ListTable& list : lists)
      makeList(database, list, arguments[1]);
    makePictures(database, arguments[1], arguments[2]);
    makeSettings(database);
    transaction.commit();
  } catch (const StoreError& e) {
    stop(QString::fromUtf8(e.what()));
  }
  return 0;
}
