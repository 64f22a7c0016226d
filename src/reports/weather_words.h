// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringView>

namespace soran {

/// A group of present or forecast weather (WMO No. 306, code table 4678): a sign or VC, then pairs of
/// letters. That of the hour before, RE, is none.
bool isWeatherGroup(QStringView group);

/// Whether a weather group holds a word that is such a group too. It does where each pair of letters of the
/// word is a pair of the group, in any order and beside others: +TSRA, TSRAGR and VCTS hold TS, FZDZRA holds
/// FZRA, and BCFG does not hold FZFG. VC is a pair like the others, so that VCSH holds SH, and SHRA does not
/// hold VCSH. A word with a sign is held by groups of the same sign alone; one without a sign by those of any
/// intensity.
bool holdsWeather(QStringView group, QStringView word);

} // namespace soran
