// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/shutdown.h"
#include "platform/sounds.h"

#include <QByteArray>

namespace soran {

/// Plays wave files on the machine's sound device.
class SoundService final : public Sounds {
 public:
  explicit SoundService(const Shutdown& shutdown) : shutdown_(shutdown) {}
  void play(const QString& path) override;

 private:
  const Shutdown& shutdown_;
};

/// The length of a wave file in milliseconds, 0 where its header cannot be read.
int waveLength(const QByteArray& file);

} // namespace soran
