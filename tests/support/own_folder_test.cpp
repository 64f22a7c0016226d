// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/own_folder.h"

#include "base/files.h"

#include <QDir>
#include <QFile>
#include <QScopeGuard>
#include <gtest/gtest.h>
#include <stdexcept>

using namespace soran;
using namespace Qt::StringLiterals;

TEST(OwnFolder, RemovesNothingButWhatLiesInIt) {
  const OwnFolder other;
  writeWhole(other.filePath(u"kept"_s), "x");
  const OwnFolder own;
  QDir().mkpath(own.filePath(u"home/data"_s));
  writeWhole(own.filePath(u"home/data/file"_s), "x");
  QFile::link(other.path(), own.filePath(u"link"_s));
  const QString parent = QFileInfo(own.path()).path();
  for (const QString& path : {QString(), u"."_s, u".."_s, u"/"_s, u"home"_s, parent, own.path(),
                              own.filePath(u""_s), own.filePath(u"home/.."_s), own.filePath(u"home/../.."_s),
                              QString(own.path() + u"-more"), own.filePath(u"link/kept"_s)})
    EXPECT_FALSE(own.holds(path)) << path.toStdString();
  // Nobody's, should it be removed after all.
  EXPECT_THROW(own.remove(parent + u"/no such folder"), std::invalid_argument);
  EXPECT_TRUE(fileExists(own.filePath(u"home/data/file"_s)));
  own.remove(own.filePath(u"link"_s));
  EXPECT_FALSE(QFileInfo(own.filePath(u"link"_s)).isSymLink());
  EXPECT_TRUE(fileExists(other.filePath(u"kept"_s)));
  own.remove(own.filePath(u"home"_s));
  EXPECT_FALSE(fileExists(own.filePath(u"home"_s)));
}

TEST(OwnFolder, ThatCannotBeHadIsNoFolderOfSomebodyElse) {
  const QByteArray before = qgetenv("TMPDIR");
  const bool wasSet = qEnvironmentVariableIsSet("TMPDIR");
  const auto back = qScopeGuard([&] { wasSet ? qputenv("TMPDIR", before) : qunsetenv("TMPDIR"); });
  const OwnFolder folder;
  // A file is in the way of folders for root too.
  writeWhole(folder.filePath(u"file"_s), "x");
  qputenv("TMPDIR", folder.filePath(u"file"_s).toUtf8());
  EXPECT_THROW(OwnFolder(), std::runtime_error);
}
