// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/position1.h"

#include <QString>
#include <QStringView>

/// Text and number rules shared by every folder. Text is UTF-16; positions count UTF-16 units, and a
/// function whose name ends in 1 takes them from 1, as WMO code forms do.
namespace soran {

/// The line end of the screen, of dialogues and of files that the program writes.
inline constexpr QStringView crlf = u"\r\n";
/// What marks data that are no weather, and what stands ahead of a text of them.
inline constexpr QStringView demonstrationMark = u"DEMONSTRATION DATA";
inline constexpr QStringView demonstrationWarning = u"*** DEMONSTRATION DATA - NOT FOR OPERATIONAL USE ***";

/// The leading number of a text: blanks (U+0020) are skipped, then one sign, digits and one decimal point
/// are read. A text without a number reads 0: "030" is 30, "M060" and "///" are 0, "1E2" is 1.
double leadingNumber(QStringView text) noexcept;

/// leadingNumber cut towards zero. Saturates at the limits of int.
int leadingInteger(QStringView text) noexcept;

/// The characters from `pos` on, at most `length` of them (all where negative). Positions
/// outside the text give what is there, at worst nothing.
QStringView mid1(QStringView text, Position1 pos, qsizetype length = -1) noexcept;

/// The position of `word` in `text` at or after `from`, exact in case; none where it is not.
Position1 find1(QStringView text, QStringView word, Position1 from = 1) noexcept;

/// The character at `pos`, U+0000 outside the text.
QChar at1(QStringView text, Position1 pos) noexcept;

/// True for '0' to '9' only.
constexpr bool isAsciiDigit(QChar c) noexcept {
  return c >= u'0' && c <= u'9';
}

/// True for 'A' to 'Z' and 'a' to 'z' only.
constexpr bool isAsciiLetter(QChar c) noexcept {
  return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z');
}

/// Upper case of 'a' to 'z' only; every other character stays.
QString asciiUpper(QStringView text);

/// The text without the blanks (U+0020) at both ends. No other space is removed.
QStringView trimBlanks(QStringView text) noexcept;

/// A number in its shortest plain decimal form, without exponent and without trailing zeros: 5, 58.4, -3.
/// `significant` digits are kept at most (7 holds a single-precision value, 15 a double).
QString plainNumber(double value, int significant = 15);

/// A whole number with at least two digits: 3 is "03", 12 is "12", -3 is "-03".
QString twoDigits(int value);

/// True where the text is a list of four-letter codes with one blank between them (length 4 + 5n).
/// Letters are A to Z and a to z. No look-up is made.
bool isCodeList(QStringView text) noexcept;

/// Columns that a line of printable text takes in a terminal; a wide character takes two.
int displayWidth(QStringView line);

/// A list of words with a blank at both ends, to which `word` is added where it is not yet in it. While the
/// list is longer than 200 characters its oldest word is dropped; the blank in front stays.
void rememberWord(QString& list, QStringView word);

} // namespace soran
