// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringView>

namespace soran {

/// How far a zone lies east of UTC, in whole hours.
struct ZoneOffset {
  int hours = 0;

  bool operator==(const ZoneOffset&) const = default;
};

/// The military letter of a time zone: -12 to -1 are Y to N, 0 is Z, 1 to 9 are A to I, 10 to 12 are K to M
/// (J is not a zone). Empty outside -12 to 12.
constexpr QStringView ZoneLetter(ZoneOffset offset) noexcept {
  constexpr QStringView letters = u"YXWVUTSRQPONZABCDEFGHIKLM";
  constexpr int least = -12;
  constexpr int most = 12;
  return offset.hours < least || offset.hours > most ? QStringView()
                                                     : letters.sliced(offset.hours - least, 1);
}

} // namespace soran
