// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/batch.h"

#include "cli/batch_job.h"
#include "delivered.h"
#include "store/tables.h"

namespace soran {

using namespace Qt::StringLiterals;

namespace {

/// The tables that a job brings stand for the delivered ones.
struct JobTables {
  QList<Airport> airports;
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

const QList<Airport>& deliveredAirports() {
  static const QList<Airport> rows = delivered::airports();
  return rows;
}

QJsonValue resultOf(const QJsonObject& object) {
  Fields fields(object);
  if (fields.has(u"id"_s))
    fields.any(u"id"_s);
  const QString name = fields.text(u"op"_s);
  const BatchOperation operation = batchOperation(name);
  if (!operation)
    throw InputError(u"unknown op \""_s + name + u'"');

  static const SettingsRecord standard = SettingsRecord::standard(u"+9"_s);
  BatchJob job{std::move(fields), standard, &deliveredAirports()};
  if (job.fields.has(u"settings"_s)) {
    for (const auto& [index, value] : settingValues(job.fields.object(u"settings"_s)))
      job.settings.setValue(index, value);
  }
  JobTables tables;
  if (job.fields.has(u"tables"_s)) {
    const QJsonObject given = job.fields.object(u"tables"_s);
    for (auto i = given.constBegin(); i != given.constEnd(); ++i) {
      if (i.key() != table::飛行場情報)
        throw InputError(u"unknown table \""_s + i.key() + u'"');
      tables.airports = rowsOf<Airport>(i.value(), i.key());
      job.airports = &tables.airports;
    }
  }
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

void runBatch(LineInput& input, QIODevice& output) {
  constexpr qsizetype piece = 1 << 16;
  QByteArray pending;
  while (const std::optional<QByteArray> line = input.next()) {
    pending += answerJob(*line);
    if (pending.size() >= piece || !input.isAtHand()) {
      output.write(pending);
      pending.clear();
    }
  }
  output.write(pending);
}

} // namespace soran
