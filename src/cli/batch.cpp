// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/batch.h"

#include "cli/batch_job.h"
#include "delivered.h"
#include "reports/airport_limits.h"
#include "store/tables.h"

namespace soran {

using namespace Qt::StringLiterals;

namespace {

/// The rows that jobs read, and the look-up tables made from them.
struct JobTables {
  JobTables(QList<Airport> airportRows, const QList<DictionaryEntry>& abbreviations,
            const QList<DictionaryEntry>& phrases)
      : airports(std::move(airportRows)),
        dictionaries(airports, abbreviations, phrases, delivered::stations()) {}
  QList<Airport> airports;
  Dictionaries dictionaries;
};

template <class Row>
QList<Row> rowsOf(const QJsonValue& value, const QString& name) {
  if (!value.isArray())
    throw InputError(u"\""_s + name + u"\" is not a list of rows");
  QList<Row> rows;
  for (const QStringList& row : textRows(value.toArray(), name, 2))
    rows.append({row[0], row[1]});
  return rows;
}

const JobTables& deliveredTables() {
  static const JobTables tables(delivered::airports(), delivered::abbreviations(), delivered::phrases());
  return tables;
}

/// A table given stands for the whole table; one not given holds the delivered rows.
JobTables tablesOf(const QJsonObject& given) {
  QList<Airport> airports = delivered::airports();
  QList<DictionaryEntry> abbreviations = delivered::abbreviations();
  QList<DictionaryEntry> phrases = delivered::phrases();
  for (auto i = given.constBegin(); i != given.constEnd(); ++i) {
    if (i.key() == table::飛行場情報)
      airports = rowsOf<Airport>(i.value(), i.key());
    else if (i.key() == table::気象略語)
      abbreviations = rowsOf<DictionaryEntry>(i.value(), i.key());
    else if (i.key() == table::日本語解析)
      phrases = rowsOf<DictionaryEntry>(i.value(), i.key());
    else
      throw InputError(u"unknown table \""_s + i.key() + u'"');
  }
  return {std::move(airports), abbreviations, phrases};
}

/// The settings of a job that names none: results that were recorded before there was 規約読み stay as they
/// are.
SettingsRecord jobSettings() {
  SettingsRecord settings = SettingsRecord::standard(u"+9"_s);
  settings.set(key::規約読み, false);
  return settings;
}

/// Takes the limits of airports out of the settings of a job, where they are a list beside the keys.
QList<AirportLimits> takeLimits(QJsonObject& settings) {
  const QString name = table::空港別制限.toString();
  if (!settings.contains(name))
    return {};
  const QJsonValue rows = settings.take(name);
  if (!rows.isArray())
    throw InputError(u"\""_s + name + u"\" is not a list");
  return airportLimitsOf(rows.toArray());
}

QJsonValue resultOf(const QJsonObject& object) {
  Fields fields(object);
  if (fields.has(u"id"_s))
    fields.any(u"id"_s);
  const QString name = fields.text(u"op"_s);
  const BatchOperation operation = batchOperation(name);
  if (!operation)
    throw InputError(u"unknown op \""_s + name + u'"');

  static const SettingsRecord standard = jobSettings();
  std::optional<JobTables> ownTables;
  if (fields.has(u"tables"_s))
    ownTables.emplace(tablesOf(fields.object(u"tables"_s)));
  const JobTables& tables = ownTables ? *ownTables : deliveredTables();
  std::optional<SettingsRecord> ownSettings;
  QList<AirportLimits> limits;
  if (fields.has(u"settings"_s)) {
    QJsonObject given = fields.object(u"settings"_s);
    limits = takeLimits(given);
    ownSettings = standard;
    for (const auto& [index, value] : settingValues(given))
      ownSettings->setValue(index, value);
  }
  BatchJob job{std::move(fields), ownSettings ? *ownSettings : standard, &tables.airports,
               &tables.dictionaries, std::move(limits)};
  return operation(job);
}

} // namespace

QByteArray answerJob(const QByteArray& line) {
  QJsonObject answer;
  try {
    const QJsonObject object = objectOf(line);
    if (const auto id = object.constFind(u"id"_s); id != object.constEnd())
      answer.insert(u"id"_s, *id);
    answer.insert(u"result"_s, resultOf(object));
  } catch (const InputError& e) {
    answer.insert(u"error"_s, e.fault());
  }
  return lineOf(answer);
}

bool runBatch(LineInput& input, QIODevice& output) {
  constexpr qsizetype piece = 1 << 16;
  QByteArray pending;
  while (const std::optional<QByteArray> line = input.next()) {
    pending += answerJob(*line);
    if (pending.size() >= piece || !input.isAtHand()) {
      if (output.write(pending) != pending.size())
        return false;
      pending.clear();
    }
  }
  return output.write(pending) == pending.size();
}

} // namespace soran
