// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "start/own_directory.h"

#include "base/files.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

QString markOf(const QString& directory) {
  return directory + u"/.soran";
}

/// The names of the files that a run of the program leaves in its data folder.
bool isOwnFile(const QString& name) {
  static const QRegularExpression own(
      uR"(^(?:\d\d\.dat|sequence\.dat|figure\.dat|version\.dat|soran\$\.mdb)$)"_s);
  return own.match(name).hasMatch();
}

bool holdsForeignFiles(const QString& folder) {
  const QStringList names =
      QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
  return !std::all_of(names.begin(), names.end(), isOwnFile);
}

} // namespace

bool claimDirectory(const QString& directory) {
  if (!makePrivateDirectory(directory))
    return false;
  const QString mark = markOf(directory);
  if (!fileExists(mark) && !holdsForeignFiles(directory + u"/data") &&
      !holdsForeignFiles(directory + u"/help"))
    writeWhole(mark,
               "This directory belongs to SORAN. Its folders data and help are emptied at every exit.\n",
               true);
  return true;
}

void removeScratchFolder(const QString& directory, const QString& folder) {
  const QString path = directory + u'/' + folder;
  const QFileInfo info(path);
  if (!fileExists(markOf(directory)) || !info.isDir() || info.isSymLink())
    return;
  const QFileInfoList files =
      QDir(path).entryInfoList(QDir::Files | QDir::Hidden | QDir::NoSymLinks | QDir::NoDotAndDotDot);
  for (const QFileInfo& file : files)
    QFile::remove(file.filePath());
  QDir().rmdir(path);
}

} // namespace soran
