// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "reports/dictionaries.h"
#include "reports/group_shapes.h"
#include "store/settings_record.h"

#include <QString>

/// The sentences of phrases.h as the code form means the groups (ICAO Annex 3, FMH-1), for 規約読み. Where
/// both read a group alike the words are the same.
namespace soran {

/// Whether reports are read as the code form means them, and not by the fixed rules.
inline bool readsByCode(const SettingsRecord& settings) {
  return settings[key::規約読み] == true;
}

/// The name of a station, by its row in 飛行場情報, else, with 規約読み, as it is known in the world; empty
/// where it is not known.
QString nameOfStation(QStringView code, const SettingsRecord& settings, const Dictionaries& dictionaries);

/// What is told in the place of a value that was not reported: "風の通報なし".
QString notReported(QStringView what);

/// Direction, speed and gust in the group's own unit.
QString windByCode(const WindGroup& wind);

QString runwayRangeByCode(const RunwayRangeGroup& range);

/// Degrees Celsius of one half of a temperature group, or that `name` was not reported.
QString degreesByCode(QStringView value, QStringView name);

/// Hectopascals with one decimal from the figures of SLPppp: tens, units and tenths, of 9xx.x from 500 on and
/// of 10xx.x below. Empty where the group has no three figures.
QString seaLevelPressureByCode(QStringView group);

/// Inches of mercury from an A#### group, and in brackets hectopascals with one decimal.
QString altimeterByCode(QStringView group);

} // namespace soran
