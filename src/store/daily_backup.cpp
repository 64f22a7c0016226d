// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/daily_backup.h"

#include "base/files.h"
#include "store/tables.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <cstdlib>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

QString dailyCopy(const QString& database) {
  return database + u".day";
}

} // namespace

void backUpDaily(const QString& database, const Clock& clock) {
  constexpr qint64 day = 24 * 3600LL;
  const QFileInfo copy(dailyCopy(database));
  // One of a later time was made under a clock that was wrong.
  if (copy.exists() && std::abs(copy.lastModified().secsTo(clock.now())) < day)
    return;
  QFile file(database);
  if (!isWholeDatabase(database) || !file.open(QIODevice::ReadOnly))
    return;
  const QByteArray bytes = file.readAll();
  if (bytes.size() == file.size())
    writeWhole(copy.filePath(), bytes, true);
}

QStringList backupsOf(const QString& database) {
  QStringList copies = {dailyCopy(database), database + u".bak"};
  copies.removeIf([](const QString& copy) { return !QFileInfo::exists(copy); });
  std::ranges::stable_sort(copies, std::ranges::greater(),
                           [](const QString& copy) { return QFileInfo(copy).lastModified(); });
  return copies;
}

} // namespace soran
