// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace soran {

/// A 24-bit colour with red in the low byte: 0x00BBGGRR. 255 is red, 65535 yellow, 16777215 white.
enum class Colour : qint32 {};

inline constexpr Colour black{0};
inline constexpr Colour red{255};
inline constexpr Colour yellow{65535};
inline constexpr Colour grey{8421504};
inline constexpr Colour white{16777215};

constexpr int redOf(Colour c) {
  return static_cast<qint32>(c) & 0xFF;
}
constexpr int greenOf(Colour c) {
  return (static_cast<qint32>(c) >> 8) & 0xFF;
}
constexpr int blueOf(Colour c) {
  return (static_cast<qint32>(c) >> 16) & 0xFF;
}

/// A colour from its parts, each 0 to 255.
constexpr Colour colourOf(int r, int g, int b) {
  return Colour(r | (g << 8) | (b << 16));
}

/// Attributes of a stretch of text: `start` counts UTF-16 units from 0.
struct AttributeRun {
  qsizetype start = 0;
  qsizetype length = 0;
  Colour colour = black;
  bool bold = false;

  bool operator==(const AttributeRun&) const = default;
};

} // namespace soran
