// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/services/sound_service.h"

#include "base/plain_file.h"

#include <QAudioDevice>
#include <QEventLoop>
#include <QFile>
#include <QMediaDevices>
#include <QSoundEffect>
#include <QTimer>
#include <QUrl>
#include <QtEndian>

#include <algorithm>

namespace soran {

namespace {

constexpr int longestMilliseconds = 60 * 1000;
constexpr int graceMilliseconds = 2000;

quint32 wordAt(const QByteArray& file, qsizetype at) {
  return qFromLittleEndian<quint32>(file.constData() + at);
}

} // namespace

int waveLength(const QByteArray& file) {
  constexpr qsizetype headSize = 12;
  constexpr qsizetype chunkHeadSize = 8;
  constexpr qsizetype byteRateAt = 8;
  if (!file.startsWith("RIFF") || file.mid(8, 4) != "WAVE")
    return 0;
  quint32 byteRate = 0;
  for (qsizetype at = headSize; at + chunkHeadSize <= file.size();) {
    const qsizetype body = at + chunkHeadSize;
    const qsizetype size = wordAt(file, at + 4);
    if (file.mid(at, 4) == "fmt " && body + byteRateAt + 4 <= file.size())
      byteRate = wordAt(file, body + byteRateAt);
    else if (file.mid(at, 4) == "data" && byteRate > 0)
      return static_cast<int>(std::min<qint64>(
          std::min(size, file.size() - body) * qint64(1000) / qint64(byteRate), longestMilliseconds));
    at = body + size + size % 2;
  }
  return 0;
}

void SoundService::play(const QString& path) {
  constexpr qint64 largestSound = 64LL << 20; // bytes
  const int length = waveLength(readPlainFile(path, largestSound).bytes);
  if (length == 0 || QMediaDevices::defaultAudioOutput().isNull())
    return;
  QEventLoop loop;
  QSoundEffect effect;
  QObject::connect(&effect, &QSoundEffect::playingChanged, &loop, [&] {
    if (!effect.isPlaying())
      loop.quit();
  });
  QObject::connect(&effect, &QSoundEffect::statusChanged, &loop, [&] {
    if (effect.status() == QSoundEffect::Error)
      loop.quit();
  });
  QObject::connect(&shutdown_, &Shutdown::closing, &loop, &QEventLoop::quit);
  // A device that stopped answering must not hold the program.
  QTimer::singleShot(length + graceMilliseconds, &loop, &QEventLoop::quit);
  effect.setSource(QUrl::fromLocalFile(path));
  effect.play();
  if (effect.status() != QSoundEffect::Error)
    loop.exec();
  effect.stop();
  shutdown_.check();
}

} // namespace soran
