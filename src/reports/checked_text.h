// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/text.h"

#include <array>
#include <cmath>
#include <exception>

/// Reads of report text that cannot be passed over, and the writing of phrases. Internal to this folder.
namespace soran {

/// A report or group of a form that its phrase cannot be made from.
class TextFailure : public std::exception {
 public:
  const char* what() const noexcept override { return "text of an unforeseen form"; }
};

/// The characters from position `pos`, at most `length` of them; past the end what is there. Throws
/// TextFailure for a position before the first character and for a negative length.
inline QStringView take1(QStringView text, Position1 pos, qsizetype length) {
  if (pos.index() < 0 || length < 0)
    throw TextFailure();
  return mid1(text, pos, length);
}

/// A height in feet from the three figures at position `pos`, which tell hundreds of feet (ICAO
/// Annex 3, cloud and vertical visibility groups).
inline double heightAt(QStringView group, Position1 pos) {
  constexpr qsizetype figures = 3;
  constexpr double feetPerFigure = 100;
  return leadingNumber(take1(group, pos, figures)) * feetPerFigure;
}

/// A number to be written in its plain decimal form. Writing one beyond the range of a double throws
/// TextFailure.
struct Plain {
  double value;
};

inline void write(QString& text, QStringView part) {
  text.append(part);
}

inline void write(QString& text, Plain part) {
  constexpr double exact = 1e15;
  if (!std::isfinite(part.value))
    throw TextFailure();
  if (part.value == std::trunc(part.value) && std::abs(part.value) < exact) {
    auto left = static_cast<quint64>(std::abs(part.value));
    std::array<char16_t, 16> digits;
    size_t begin = digits.size();
    do {
      digits[--begin] = static_cast<char16_t>(u'0' + left % 10);
      left /= 10;
    } while (left > 0);
    if (part.value < 0)
      digits[--begin] = u'-';
    text.append(QStringView(digits.data() + begin, static_cast<qsizetype>(digits.size() - begin)));
  } else {
    text.append(plainNumber(part.value));
  }
}

/// Appends texts and numbers in order.
template <class... Parts>
void writeAll(QString& text, const Parts&... parts) {
  (write(text, parts), ...);
}

} // namespace soran
