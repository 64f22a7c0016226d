// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/json_fields.h"

#include "base/foreign_text.h"
#include "base/text.h"
#include "base/utc.h"

#include <QJsonDocument>
#include <algorithm>
#include <cmath>
#include <limits>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

/// A date of four, two and two figures, read without the machinery of formats; else none.
QDate plainDate(QStringView text) {
  if (text.size() != 10 || text[4] != u'-' || text[7] != u'-')
    return {};
  const auto number = [text](qsizetype from, qsizetype to) {
    int value = 0;
    for (qsizetype i = from; i < to; ++i) {
      if (!isAsciiDigit(text[i]))
        return 0;
      value = value * 10 + text[i].digitValue();
    }
    return value;
  };
  return {number(0, 4), number(5, 7), number(8, 10)};
}

/// The JSON with each character that a terminal obeys, or that misleads who reads it there, as \uXXXX. Halves
/// of a pair are escaped in it already.
QByteArray escaped(QByteArray json) {
  const auto isPlain = [](char c) { return c >= ' ' && c <= '~'; };
  if (std::all_of(json.cbegin(), json.cend(), isPlain))
    return json;
  const QList<uint> characters = QString::fromUtf8(json).toUcs4();
  if (std::none_of(characters.begin(), characters.end(), isMisleading))
    return json;
  QString text;
  for (const uint character : characters) {
    const auto units = QChar::fromUcs4(character);
    if (!isMisleading(character))
      text += units;
    else
      for (const char16_t unit : units)
        text += u"\\u%1"_s.arg(uint(unit), 4, 16, QLatin1Char('0'));
  }
  return text.toUtf8();
}

} // namespace

QJsonObject objectOf(const QByteArray& line) {
  QJsonParseError error{};
  const QJsonDocument document = QJsonDocument::fromJson(line, &error);
  if (error.error != QJsonParseError::NoError)
    throw InputError(u"not JSON: "_s + error.errorString());
  if (!document.isObject())
    throw InputError(u"not a JSON object"_s);
  return document.object();
}

QJsonValue Fields::take(const QString& name) {
  const auto found = object_.constFind(name);
  if (found == object_.constEnd())
    throw InputError(u"missing field \""_s + name + u'"');
  taken_[size_t(found - object_.constBegin())] = true;
  return *found;
}

QJsonValue Fields::any(const QString& name) {
  return take(name);
}

QString Fields::text(const QString& name) {
  const QJsonValue value = take(name);
  if (!value.isString())
    throw InputError(u"field \""_s + name + u"\" is not a text");
  return value.toString();
}

QString Fields::textOr(const QString& name, const QString& otherwise) {
  return has(name) ? text(name) : otherwise;
}

bool Fields::flag(const QString& name) {
  const QJsonValue value = take(name);
  if (!value.isBool())
    throw InputError(u"field \""_s + name + u"\" is not true or false");
  return value.toBool();
}

int wholeNumber(const QJsonValue& value, const QString& name) {
  const double number = value.toDouble(std::numeric_limits<double>::quiet_NaN());
  if (!(number >= std::numeric_limits<int>::min() && number <= std::numeric_limits<int>::max()) ||
      number != std::floor(number))
    throw InputError(u"\""_s + name + u"\" is not a whole number");
  return static_cast<int>(number);
}

void requireShort(int number, QStringView name) {
  if (number != static_cast<qint16>(number))
    throw InputError(u"\""_s + name + u"\" is beyond 16 bits");
}

int Fields::integer(const QString& name) {
  return wholeNumber(take(name), name);
}

std::optional<int> Fields::integerIfThere(const QString& name) {
  if (!has(name))
    return std::nullopt;
  return integer(name);
}

QJsonObject Fields::object(const QString& name) {
  const QJsonValue value = take(name);
  if (!value.isObject())
    throw InputError(u"field \""_s + name + u"\" is not an object");
  return value.toObject();
}

QJsonArray Fields::array(const QString& name) {
  const QJsonValue value = take(name);
  if (!value.isArray())
    throw InputError(u"field \""_s + name + u"\" is not a list");
  return value.toArray();
}

