// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/settings.h"

#include "base/skip.h"

namespace soran {

Q_LOGGING_CATEGORY(lcStore, "soran.store")

void Settings::load() {
  pending_.clear();
  rows_.moveFirst();
  for (size_t i = 0; i < settingSpecs.size(); ++i)
    record_.setValue(static_cast<SettingIndex>(i), rows_.value(settingSpecs[i].column));
  // A database of before this key counts as one of a user who has not changed it.
  if (record_.value(key::規約読み.index).isNull())
    record_.set(key::規約読み, true);
  stored_ = record_;
}

void Settings::setValue(SettingIndex index, const QVariant& value) {
  record_.setValue(index, value);
  pending_.push_back(index);
}

void Settings::update() {
  const std::vector<SettingIndex> changed = std::move(pending_);
  pending_.clear();
  try {
    for (const SettingIndex index : changed)
      rows_.setValue(settingSpecs[size_t(index)].column, record_.value(index));
    rows_.update();
    stored_ = record_;
  } catch (const StoreError&) {
    rows_.cancelUpdate();
    record_ = stored_;
    throw;
  }
}

bool Settings::storeValue(SettingIndex index, const QVariant& value) {
  return passOver(lcStore(), "storing a setting", [&] {
    setValue(index, value);
    update();
  });
}

void Settings::restoreStandardSettings(const QString& computerOffset) {
  const SettingsRecord standard = SettingsRecord::standard(computerOffset);
  for (size_t i = 0; i < settingSpecs.size(); ++i) {
    // A database of an earlier version may lack a key.
    if (settingSpecs[i].treatment != Standard::Kept && rows_.columns().contains(settingSpecs[i].column))
      setValue(static_cast<SettingIndex>(i), standard.value(static_cast<SettingIndex>(i)));
  }
  passOver(lcStore(), "storing the standard settings", [&] { update(); });
}

} // namespace soran
