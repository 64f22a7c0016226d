// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/settings_record.h"

#include <QDateTime>
#include <QJsonArray>
#include <QJsonObject>
#include <optional>
#include <stdexcept>
#include <vector>

namespace soran {

/// What is wrong with a line of input, in words for the one who wrote it.
class InputError : public std::runtime_error {
 public:
  explicit InputError(const QString& fault) : std::runtime_error(fault.toStdString()), fault_(fault) {}
  const QString& fault() const { return fault_; }

 private:
  QString fault_;
};

/// The object that a line of UTF-8 holds. Throws InputError where it holds none.
QJsonObject objectOf(const QByteArray& line);

/// Reads the fields of an object strictly: a field that is missing or of another type, and at the end a field
/// that nobody asked for, throws InputError.
class Fields {
 public:
  explicit Fields(QJsonObject object) : object_(std::move(object)), taken_(size_t(object_.size())) {}

  bool has(const QString& name) const { return object_.contains(name); }
  QString text(const QString& name);
  QString textOr(const QString& name, const QString& otherwise);
  bool flag(const QString& name);
  /// A whole number that fits an int.
  int integer(const QString& name);
  std::optional<int> integerIfThere(const QString& name);
  QJsonObject object(const QString& name);
  QJsonArray array(const QString& name);
  QStringList texts(const QString& name);
  /// A calendar date, "2026-11-24".
  QDate date(const QString& name);
  /// A local date and time without zone, "2026-11-24T14:20:00".
  QDateTime localTime(const QString& name);
  QJsonValue any(const QString& name);

  /// Throws where a field is left that nobody asked for.
  void finish() const;

 private:
  QJsonValue take(const QString& name);

  QJsonObject object_;
  std::vector<bool> taken_; ///< of each field, in the order of the object
};

/// The whole number of a value; throws InputError, naming `name`, where it is none.
int wholeNumber(const QJsonValue& value, const QString& name);

/// Throws InputError, naming `name`, where a number does not fit 16 bits, as the whole numbers that are
/// stored do.
void requireShort(int number, QStringView name);

/// The value of a setting as it is stored. Throws InputError where its type is another one.
QVariant settingValue(SettingIndex index, const QJsonValue& value);

/// Sets the keys of 設定 in the object over the record. Throws InputError for an unknown key or a wrong type.
std::vector<std::pair<SettingIndex, QVariant>> settingValues(const QJsonObject& object);

/// A stored value as JSON: yes/no, number, text.
QJsonValue settingJson(SettingIndex index, const QVariant& value);

/// Rows of texts, each with `columns` of them.
QList<QStringList> textRows(const QJsonArray& rows, const QString& name, int columns);

/// Runs as a list of [start, length, colour, bold].
QJsonArray runsJson(const std::vector<AttributeRun>& runs);

/// The object as one line of UTF-8, with its line end.
QByteArray lineOf(const QJsonObject& object);

} // namespace soran
