// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/settings_keys.h"

#include <QStringList>
#include <span>

/// The controls of the settings form, each tied to one key. Indices are those of the form's control arrays;
/// tabs count from 0.
namespace soran {

inline constexpr QStringView settingsTabs[] = {u"接続設定", u"表示設定-1", u"表示設定-2", u"印刷設定"};
inline constexpr int displayTab = 2;
inline constexpr int printTab = 3;

struct SettingsCheckBox {
  int index;
  int tab;
  QStringView caption;
  SettingIndex key;
};
std::span<const SettingsCheckBox> settingsCheckBoxes() noexcept;

/// A field for a number of feet or metres.
struct SettingsTextBox {
  int index;
  SettingIndex key;
};
std::span<const SettingsTextBox> settingsTextBoxes() noexcept;

/// A list to choose from.
struct SettingsCombo {
  int index;
  int tab;
  SettingIndex key;
  bool number; ///< stored as a number, else as text
};
std::span<const SettingsCombo> settingsCombos() noexcept;

/// The position, from 0, of the list of the hours between UTC and the local time.
inline constexpr int offsetSettingsCombo = 4;

/// The entries of a list; empty for the lists of fonts, which the front end knows.
QStringList settingsComboItems(int index);

/// A label that shows a colour and opens the colour dialogue.
struct SettingsSwatch {
  int index;
  SettingIndex key;
};
std::span<const SettingsSwatch> settingsSwatches() noexcept;

} // namespace soran
