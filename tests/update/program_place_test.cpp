// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/program_place.h"

#include "fakes/release.h"
#include "support/printing.h"
#include "update/update_error.h"

#include <csignal>
#include <gmock/gmock.h>
#include <sys/resource.h>

using namespace soran;
using namespace Qt::StringLiterals;
using ::testing::ElementsAre;

namespace {

const QByteArray newSoran(300'000, 'n');
const QByteArray newCli(200'000, 'm');

class ProgramPlaceTest : public ::testing::Test {
 protected:
  QByteArray now(const QString& name) const { return bytesOf(installation.at(name)); }
  Installation installation;
};

} // namespace

TEST_F(ProgramPlaceTest, AFileThatCannotBeExchangedBringsTheOthersBack) {
  {
    ProgramPlace place(installation.at(u"soran"_s));
    place.stage(u"soran"_s, newSoran);
    place.stage(u"soran-cli"_s, newCli);
    place.stage(u"soran-more"_s, newCli);
    place.stage(u"../lib/soran/plugins/soran-web.so"_s, newCli);
    // The program itself goes last, so the two others are in place when it fails.
    ASSERT_TRUE(QFile::remove(installation.at(u"soran.new"_s)));
    EXPECT_THROW(place.exchange(), UpdateError);
  }
  EXPECT_EQ(now(u"soran"_s), installation.former[u"soran"_s]);
  EXPECT_EQ(now(u"soran-cli"_s), installation.former[u"soran-cli"_s]);
  EXPECT_FALSE(installation.filesOfPlace().contains(u"soran-more"_s));
  EXPECT_EQ(installation.filesOfPlace().filter(u".new"_s), QStringList());
  EXPECT_THAT(QDir(installation.path(u"lib/soran/plugins"_s)).entryList(QDir::Files), ElementsAre());
}

TEST_F(ProgramPlaceTest, AFullDiskLeavesTheFormerFiles) {
  rlimit before{};
  ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  const rlimit small{100'000, before.rlim_max};
  {
    ProgramPlace place(installation.at(u"soran"_s));
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    EXPECT_THROW(place.stage(u"soran"_s, newSoran), UpdateError);
    ::setrlimit(RLIMIT_FSIZE, &before);
  }
  std::signal(SIGXFSZ, handler);
  EXPECT_THAT(installation.filesOfPlace(), ElementsAre(u"soran"_s, u"soran-cli"_s));
  EXPECT_EQ(now(u"soran"_s), installation.former[u"soran"_s]);
}

TEST_F(ProgramPlaceTest, WritesThroughNoLinkAndOverNoFolder) {
  const QString other = installation.path(u"other"_s);
  writeWhole(other, "kept");
  ASSERT_TRUE(QFile::link(other, installation.at(u"soran-link"_s)));
  ASSERT_TRUE(QDir().mkpath(installation.at(u"soran-folder"_s)));
  // A link that lies where the new file is written first.
  ASSERT_TRUE(QFile::link(other, installation.at(u"soran.new"_s)));
  ProgramPlace place(installation.at(u"soran"_s));
  EXPECT_THROW(place.stage(u"soran-link"_s, newCli), UpdateError);
  EXPECT_THROW(place.stage(u"soran-folder"_s, newCli), UpdateError);
  place.stage(u"soran"_s, newSoran);
  place.exchange();
  EXPECT_EQ(bytesOf(other), "kept");
  EXPECT_EQ(now(u"soran"_s), newSoran);
  EXPECT_FALSE(QFileInfo(installation.at(u"soran"_s)).isSymLink());
}
