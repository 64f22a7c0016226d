// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/sounds.h"

#include <QFileInfo>
#include <QStringList>

namespace soran {

/// Sounds of which the file names are kept.
class FakeSounds final : public Sounds {
 public:
  QStringList seen;

  void play(const QString& path) override { seen.append(QFileInfo(path).fileName()); }
};

} // namespace soran
