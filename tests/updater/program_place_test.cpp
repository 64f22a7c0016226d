// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "updater/program_place.h"

#include "printing.h"
#include "updater/release.h"
#include "updater/update_error.h"

#include <QElapsedTimer>
#include <csignal>
#include <gmock/gmock.h>
#include <optional>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

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

namespace {

/// Runs `work` in a process of its own and kills it after that many microseconds.
void killedAfter(qint64 microseconds, const std::function<void()>& work) {
  const pid_t child = ::fork();
  if (child == 0) {
    work();
    ::_exit(0);
  }
  ::usleep(useconds_t(microseconds));
  ::kill(child, SIGKILL);
  ::waitpid(child, nullptr, 0);
}

} // namespace

TEST_F(ProgramPlaceTest, AKilledUpdateLeavesAWholeProgramAndAWholeDatabase) {
  // A folder is the endpoint here: the child process has no use for the parent's server.
  const QString folder = installation.path(u"endpoint"_s);
  const TestKey key;
  const auto offer = [&](const QString& version, const QMap<QString, QByteArray>& programs) {
    const QMap<QString, QByteArray> served = Release::of(version, programs).served(key);
    for (auto i = served.cbegin(); i != served.cend(); ++i) {
      QDir().mkpath(QFileInfo(folder + i.key()).path());
      ASSERT_TRUE(writeWhole(folder + i.key(), i.value()));
    }
  };
  installation.setEndpoint(QUrl::fromLocalFile(folder).toString());
  const auto update = [&] { return Updater(installation.job(key.publicKey), [](const QString&) {}).run(); };

  // Each round offers what is not in place, and is killed a little later.
  const QMap<QString, QByteArray> kinds[] = {{{u"soran"_s, newSoran}, {u"soran-cli"_s, newCli}},
                                             installation.former};
  offer(u"4.32"_s, kinds[0]);
  QElapsedTimer timer;
  timer.start();
  killedAfter(0, [] {});
  const pid_t whole = ::fork();
  if (whole == 0) {
    update();
    ::_exit(0);
  }
  ::waitpid(whole, nullptr, 0);
  const qint64 duration = timer.nsecsElapsed() / 1000;
  ASSERT_EQ(now(u"soran"_s), newSoran);

  constexpr int rounds = 60;
  int exchanged = 0;
  for (int round = 0; round < rounds; ++round) {
    const QMap<QString, QByteArray>& next = kinds[now(u"soran"_s) == newSoran ? 1 : 0];
    offer(u"4.32"_s, next);
    killedAfter(duration * round / rounds, [&] { update(); });
    for (const QString& name : {u"soran"_s, u"soran-cli"_s})
      ASSERT_TRUE(now(name) == kinds[0][name] || now(name) == kinds[1][name]) << round;
    ASSERT_TRUE(isWholeDatabase(installation.home() + u"/soran.mdb")) << round;
    exchanged += now(u"soran"_s) == next[u"soran"_s];
  }
  EXPECT_LT(exchanged, rounds);
  // An update that was killed is in the way of no later one.
  offer(u"4.33"_s, kinds[0]);
  update();
  EXPECT_EQ(now(u"soran"_s), newSoran);
  EXPECT_EQ(now(u"soran-cli"_s), newCli);
}
