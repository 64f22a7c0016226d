// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/updater.h"

#include "fakes/release.h"
#include "http/endpoint_server.h"
#include "support/ordinary_user.h"
#include "support/printing.h"

#include <QFile>
#include <QScopeGuard>
#include <functional>
#include <gmock/gmock.h>

using namespace soran;
using namespace Qt::StringLiterals;
using ::testing::ElementsAre;

namespace {

const QMap<QString, QByteArray> programs = {{u"soran"_s, QByteArray(40'000, 'n')},
                                            {u"soran-cli"_s, QByteArray(25'000, 'm')},
                                            {u"soran-update"_s, QByteArray(5'000, 'u')},
                                            {u"../lib/soran/plugins/soran-web.so"_s, QByteArray(7'000, 'w')}};

const QString manifestAt = manifestPath(thisSystem());
const QString programAt = u"/data/program/" + thisSystem() + u"/4.32/soran";

class UpdaterTest : public ::testing::Test {
 protected:
  UpdaterTest() {
    EXPECT_TRUE(server.start());
    installation.setEndpoint(server.baseAddress());
    offer(Release::of(u"4.32"_s, programs));
  }

  void offer(const Release& release, const TestKey& signer = TestKey()) {
    const QMap<QString, QByteArray> served = release.served(signer);
    for (auto i = served.cbegin(); i != served.cend(); ++i)
      server.setFile(i.key(), i.value());
  }

  Updater::Outcome run(UpdateJob job) {
    told.clear();
    return Updater(std::move(job), [this](const QString& line) { told += line + u'\n'; }).run();
  }
  Updater::Outcome run() { return run(installation.job(TestKey().publicKey)); }

  void expectFormerProgram() const {
    EXPECT_THAT(installation.filesOfPlace(), ElementsAre(u"soran"_s, u"soran-cli"_s));
    for (auto i = installation.former.cbegin(); i != installation.former.cend(); ++i)
      EXPECT_EQ(bytesOf(installation.at(i.key())), i.value());
    EXPECT_EQ(installation.storedVersion(), 4.31);
  }

  EndpointServer server;
  Installation installation;
  QString told;
};

/// What goes wrong with an update, and the reason that the user is told.
struct Fault {
  const char* name;
  std::function<void(EndpointServer&, Release&, TestKey&, UpdateJob&)> make;
  QStringView reason;
  bool programAsked = false; ///< the program's file is fetched before it shows
};

std::function<void(EndpointServer&, Release&, TestKey&, UpdateJob&)> field(const QString& name,
                                                                           const QJsonValue& value) {
  return [=](EndpointServer&, Release& release, TestKey&, UpdateJob&) { release.setField(name, value); };
}

std::function<void(EndpointServer&, Release&, TestKey&, UpdateJob&)> whole(const QString& name,
                                                                           const QJsonValue& value) {
  return [=](EndpointServer&, Release& release, TestKey&, UpdateJob&) { release.manifest[name] = value; };
}

std::function<void(EndpointServer&, Release&, TestKey&, UpdateJob&)> program(const QByteArray& bytes) {
  return [=](EndpointServer&, Release& release, TestKey&, UpdateJob&) {
    release.files[u"4.32/soran"_s] = bytes;
  };
}

} // namespace

TEST_F(UpdaterTest, PutsTheNewProgramInPlaceAndKeepsTheFormer) {
  ASSERT_EQ(run(), Updater::Outcome::Updated) << told.toStdString();
  EXPECT_THAT(installation.filesOfPlace(), ElementsAre(u"soran"_s, u"soran-cli"_s, u"soran-cli.former"_s,
                                                       u"soran-update"_s, u"soran.former"_s));
  for (auto i = programs.cbegin(); i != programs.cend(); ++i)
    EXPECT_EQ(bytesOf(installation.at(i.key())), i.value());
  for (auto i = installation.former.cbegin(); i != installation.former.cend(); ++i)
    EXPECT_EQ(bytesOf(installation.at(i.key() + u".former")), i.value());
  const auto mode = [this](const QString& name) {
    struct stat info {};
    EXPECT_EQ(::stat(QFile::encodeName(installation.at(name)).constData(), &info), 0);
    return info.st_mode & 07777U;
  };
  EXPECT_EQ(mode(u"soran"_s), 0750U);
  EXPECT_EQ(mode(u"soran-update"_s), 0755U);
  EXPECT_EQ(installation.storedVersion(), 0);
  EXPECT_TRUE(told.endsWith(u"SORAN を Version 4.32 に更新しました\n"));

  server.clearRequests();
  EXPECT_EQ(run(), Updater::Outcome::Current);
  EXPECT_THAT(server.requests(), ElementsAre(manifestAt, manifestAt + u".sig"_s));

  // What was accepted once is the oldest that is accepted from now on.
  offer(Release::of(u"4.31"_s, installation.former));
  EXPECT_EQ(run(), Updater::Outcome::Failed);
  EXPECT_EQ(bytesOf(installation.at(u"soran"_s)), programs[u"soran"_s]);
}

TEST_F(UpdaterTest, RefusesWhatIsNotWholeNewAndSigned) {
  using S = EndpointServer;
  using R = Release;
  using K = TestKey;
  using J = UpdateJob;
  const QByteArray good = programs[u"soran"_s];
  QByteArray altered = good;
  altered[17] = 'X';
  const Fault faults[] = {
      {"another key", [](S&, R&, K& k, J&) { k = TestKey(2); }, u"更新情報の署名が正しくありません"},
      {"no key built in", [](S&, R&, K&, J& j) { j.publicKey.clear(); }, u"公開鍵がない"},
      {"no endpoint", [](S&, R&, K&, J& j) { j.endpointsFile = u"/dev/null"_s; }, u"設定されていません"},
      {"older than the module", whole(u"version"_s, u"4.30"_s), u"古いため、更新できません: Version 4.30"},
      {"no version", whole(u"version"_s, QJsonValue()), u"バージョンが不正"},
      {"version as a number", whole(u"version"_s, 4.32), u"バージョンが不正"},
      {"longer version", whole(u"version"_s, u"4.321"_s), u"バージョンが不正"},
      {"shorter version", whole(u"version"_s, u"5.0"_s), u"バージョンが不正"},
      {"another system", whole(u"system"_s, u"linux-other"_s), u"このシステムのものではありません"},
      {"another product", whole(u"product"_s, u"other"_s), u"このシステムのものではありません"},
      {"no list", whole(u"files"_s, QJsonValue()), u"ファイル数"},
      {"empty list", whole(u"files"_s, QJsonArray()), u"ファイル数"},
      {"no object in the list", whole(u"files"_s, QJsonArray{u"soran"_s}), u"ファイル名"},
      {"a data file", field(u"name"_s, u"soran.mdb"_s), u"ファイル名が不正です: soran.mdb"},
      {"a former file", field(u"name"_s, u"soran.former"_s), u"ファイル名"},
      {"up", field(u"name"_s, u"../soran"_s), u"ファイル名"},
      {"up behind the library's folder", field(u"name"_s, u"../lib/soran/plugins/../soran"_s), u"ファイル名"},
      {"absolute", field(u"name"_s, u"/bin/sh"_s), u"ファイル名"},
      {"a line end", field(u"name"_s, u"soran\n"_s), u"ファイル名"},
      {"the same twice", field(u"name"_s, u"soran-cli"_s), u"二度"},
      {"path up", field(u"path"_s, u"../../soran.mdb"_s), u"パス"},
      {"path up inside", field(u"path"_s, u"4.32/../x"_s), u"パス"},
      {"path from the root", field(u"path"_s, u"/x"_s), u"パス"},
      {"path with a query", field(u"path"_s, u"x?y"_s), u"パス"},
      {"no size", field(u"size"_s, 0), u"範囲外"},
      {"negative size", field(u"size"_s, -1), u"範囲外"},
      {"size as text", field(u"size"_s, u"40000"_s), u"範囲外"},
      {"too large", field(u"size"_s, largestProgramFile + 1), u"範囲外"},
      {"short sum", field(u"sha256"_s, u"00"_s), u"チェックサム"},
      {"no sum", field(u"sha256"_s, QString(64, u'x')), u"チェックサム"},
      {"another sum", field(u"sha256"_s, QString(64, u'0')), u"壊れています: soran", true},
      {"altered file", program(altered), u"壊れています: soran", true},
      {"short file", program(good.chopped(1)), u"壊れています: soran", true},
      {"long file", program(good + "x"), u"soranをダウンロードできません", true},
      {"empty file", program({}), u"soranをダウンロードできません", true},
      {"error page", program("<html>"), u"壊れています: soran", true},
      {"cut file", [](S& s, R&, K&, J&) { s.setDelivery(programAt, {.cutAt = 20'000}); },
       u"soranをダウンロードできません", true},
      {"cut manifest", [](S& s, R&, K&, J&) { s.setDelivery(manifestAt, {.cutAt = 20}); },
       u"更新情報をダウンロードできません"},
  };
  for (const Fault& fault : faults) {
    SCOPED_TRACE(fault.name);
    Release release = Release::of(u"4.32"_s, programs);
    TestKey signer;
    UpdateJob job = installation.job(TestKey().publicKey);
    fault.make(server, release, signer, job);
    offer(release, signer);
    server.clearRequests();
    EXPECT_EQ(run(job), Updater::Outcome::Failed);
    EXPECT_TRUE(told.contains(fault.reason)) << told.toStdString();
    EXPECT_TRUE(told.endsWith(u"更新は行われませんでした。SORAN は元のままです\n"));
    EXPECT_EQ(server.requests().filter(u"/4.32/soran"_s).size() > 0, fault.programAsked);
    expectFormerProgram();
    server.setDelivery(programAt, {});
    server.setDelivery(manifestAt, {});
  }
  EXPECT_FALSE(fileExists(installation.home() + u"/update.version"));
}

TEST_F(UpdaterTest, RefusesWhatTheSignatureDoesNotCover) {
  const QByteArray json = Release::of(u"4.32"_s, programs).json();
  const QByteArray signature = TestKey().sign(json);
  const std::pair<QByteArray, QByteArray> cases[] = {
      {json + ' ', signature},
      {json, signature.chopped(1)},
      {json, signature + '\n'},
      {json, "<html>"},
      {QByteArray(json).replace("4.32", "4.33"), signature},
      {json, signature.toHex()},
      {"<html>", signature},
      {QByteArray(largestManifest + 1, ' '), signature},
  };
  for (const auto& [manifest, sig] : cases) {
    server.setFile(manifestAt, manifest);
    server.setFile(manifestAt + u".sig", sig);
    EXPECT_EQ(run(), Updater::Outcome::Failed);
    EXPECT_TRUE(told.contains(u"署名が正しくありません") ||
                told.contains(u"更新情報をダウンロードできません"));
    expectFormerProgram();
  }
}

TEST_F(UpdaterTest, SaysSoBeforeADownloadWhereThePlaceCannotBeWritten) {
  const auto readOnly = QFile::ReadOwner | QFile::ExeOwner;
  ASSERT_TRUE(QFile::setPermissions(installation.place(), readOnly));
  const auto back =
      qScopeGuard([&] { QFile::setPermissions(installation.place(), readOnly | QFile::WriteOwner); });
  const OrdinaryUser user;
  const Updater::Outcome outcome = run();
  EXPECT_EQ(outcome, Updater::Outcome::Failed);
  EXPECT_TRUE(told.startsWith(u"プログラムの場所に書き込めないため、更新できません")) << told.toStdString();
  EXPECT_EQ(server.requests(), QStringList());
  expectFormerProgram();
}

TEST_F(UpdaterTest, WaitsForTheProgramToEndButNotForEver) {
  FileLock running(installation.home() + u"/soran.lock");
  ASSERT_EQ(running.take(), FileLock::Result::Taken);
  EXPECT_EQ(run(), Updater::Outcome::StillRunning);
  EXPECT_EQ(told, u"SORAN が終了しないため、更新できません\n");
  EXPECT_EQ(server.requests(), QStringList());
  running.release();
  FileLock other(installation.at(u"soran-update.lock"_s));
  ASSERT_EQ(other.take(), FileLock::Result::Taken);
  EXPECT_EQ(run(), Updater::Outcome::Failed);
  EXPECT_TRUE(told.startsWith(u"別の更新が実行中です"));
  other.release();
  EXPECT_EQ(run(), Updater::Outcome::Updated);
}

TEST_F(UpdaterTest, ChangesNothingWhereTheVersionCannotBeReset) {
  const QString database = installation.home() + u"/soran.mdb";
  const QByteArray bytes = bytesOf(database);
  for (const QByteArray& damaged : {QByteArray("<html>"), bytes.first(5000)}) {
    writeWhole(database, damaged);
    EXPECT_EQ(run(), Updater::Outcome::Failed);
    EXPECT_TRUE(told.contains(u"データベースに書き込めません")) << told.toStdString();
    EXPECT_EQ(bytesOf(database), damaged);
    writeWhole(database, bytes);
    expectFormerProgram();
  }
}

TEST_F(UpdaterTest, FindsTheProgramBehindALink) {
  const QString link = installation.path(u"link"_s);
  ASSERT_TRUE(QFile::link(installation.at(u"soran"_s), link));
  UpdateJob job = installation.job(TestKey().publicKey);
  job.program = link;
  EXPECT_EQ(run(job), Updater::Outcome::Updated);
  EXPECT_EQ(bytesOf(installation.at(u"soran"_s)), programs[u"soran"_s]);
  EXPECT_TRUE(QFileInfo(link).isSymLink());
  job.program = installation.path(u"nothing"_s);
  EXPECT_EQ(run(job), Updater::Outcome::Failed);
  EXPECT_TRUE(told.startsWith(u"SORAN のプログラムが見つかりません"));
}

TEST_F(UpdaterTest, AsksTheAddressesOfItsProgram) {
  const UpdateJob job = installation.job({});
  EXPECT_EQ(endpointsOf(job).update, server.baseAddress());
  QDir().mkpath(installation.path(u"share/soran"_s));
  writeWhole(installation.path(u"share/soran/endpoints.ini"_s),
             "[endpoints]\nupdate=./update\nhome=http://home\n");
  EXPECT_EQ(endpointsOf(job).update, server.baseAddress());
  EXPECT_EQ(endpointsOf(job).home, u"http://home"_s);
  QFile::remove(installation.home() + u"/endpoints.ini");
  EXPECT_EQ(QUrl(endpointsOf(job).update), QUrl::fromLocalFile(installation.path(u"share/soran/update"_s)));
}