QStringList Fields::texts(const QString& name) {
  QStringList list;
  for (const auto& value : array(name)) {
    if (!value.isString())
      throw InputError(u"field \""_s + name + u"\" is not a list of texts");
    list.append(value.toString());
  }
  return list;
}

QDate Fields::date(const QString& name) {
  const QString value = text(name);
  QDate date = plainDate(value);
  if (!date.isValid())
    date = QDate::fromString(value, u"yyyy-MM-dd"_s);
  if (!date.isValid())
    throw InputError(u"field \""_s + name + u"\" is not a date such as 2026-11-24");
  return date;
}

QDateTime Fields::localTime(const QString& name) {
  const QString value = text(name);
  constexpr qsizetype separator = 10;
  const QDate day = QDate::fromString(value.left(separator), u"yyyy-MM-dd"_s);
  const QTime time = QTime::fromString(value.mid(separator + 1), u"HH:mm:ss"_s);
  if (!day.isValid() || !time.isValid() || value[separator] != u'T')
    throw InputError(u"field \""_s + name + u"\" is not a local time such as 2026-11-24T14:20:00");
  // In UTC, because the zone of this machine may leave hours out.
  return inUtc(day, time);
}

void Fields::finish() const {
  for (auto i = object_.constBegin(); i != object_.constEnd(); ++i) {
    if (!taken_[size_t(i - object_.constBegin())])
      throw InputError(u"unknown field \""_s + i.key() + u'"');
  }
}

QVariant settingValue(SettingIndex index, const QJsonValue& value) {
  const SettingSpec& spec = settingSpecs[static_cast<size_t>(index)];
  const QString name = spec.column.toString();
  const auto wrong = [&name](QStringView wanted) {
    return InputError(u"\""_s + name + u"\" is not " + wanted);
  };
  switch (spec.type) {
  case SettingType::YesNo:
    if (!value.isBool())
      throw wrong(u"true or false");
    return value.toBool();
  case SettingType::Integer:
  case SettingType::Rgb:
    return wholeNumber(value, name);
  case SettingType::Version:
    if (!value.isDouble() && !value.isString())
      throw wrong(u"a version");
    return value.toVariant();
  case SettingType::Text:
  case SettingType::Date:
    break;
  }
  if (!value.isString())
    throw wrong(u"a text");
  return value.toString();
}

std::vector<std::pair<SettingIndex, QVariant>> settingValues(const QJsonObject& object) {
  std::vector<std::pair<SettingIndex, QVariant>> values;
  for (auto i = object.constBegin(); i != object.constEnd(); ++i) {
    const std::optional<SettingIndex> index = settingByColumn(i.key());
    if (!index)
      throw InputError(u"unknown setting \""_s + i.key() + u'"');
    values.emplace_back(*index, settingValue(*index, i.value()));
  }
  return values;
}

QJsonValue settingJson(SettingIndex index, const QVariant& value) {
  if (value.isNull())
    return QJsonValue::Null;
  if (settingSpecs[static_cast<size_t>(index)].type == SettingType::YesNo)
    return value.typeId() == QMetaType::Bool ? value.toBool() : value.toLongLong() != 0;
  return QJsonValue::fromVariant(value);
}

QList<QStringList> textRows(const QJsonArray& rows, const QString& name, int columns) {
  QList<QStringList> list;
  for (const auto& row : rows) {
    QStringList fields;
    for (const auto& field : row.toArray()) {
      if (field.isString())
        fields.append(field.toString());
    }
    if (!row.isArray() || fields.size() != columns || row.toArray().size() != columns)
      throw InputError(u"a row of \""_s + name + u"\" is not a list of " + QString::number(columns) +
                       u" texts");
    list.append(fields);
  }
  return list;
}

QJsonArray runsJson(const std::vector<AttributeRun>& runs) {
  QJsonArray list;
  for (const AttributeRun& run : runs)
    list.append(QJsonArray{run.start, run.length, qint32(run.colour), run.bold});
  return list;
}

QByteArray lineOf(const QJsonObject& object) {
  return escaped(QJsonDocument(object).toJson(QJsonDocument::Compact)) + '\n';
}

} // namespace soran
