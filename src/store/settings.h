// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/row_set.h"
#include "store/settings_record.h"

namespace soran {

/// The one row of the table 設定: read from memory by typed key, written through at `update`.
class Settings {
 public:
  explicit Settings(RowSet& rows) : rows_(rows) {}

  /// Takes the values of the opened row set over.
  void load();

  template <SettingType type>
  auto operator[](SettingKey<type> setting) const {
    return record_[setting];
  }

  /// Sets a value; pending until `update`.
  template <SettingType type>
  void set(SettingKey<type> setting, const SettingValue<type>& value) {
    setValue(setting.index, storedForm<type>(value));
  }
  void setValue(SettingIndex index, const QVariant& value);

  /// Writes what is pending to the file. Throws StoreError where it fails; the values are then as before.
  void update();

  /// `set` and `update` of one value; a failure is passed over. True where the value was stored.
  template <SettingType type>
  bool store(SettingKey<type> setting, const SettingValue<type>& value) {
    return storeValue(setting.index, storedForm<type>(value));
  }
  bool storeValue(SettingIndex index, const QVariant& value);

  /// Writes the standard values, all but those that are kept, in one update. `computerOffset` becomes 時差.
  void restoreStandardSettings(const QString& computerOffset);

  /// All values at this moment.
  const SettingsRecord& record() const { return record_; }

 private:
  RowSet& rows_;
  SettingsRecord record_;
  SettingsRecord stored_;
  std::vector<SettingIndex> pending_;
};

} // namespace soran
