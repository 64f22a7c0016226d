// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/position1.h"

#include <QString>
#include <QStringView>

/// Japanese sentences for single groups, used by the translation of a report and by the explanation of a
/// selected group. Each throws TextFailure (reports/checked_text.h) for a group that is too short to hold
/// what its sentence needs.
namespace soran {

/// A surface wind group dddff(f)(Gff(f))KT (ICAO Annex 3), speeds in knots. The five units of direction and
/// "KT" are taken as given: "27015G25KT" reads 15 and 25 knots. "VRB" is told without its gusts.
QString WindPhrase(QStringView group);

/// A runway visual range group R{runway}/{values}{tendency} (ICAO Annex 3), in metres, or in feet where the
/// group ends in "FT".
QString RvrPhrase(QStringView group);

/// The sea level pressure in hectopascals with one decimal from an SLPppp group of the remarks (FMH-1): "10"
/// is put in front where the first figure is 0, else "9".
QString SeaLevelPressureText(QStringView group);

/// A temperature in tenths from a sign figure at position `pos` and the three figures behind it
/// (FMH-1, T group and 1, 2 and 4 groups), sign 1 for below zero: "T10050012" at 2 is "マイナス 0.5℃".
QString TenthsPhrase(QStringView group, Position1 pos);

} // namespace soran
