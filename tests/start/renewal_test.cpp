// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/updating.h"
#include "start/opening.h"
#include "support/printing.h"

#include <gmock/gmock.h>

using namespace soran;
using namespace Qt::StringLiterals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class RenewalTest : public ::testing::Test {
 protected:
  /// A start of the program; what it held is looked at behind it.
  Opening::Result start() {
    program = std::make_unique<Program>(desk.services());
    Opening opening(*program);
    const Opening::Result result = opening.start();
    notice = opening.notice();
    return result;
  }
  Settings& settings() { return program->settings(); }

  Updating desk;
  std::unique_ptr<Program> program;
  QString notice;
};

} // namespace

TEST_F(RenewalTest, TheFirstStartFetchesAllAndTellsOfTheDatabase) {
  ASSERT_EQ(start(), Opening::Result::Started);
  EXPECT_THAT(desk.dialogs(), ElementsAre(u" 確認 | データベースを初期化しました　　"_s));
  EXPECT_EQ(desk.bytes(u"update.exe"_s), "module");
  EXPECT_EQ(desk.bytes(u"update.exe.sig"_s), "signature");
  EXPECT_EQ(desk.bytes(u"sound/error.wav"_s), "sound");
  EXPECT_EQ(desk.bytes(u"sound/ring.wav"_s), "sound");
  EXPECT_EQ(program->record().value(SettingIndex::SORANバージョン).toString(), u"4.31");
  EXPECT_EQ(settings()[key::SORAN更新日], u"2026/11/24"_s);
  EXPECT_EQ(settings()[key::UPDATEバージョン], 1.0);
  EXPECT_EQ(settings()[key::DBバージョン], 1.0);
  EXPECT_EQ(settings()[key::DB更新日], u"2026/11/24"_s);
  EXPECT_EQ(settings()[key::BASEurl], desk.server.baseAddress());
  EXPECT_EQ(notice, QString());

  desk.server.clearRequests();
  ASSERT_EQ(start(), Opening::Result::Started);
  EXPECT_THAT(desk.server.requests(), ElementsAre(u"/data/version.dat"_s, u"/data/server.dat"_s));
  EXPECT_THAT(desk.dialogs(), IsEmpty());
}

TEST_F(RenewalTest, ADemonstrationBeginsWithoutANoticeAndIsRenewedAsAnyOther) {
  desk.demonstration = true;
  ASSERT_EQ(start(), Opening::Result::Started);
  EXPECT_THAT(desk.dialogs(), IsEmpty());
  EXPECT_EQ(settings()[key::DBバージョン], 1.0);
  EXPECT_FALSE(fileExists(desk.path(u"soran.mdb.bak"_s)));
  desk.setVersions("4.31\n1.00\n1.10\n");
  settings().store(key::更新確認メッセージ, true);
  ASSERT_EQ(start(), Opening::Result::Started);
  EXPECT_THAT(desk.dialogs(), ElementsAre(u" 更新 | データベースを更新しました　　\r\n\r\nVersion 1.1"_s));
}

TEST_F(RenewalTest, ADeclinedUpdateRecordsTheVersionAgain) {
  ASSERT_EQ(start(), Opening::Result::Started);
  settings().store(key::SORANバージョン, 0.0);
  ASSERT_EQ(start(), Opening::Result::Started);
  EXPECT_EQ(settings()[key::SORANバージョン], 4.31);
}

TEST_F(RenewalTest, VersionsThatAreMissingCountAsZero) {
  ASSERT_EQ(start(), Opening::Result::Started);
  desk.dialogs();
  desk.setVersions("4.31\n");
  for (int times = 0; times < 2; ++times) {
    ASSERT_EQ(start(), Opening::Result::Started);
    EXPECT_EQ(settings()[key::DBバージョン], 0.0);
    EXPECT_EQ(settings()[key::UPDATEバージョン], 0.0);
  }
}

TEST_F(RenewalTest, OnlyAnAddressIsTakenFromTheServer) {
  const QString own = desk.server.baseAddress();
  const struct {
    QByteArray answer;
    QString address;
  } cases[] = {
      {"http://127.0.0.1:1", u"http://127.0.0.1:1"_s},
      {"https://soran.example/a", u"https://soran.example/a"_s},
      {"https://soran.example\r\n", u"https://soran.example"_s},
      {"file:///srv/soran", u"file:///srv/soran"_s},
      {"", own},
      {"<html>", own},
      {"  \n", own},
      {"nonsense", own},
      {"http://a.example\nhttp://b.example", own},
      {"http://a.example\r\nX: y", own},
      {"ftp://soran.example", own},
      {"javascript:alert(1)", own},
      {"soran.example", own},
      {"http://", own},
      {"http://soran.example/", own},
      {"http://a b", own},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.answer.toStdString());
    desk.server.setFile(u"/data/server.dat"_s, c.answer);
    ASSERT_EQ(start(), Opening::Result::Started);
    EXPECT_EQ(program->baseUrl, c.address);
    EXPECT_EQ(settings()[key::BASEurl], c.address);
  }
  desk.server.setDelivery(u"/data/server.dat"_s, {.cutHead = true});
  ASSERT_EQ(start(), Opening::Result::Started);
  EXPECT_EQ(program->baseUrl, own);
}

TEST_F(RenewalTest, AJournalWithoutItsDatabaseIsPutAside) {
  ASSERT_EQ(start(), Opening::Result::Started);
  settings().store(key::DBバージョン, 0.0);
  ASSERT_EQ(start(), Opening::Result::Started); // leaves a backup
  program.reset();
  // It would be rolled back into what comes in its place.
  const QString database = desk.path(u"soran.mdb"_s);
  QFile::remove(database);
  writeWhole(database + u"-journal", "what a killed write left");
  ASSERT_EQ(start(), Opening::Result::Started);
  EXPECT_TRUE(notice.startsWith(u"DATABASE RESTORED FROM BACKUP\r\nCOPY OF "));
  const QStringList aside = QDir(desk.path(QString())).entryList({u"soran.mdb.damaged-*-journal"_s});
  EXPECT_EQ(desk.bytes(aside.value(0)), "what a killed write left");
}
