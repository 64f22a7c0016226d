// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "delivered.h"

#include "store/tables.h"

#include <QFile>

namespace soran::delivered {

using namespace Qt::StringLiterals;

namespace {

template <class Row>
QList<Row> rowsOf(QStringView table) {
  QList<Row> rows;
  const QString text = QString::fromUtf8(file(u"tables/"_s + table + u".tsv"));
  for (const QStringView line : QStringView(text).split(u'\n')) {
    const qsizetype tab = line.indexOf(u'\t');
    if (tab > 0 && !line.startsWith(u"# "))
      rows.append({line.first(tab).toString(), line.sliced(tab + 1).toString()});
  }
  return rows;
}

} // namespace

QString updateAddress() {
  return u"qrc:/delivered/update"_s;
}

QByteArray file(const QString& path) {
  QFile resource(u":/delivered/"_s + path);
  return resource.open(QIODevice::ReadOnly) ? resource.readAll() : QByteArray();
}

QByteArray stations() {
  return file(u"stations.tsv"_s);
}

QByteArray runways() {
  return file(u"runways.tsv"_s);
}

QList<Airport> airports() {
  return rowsOf<Airport>(table::飛行場情報);
}
QList<DictionaryEntry> abbreviations() {
  return rowsOf<DictionaryEntry>(table::気象略語);
}
QList<DictionaryEntry> phrases() {
  return rowsOf<DictionaryEntry>(table::日本語解析);
}

} // namespace soran::delivered
