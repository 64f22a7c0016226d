// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pictures/drawing.h"
#include "store/settings_record.h"

#include <QColor>
#include <array>

class QPainter;

namespace soran {

/// What a drawing is painted on.
struct Ground {
  enum Kind { Black, White };

  /// With the colours of the limits that the settings are delivered with, dark enough to be read on white.
  Ground(Kind ground); // NOLINT(google-explicit-constructor): the kind alone will do
  /// Of the colour of the screen, black where it is dark, and with the colours of the limits there.
  explicit Ground(const SettingsRecord& settings);

  Kind kind;
  QColor colour;
  std::array<QColor, 3> limits; ///< of Ink::Limit1 to Ink::Limit3
};

/// The colour of an ink on that ground.
QColor colourOf(Ink ink, const Ground& ground);

/// Paints the shapes, in their order, in the units of the painter; the ground is left as it is. A letter is
/// as high as its shape says, in the terminal's font.
void paintDrawing(QPainter& painter, const Drawing& drawing, const Ground& ground);

/// The drawing as a text for a tip, which shows it.
QString pictureTip(const Drawing& drawing, const Ground& ground);

} // namespace soran
