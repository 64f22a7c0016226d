// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pictures/projection.h"

#include <QByteArrayView>
#include <optional>
#include <vector>

namespace soran {

/// The shores of the world (Natural Earth, 1:50m; 1:10m from 20 to 50 north and 115 to 155 east).
class Coast {
 public:
  /// Degrees north and east.
  struct Vertex {
    float latitude;
    float longitude;
  };
  /// A stretch of a shore with the bounds that it lies in.
  struct Line {
    std::vector<Vertex> points;
    Vertex least;
    Vertex most;
  };
  using Lines = std::vector<Line>;

  /// Of the file that tools/make-coast writes; nothing where it is another one, or is cut off or damaged.
  static std::optional<Coast> read(QByteArrayView file);

  /// The shores that lie in the view, or cross its edge, as lines of Ink::Faint.
  Drawing draw(const Projection& projection) const;

  const Lines& world() const { return world_; }   ///< outside of the region that has a fine layer
  const Lines& coarse() const { return coarse_; } ///< that region
  const Lines& fine() const { return fine_; }     ///< the same in more detail

 private:
  Lines world_;
  Lines coarse_;
  Lines fine_;
};

} // namespace soran
