// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/zone_offset.h"
#include "store/settings_keys.h"

#include <QVariant>
#include <array>
#include <optional>

namespace soran {

/// A value as the table holds it: a colour is a number there.
template <SettingType type>
QVariant storedForm(const SettingValue<type>& value) {
  if constexpr (type == SettingType::Rgb)
    return static_cast<int>(value);
  else
    return QVariant::fromValue(value);
}

/// The values of all settings as a plain value, without a database behind it.
///
/// A value that is missing or null is empty and equals neither true nor false: `record[key::PAD表示] == true`
/// is the test that counts. A number that is missing makes every comparison with a limit false for those who
/// test the optional first.
class SettingsRecord {
 public:
  /// The standard values; `computerOffset` is that of 時差 ("+9"). The keys that the standard values do not
  /// touch are 0 or empty.
  static SettingsRecord standard(const QString& computerOffset);

  template <SettingType type>
  std::optional<SettingValue<type>> operator[](SettingKey<type> setting) const {
    return convert<SettingValue<type>>(values_[static_cast<size_t>(setting.index)]);
  }

  template <SettingType type>
  void set(SettingKey<type> setting, const SettingValue<type>& value) {
    values_[static_cast<size_t>(setting.index)] = storedForm<type>(value);
  }

  /// The value as it is stored, null where it is missing.
  const QVariant& value(SettingIndex index) const { return values_[static_cast<size_t>(index)]; }
  void setValue(SettingIndex index, const QVariant& value) { values_[static_cast<size_t>(index)] = value; }

  /// 時差: "+9" is 9 hours, "±0" is 0. At most 99 either way.
  ZoneOffset zoneOffset() const;

 private:
  template <class T>
  static std::optional<T> convert(const QVariant& value);

  std::array<QVariant, settingSpecs.size()> values_;
};

template <>
std::optional<bool> SettingsRecord::convert(const QVariant& value);
template <>
std::optional<int> SettingsRecord::convert(const QVariant& value);
template <>
std::optional<Colour> SettingsRecord::convert(const QVariant& value);
template <>
std::optional<double> SettingsRecord::convert(const QVariant& value);
template <>
std::optional<QString> SettingsRecord::convert(const QVariant& value);

/// The list row whose column name is `column`, or nothing.
std::optional<SettingIndex> settingByColumn(QStringView column);

} // namespace soran
