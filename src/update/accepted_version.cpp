// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/accepted_version.h"

#include "base/files.h"
#include "base/text.h"
#include "update/manifest.h"

namespace soran {

double acceptedVersion(const QString& file) {
  constexpr qint64 longest = 4096;
  return leadingNumber(QString::fromLatin1(readPlainFile(file, longest).bytes).trimmed());
}

bool acceptVersion(const QString& file, const QString& version) {
  return writeWhole(file, version.toLatin1() + '\n', true);
}

QString moduleVersion(const QByteArray& module) {
  constexpr QByteArrayView mark = "soran-update ";
  constexpr qsizetype length = 4;
  for (qsizetype at = module.indexOf(mark); at >= 0; at = module.indexOf(mark, at + 1)) {
    const qsizetype from = at + mark.size();
    QString version = QString::fromLatin1(module.mid(from, length));
    if (isVersion(version) && module.mid(from + length, 1) == "\n")
      return version;
  }
  return {};
}

} // namespace soran
