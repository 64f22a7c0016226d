// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/own_folder.h"

#include <QDir>
#include <QFileInfo>
#include <stdexcept>

namespace soran {

OwnFolder::OwnFolder() {
  if (!folder_.isValid())
    throw std::runtime_error("no temporary folder can be had: " + folder_.errorString().toStdString());
}

bool OwnFolder::holds(const QString& path) const {
  const QFileInfo named(QDir::cleanPath(path));
  const QString folder = named.dir().canonicalPath();
  const QString own = QDir(folder_.path()).canonicalPath();
  return named.isAbsolute() && (folder == own || folder.startsWith(own + u'/'));
}

void OwnFolder::remove(const QString& path) const {
  if (!holds(path))
    throw std::invalid_argument("not in the own folder: " + path.toStdString());
  const QFileInfo named(QDir::cleanPath(path));
  if (named.isSymLink())
    QFile::remove(named.filePath());
  else
    QDir(named.filePath()).removeRecursively();
}

} // namespace soran
