// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace soran {

/// Plays wave files.
class Sounds {
 public:
  virtual ~Sounds() = default;

  /// Plays the file and returns when it has ended, at once where it cannot be played. Waits in the event
  /// loop; throws Unwind where the program was closed meanwhile.
  virtual void play(const QString& path) = 0;
};

} // namespace soran
