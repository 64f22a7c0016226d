// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace soran {

/// The letter of a nautical time zone (ACP 121, the zone description letters without J): Y for -12 to Z for 0
/// and M for +12 whole hours from UTC; empty outside.
inline QString ZoneLetter(int offsetHours) {
  constexpr QStringView letters = u"YXWVUTSRQPONZABCDEFGHIKLM";
  return offsetHours < -12 || offsetHours > 12 ? QString() : QString(letters[offsetHours + 12]);
}

} // namespace soran
