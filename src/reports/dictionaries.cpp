// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/dictionaries.h"

#include "base/text.h"

namespace soran {

namespace {

void insertFirst(QHash<QString, QString>& table, const QString& key, const QString& value) {
  if (!table.contains(key))
    table.insert(key, value);
}

std::optional<QStringView> find(const QHash<QString, QString>& table, QStringView key) {
  // A borrowed key spares the copy that a look-up by QString would need.
  const auto row = table.constFind(QString::fromRawData(key.data(), key.size()));
  if (row == table.constEnd())
    return std::nullopt;
  return *row;
}

QString withoutBlanks(QString name) {
  return name.remove(u' ').remove(u'\u3000');
}

QStringView beforeBracket(QStringView meaning) {
  const qsizetype bracket = meaning.indexOf(u'(');
  return trimBlanks(bracket < 0 ? meaning : meaning.first(bracket));
}

} // namespace

Dictionaries::Dictionaries(const QList<Airport>& airports, const QList<DictionaryEntry>& abbreviations,
                           const QList<DictionaryEntry>& phrases, QByteArray stations)
    : stations_(std::move(stations)) {
  for (const Airport& row : airports)
    insertFirst(airports_, row.code, withoutBlanks(row.name));
  for (const DictionaryEntry& row : abbreviations) {
    insertFirst(meanings_, row.abbreviation, row.meaning);
    insertFirst(shortMeanings_, row.abbreviation, beforeBracket(row.meaning).toString());
  }
  for (const DictionaryEntry& row : phrases)
    insertFirst(phrases_, row.abbreviation, row.meaning);
}

std::optional<QStringView> Dictionaries::airportName(QStringView code) const {
  return find(airports_, code);
}

std::optional<QString> Dictionaries::stationName(QStringView code) const {
  if (const auto name = airportName(code))
    return name->toString();
  const QByteArray row = '\n' + code.toUtf8() + '\t';
  const qsizetype at = code.isEmpty() ? -1 : stations_.indexOf(row);
  if (at < 0)
    return std::nullopt;
  const qsizetype begin = at + row.size();
  return QString::fromUtf8(stations_.mid(begin, stations_.indexOf('\n', begin) - begin));
}

std::optional<QStringView> Dictionaries::shortMeaning(QStringView code) const {
  return find(shortMeanings_, code);
}

std::optional<QStringView> Dictionaries::phrase(QStringView group) const {
  return find(phrases_, group);
}

QStringView Dictionaries::LookUpAbbreviation(QStringView word) const {
  return find(meanings_, asciiUpper(trimBlanks(word))).value_or(QStringView());
}

QStringView Dictionaries::LookUpPhrase(QStringView word) const {
  return find(phrases_, asciiUpper(trimBlanks(word))).value_or(QStringView());
}

} // namespace soran
