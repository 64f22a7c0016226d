// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/update_log.h"

#include "base/files.h"
#include "base/foreign_text.h"

#include <QDateTime>
#include <cstdio>

namespace soran {

using namespace Qt::StringLiterals;

void UpdateLog::tell(const QString& text) const {
  const QString line = cleaned(text);
  std::fputs(QString(line + u'\n').toUtf8().constData(), stderr);
  constexpr qint64 longest = 64LL * 1024;
  const QByteArray entry =
      QString(QDateTime::currentDateTime().toString(Qt::ISODate) + u' ' + line + u'\n').toUtf8();
  // Where there is nowhere to write, the line was told all the same.
  if (readPlainFile(path_, longest).fault == FileFault::TooLarge)
    writeWhole(path_, entry, true);
  else
    appendToPlainFile(path_, entry);
}

} // namespace soran
