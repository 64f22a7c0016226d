// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/daily_backup.h"

#include "base/files.h"
#include "store/cipher.h"
#include "store/tables.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <cstdlib>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 largestDatabase = 1LL << 30; // bytes

QString dailyCopy(const QString& database) {
  return database + u".day";
}

/// Writes a copy under the time of the program's clock: by another one it would be due again at once.
void writeCopy(const QString& copy, const QByteArray& bytes, const Clock& clock) {
  if (!writeWhole(copy, bytes, true))
    return;
  QFile file(copy);
  if (file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly))
    file.setFileTime(clock.now(), QFileDevice::FileModificationTime);
}

} // namespace

bool isDailyCopyDue(const QString& database, const Clock& clock) {
  constexpr qint64 day = 24 * 3600LL;
  const QFileInfo copy(dailyCopy(database));
  // One of a later time was made under a clock that was wrong.
  return !copy.exists() || std::abs(copy.lastModified().secsTo(clock.now())) >= day;
}

void backUpDaily(const QString& database, const Clock& clock) {
  if (!isDailyCopyDue(database, clock))
    return;
  const QString copy = dailyCopy(database);
  const FileBytes whole = isWholeDatabase(database) ? readPlainFile(database, largestDatabase) : FileBytes();
  if (!whole.bytes.isEmpty() && makeRoomForCopy(copy, clock))
    writeCopy(copy, whole.bytes, clock);
}

bool makeRoomForCopy(const QString& copy, const Clock& clock) {
  constexpr qint64 tolerance = 60;
  const bool isOfAnother = cipher::isDatabaseOfAnotherFormat(copy) && !isWholeDatabase(copy);
  const bool isLater = clock.now().secsTo(QFileInfo(copy).lastModified()) > tolerance;
  if (!nameIsTaken(copy) || !(isOfAnother || isLater))
    return true;
  return QFile::rename(copy, freeName(copy + u'-' + clock.now().toString(u"yyyyMMdd-HHmmss")));
}

QStringList backupsOf(const QString& database) {
  QStringList copies = {dailyCopy(database), database + u".bak"};
  copies.removeIf([](const QString& copy) { return !QFileInfo::exists(copy); });
  std::ranges::stable_sort(copies, std::ranges::greater(),
                           [](const QString& copy) { return QFileInfo(copy).lastModified(); });
  return copies;
}

} // namespace soran
