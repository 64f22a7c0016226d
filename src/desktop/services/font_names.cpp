// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/services/font_names.h"

#include <QElapsedTimer>
#include <QFontDatabase>

namespace soran {

QStringList fontNames(const std::function<void()>& slow) {
  // A shorter wait shows no note that would only flash up.
  constexpr qint64 patience = 200;
  QElapsedTimer clock;
  clock.start();
  bool told = false;
  QStringList fixed;
  QStringList others;
  for (const QString& family : QFontDatabase::families()) {
    if (QFontDatabase::isPrivateFamily(family) || !QFontDatabase::isSmoothlyScalable(family))
      continue;
    (QFontDatabase::isFixedPitch(family) ? fixed : others).append(family);
    if (!told && clock.hasExpired(patience)) {
      told = true;
      slow();
    }
  }
  return fixed + others;
}

} // namespace soran
