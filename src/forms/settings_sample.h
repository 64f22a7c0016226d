// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/colour.h"
#include "store/settings_record.h"

#include <vector>

namespace soran {

/// A report that shows what the settings of font and colour do.
struct SettingsSample {
  QString text; ///< lines with CR LF
  QString font;
  int size = 0;
  bool bold = false;
  Colour background = black;
  std::vector<AttributeRun> runs; ///< cover the text
  bool scrollBar = false;
};

/// The sample's text, its times in the zone that the settings ask for. A 時差 that the form does not offer
/// leaves the times empty.
QString settingsSampleText(const SettingsRecord& settings);

/// The sample of the screen, in its colours.
SettingsSample displaySample(const SettingsRecord& settings);

/// The sample of a printed page: black on white.
SettingsSample printSample(const SettingsRecord& settings);

} // namespace soran
