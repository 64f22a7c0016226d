// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/update_log.h"

#include "base/foreign_text.h"

#include <QDateTime>
#include <QFile>
#include <cstdio>

namespace soran {

using namespace Qt::StringLiterals;

void UpdateLog::tell(const QString& text) const {
  const QString line = cleaned(text);
  std::fputs(QString(line + u'\n').toUtf8().constData(), stderr);
  constexpr qint64 longest = 64LL * 1024;
  QFile file(path_);
  const QIODevice::OpenMode keep = file.size() > longest ? QIODevice::Truncate : QIODevice::Append;
  // Where there is nowhere to write, the line was told all the same.
  if (file.open(QIODevice::WriteOnly | keep))
    file.write(QString(QDateTime::currentDateTime().toString(Qt::ISODate) + u' ' + line + u'\n').toUtf8());
}

} // namespace soran
