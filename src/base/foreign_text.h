// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringView>

namespace soran {

/// What stands for a character that would mislead.
inline constexpr QChar maskedCharacter = u'\u00B7';

/// True for a character that makes a line read differently from what was sent, or that a terminal obeys: the
/// controls C0 and C1 but for tab, LF and CR, the format characters (Unicode's category Cf: bidirectional
/// controls, zero-width characters, the byte order mark, tags), line and paragraph separators, the fillers
/// that show nothing, and a surrogate that stands alone. Variation selectors, which choose the form of a
/// kanji, are none.
bool isMisleading(char32_t character) noexcept;

/// The text with `maskedCharacter` in the place of each misleading one.
QString cleaned(QStringView text);

} // namespace soran
