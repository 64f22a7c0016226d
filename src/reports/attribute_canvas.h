// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/colour.h"
#include "base/position1.h"

#include <optional>
#include <span>
#include <vector>

namespace soran {

/// Colour and weight of every unit of a text while rules paint over one another. Stretches are given by
/// their position and length; what lies outside the text is cut off.
class AttributeCanvas {
 public:
  /// A text of `size` units as `runs` tell; what they leave out is in `ground` and not bold.
  AttributeCanvas(qsizetype size, Colour ground, std::span<const AttributeRun> runs);

  /// Nothing is painted where there is no colour.
  void setColour(Position1 pos, qsizetype length, std::optional<Colour> colour);
  void setBold(Position1 pos, qsizetype length, bool bold);

  /// The runs that cover the text in order, each as long as possible.
  std::vector<AttributeRun> runs() const;

 private:
  std::vector<Colour> colours_;
  std::vector<quint8> bolds_;
};

} // namespace soran
