// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/settings_record.h"

#include "base/text.h"

#include <algorithm>

namespace soran {

template <>
std::optional<bool> SettingsRecord::convert(const QVariant& value) {
  if (value.isNull())
    return std::nullopt;
  if (value.typeId() == QMetaType::Bool)
    return value.toBool();
  return value.toLongLong() != 0;
}

template <>
std::optional<double> SettingsRecord::convert(const QVariant& value) {
  if (value.isNull())
    return std::nullopt;
  if (value.typeId() == QMetaType::QString)
    return leadingNumber(value.toString());
  return value.toDouble();
}

template <>
std::optional<int> SettingsRecord::convert(const QVariant& value) {
  if (value.isNull())
    return std::nullopt;
  if (value.typeId() == QMetaType::QString)
    return leadingInteger(value.toString());
  return value.toInt();
}

template <>
std::optional<Colour> SettingsRecord::convert(const QVariant& value) {
  const std::optional<int> number = convert<int>(value);
  return number ? std::optional(Colour(*number)) : std::nullopt;
}

template <>
std::optional<QString> SettingsRecord::convert(const QVariant& value) {
  if (value.isNull())
    return std::nullopt;
  return value.toString();
}

SettingsRecord SettingsRecord::standard(const QString& computerOffset) {
  SettingsRecord record;
  for (size_t i = 0; i < settingSpecs.size(); ++i) {
    const SettingSpec& spec = settingSpecs[i];
    QVariant& value = record.values_[i];
    if (spec.treatment == Standard::ComputerOffset)
      value = computerOffset;
    else if (spec.type == SettingType::YesNo)
      value = spec.number != 0;
    else if (spec.type == SettingType::Text || spec.type == SettingType::Date)
      value = spec.text.toString();
    else
      value = spec.number;
  }
  return record;
}

ZoneOffset SettingsRecord::zoneOffset() const {
  // A stored text may hold any number; hours are added to this one.
  constexpr int most = 99;
  return {std::clamp(leadingInteger((*this)[key::時差].value_or(QString())), -most, most)};
}

std::optional<SettingIndex> settingByColumn(QStringView column) {
  for (size_t i = 0; i < settingSpecs.size(); ++i) {
    if (settingSpecs[i].column == column)
      return static_cast<SettingIndex>(i);
  }
  return std::nullopt;
}

} // namespace soran
