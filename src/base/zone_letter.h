// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringView>

namespace soran {

/// The military letter of a time zone: `offset` is in whole hours east of UTC. -12 to -1 are Y to N, 0 is Z,
/// 1 to 9 are A to I, 10 to 12 are K to M (J is not a zone). Empty outside -12 to 12.
constexpr QStringView ZoneLetter(int offset) noexcept {
  constexpr QStringView letters = u"YXWVUTSRQPONZABCDEFGHIKLM";
  constexpr int least = -12;
  constexpr int most = 12;
  return offset < least || offset > most ? QStringView() : letters.sliced(offset - least, 1);
}

} // namespace soran
