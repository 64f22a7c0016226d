// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>
#include <compare>

namespace soran {

/// A position in a text as WMO code forms count, in UTF-16 units from 1; 0 is none. A qsizetype counts from 0
/// everywhere, so the two are told apart by the compiler. A number written in the code becomes one by itself,
/// a reckoned one by at() or ofIndex().
class Position1 {
 public:
  constexpr Position1() = default;
  // NOLINTNEXTLINE(google-explicit-constructor): mid1(report, 12, 5) reads as the code form does.
  consteval Position1(qsizetype from1) : from1_(from1) {}
  static constexpr Position1 at(qsizetype from1) {
    Position1 position;
    position.from1_ = from1;
    return position;
  }
  static constexpr Position1 ofIndex(qsizetype from0) { return at(from0 + 1); }

  constexpr qsizetype from1() const { return from1_; }
  constexpr qsizetype index() const { return from1_ - 1; }
  /// True where it is one.
  constexpr explicit operator bool() const { return from1_ != 0; }

  bool operator==(const Position1&) const = default;
  constexpr std::strong_ordering operator<=>(const Position1& other) const { return from1_ <=> other.from1_; }
  friend constexpr Position1 operator+(Position1 p, qsizetype units) { return at(p.from1_ + units); }
  friend constexpr Position1 operator-(Position1 p, qsizetype units) { return at(p.from1_ - units); }
  friend constexpr qsizetype operator-(Position1 one, Position1 other) { return one.from1_ - other.from1_; }

 private:
  qsizetype from1_ = 0;
};

} // namespace soran
