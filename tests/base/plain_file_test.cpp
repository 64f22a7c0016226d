// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/files.h"
#include "support/own_folder.h"
#include "support/printing.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace soran;
using namespace Qt::StringLiterals;

TEST(PlainFile, NothingElseIsReadWrittenOrWaitedFor) {
  using enum FileFault;
  const OwnFolder folder;
  const auto at = [&](const QString& name) { return folder.filePath(name); };
  writeWhole(at(u"plain"_s), "12345");
  ::mkfifo(QFile::encodeName(at(u"pipe"_s)).constData(), 0600);
  QDir().mkdir(at(u"folder"_s));
  QFile::link(at(u"plain"_s), at(u"link"_s));
  QFile::link(at(u"nothing"_s), at(u"astray"_s));
  const struct {
    QString path;
    FileFault read;
    FileFault readThrough; ///< links
    FileFault append;
    FileFault replace;
    FileFault replaceThrough;
  } cases[] = {
      {at(u"pipe"_s), NotPlain, NotPlain, NotPlain, NotPlain, NotPlain},
      {at(u"folder"_s), NotPlain, NotPlain, NotPlain, NotPlain, NotPlain},
      {u"/dev/zero"_s, NotPlain, NotPlain, NotPlain, NotPlain, NotPlain},
      {u"/dev/full"_s, NotPlain, NotPlain, NotPlain, NotPlain, NotPlain},
      {at(u"link"_s), NotPlain, None, NotPlain, NotPlain, None},
      {at(u"astray"_s), NotPlain, Missing, NotPlain, NotPlain, Missing},
      {at(u"none/x"_s), Missing, Missing, Missing, NoFolder, NoFolder},
      {at(u"plain"_s), None, None, None, None, None},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.path.toStdString());
    EXPECT_EQ(readPlainFile(c.path, 100).fault, c.read);
    EXPECT_EQ(readPlainFile(c.path, 100, Links::Followed).fault, c.readThrough);
    EXPECT_EQ(appendToPlainFile(c.path, "6"), c.append);
    EXPECT_EQ(replaceWhole(c.path, "12345", false, Links::Refused), c.replace);
    EXPECT_EQ(replaceWhole(c.path, "12345", false, Links::Followed), c.replaceThrough);
  }
  EXPECT_EQ(appendToPlainFile(at(u"plain"_s), "6"), None);
  EXPECT_EQ(readPlainFile(at(u"plain"_s), 6).bytes, "123456");
  EXPECT_EQ(readPlainFile(at(u"plain"_s), 5).fault, TooLarge);
  EXPECT_EQ(faultText(TooLarge, largestListFile), u"ファイルが大きすぎます(上限 16 MB)");
  EXPECT_EQ(faultLine(TooLarge, 4096), u"larger than 4 kB");
  EXPECT_TRUE(QFile::symLinkTarget(at(u"link"_s)).endsWith(u"plain"));
  EXPECT_EQ(freeName(at(u"link"_s)), at(u"link-2"_s));
  EXPECT_EQ(freeName(at(u"free"_s)), at(u"free"_s));
}
