// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Makes the delivered database from the text files of a folder: make-database TABLES_DIR PICTURES_DIR OUTPUT.

#include "store/schema.h"
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

void makeList(Database& database, QStringView list, const QString& folder) {
  createTable(database, list);
  int rank = 0;
  for (const auto& [first, second] : rowsOf(folder + u'/' + list + u".tsv"))
    insertRow(database, list, {++rank, first, second});
}

void makePictures(Database& database, const QString& folder, const QString& pictures) {
  createTable(database, table::データ);
  int rank = 0;
  for (const auto& [item, file] : rowsOf(folder + u'/' + table::データ + u".tsv")) {
    const QByteArray bytes = file.isEmpty() ? QByteArray() : contents(pictures + u'/' + file);
    insertRow(database, table::データ, {++rank, item, bytes});
  }
}

void makeSettings(Database& database) {
  createTable(database, table::設定);
  insertRow(database, table::設定, standardRow());
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
    for (const QStringView list :
         {table::飛行場情報, table::自動デコード, table::カンパニー, table::気象略語, table::日本語解析})
      makeList(database, list, arguments[1]);
    makePictures(database, arguments[1], arguments[2]);
    makeSettings(database);
    transaction.commit();
  } catch (const StoreError& e) {
    stop(QString::fromUtf8(e.what()));
  }
  return 0;
}
