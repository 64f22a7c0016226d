// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A manifest of program files: what is accepted leads nowhere but beside the program.
#include "update/manifest.h"

#include "targets.h"
#include "update/update_error.h"

#include <QDir>
#include <QSet>

namespace soran::fuzz {

namespace {

void checkFile(const ProgramFile& file) {
  const QString plugins = QStringLiteral("../lib/soran/plugins/");
  const bool plugin = file.name.startsWith(plugins);
  const QStringView name = plugin ? QStringView(file.name).sliced(plugins.size()) : QStringView(file.name);
  require(name.startsWith(u"soran") && !name.contains(u'/') && name.contains(u'.') == plugin,
          "a file is a program or one of its plugins");
  require(QDir::isRelativePath(file.path) && QDir::cleanPath(file.path) == file.path &&
              !file.path.startsWith(u'.'),
          "a path stays below the manifest's folder");
  require(file.size > 0 && file.size <= largestProgramFile, "a size is within bounds");
  require(file.sha256.size() == 32, "a sum is one of SHA-256");
}

} // namespace

void manifest(QByteArrayView input) {
  try {
    const Manifest read = readManifest(input.toByteArray(), QStringLiteral("linux-x86_64"));
    require(isVersion(read.version) && read.version.size() == 4, "a version is one");
    require(!read.files.isEmpty() && read.files.size() <= mostProgramFiles, "there are some files");
    QSet<QString> names;
    for (const ProgramFile& file : read.files) {
      checkFile(file);
      names.insert(file.name);
    }
    require(names.size() == read.files.size(), "a file is told once");
  } catch (const UpdateError& e) {
    require(!QByteArrayView(e.what()).isEmpty(), "a refusal tells why");
  }
}

} // namespace soran::fuzz
