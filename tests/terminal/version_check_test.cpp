// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/updating.h"
#include "start/hand_over.h"
#include "support/printing.h"
#include "terminal/terminal.h"

#include <gmock/gmock.h>

using namespace soran;
using namespace Qt::StringLiterals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

const QString question431 = u" 確認 | SORAN は Version 4.32 にアップデートされています　　\r\r"
                            "最新版をダウンロードしますか？  "_s;
const QString notice =
    u"\r\nNow you can download a latest version 4.32\r\n"
    "For download, keep network connection and select menu UPDATE or type 'UPDATE' out.\r\n"
    "\r\nTo continue, hit ENTER key. \r\n"_s;

/// A started program whose endpoint is then asked for a newer version.
class VersionCheckTest : public ::testing::Test {
 protected:
  VersionCheckTest() {
    writeWhole(desk.path(u"soran.mdb"_s), Updating::deliveredDatabase(), true);
    writeWhole(desk.path(u"update.exe"_s), "module", true);
    program.tables.openAllTables(desk.path(u"soran.mdb"_s));
    program.settings().store(key::SORANバージョン, 4.31);
    program.settings().store(key::自動デコード有効, false);
    program.networkAvailable = true;
    desk.waiting.onWait = [this] { terminal.handleKey(u'\r'); };
  }

  void start() {
    terminal.guarded([this] { terminal.start({}); });
  }
  void check() {
    terminal.cycle().enableWatch(true);
    desk.dialogs();
    terminal.guarded([this] { terminal.versionCheck().onDemand(); });
  }
  void type(QStringView line) {
    for (const QChar c : line)
      terminal.handleKey(c);
    terminal.handleKey(u'\r');
  }
  QString newestLog() { return program.console.log().rows().front().message; }

  Updating desk;
  Program program{desk.services()};
  Terminal terminal{program};
};

} // namespace

TEST_F(VersionCheckTest, TellsWhatItFound) {
  start();
  const QString latest = u" 情報 | 最新版の SORAN がインストールされています　　"_s;
  const QString unreliable =
      u" 確認 | ネットワーク回線が不安定なため、ダウンロードすることができませんでした　　"_s;
  const struct {
    const char* name;
    Answer answer;
    Delivery delivery;
    QString log;
    QString dialog;
    bool watchGoesOn;
  } cases[] = {
      {"page", {.body = "<html>"}, {}, u"NOT FOUND FILES ON FTP SERVER"_s, latest, true},
      {"page not found",
       {.body = "<html>", .status = 404},
       {},
       u"NOT FOUND FILES ON FTP SERVER"_s,
       latest,
       true},
      {"the same",
       {.body = "4.31\n1\n1\n"},
       {},
       u"ALREADY INSTALLED LATEST VERSION"_s,
       latest + u"\r\n\r\n                Version 4.31",
       true},
      {"four characters count",
       {.body = "4.319\n1\n1\n"},
       {},
       u"ALREADY INSTALLED LATEST VERSION"_s,
       latest + u"\r\n\r\n                Version 4.31",
       true},
      {"newer", {.body = "4.32\n1\n1\n"}, {}, u"FOUND LATEST VERSION ON FTP SERVER"_s, question431, false},
      {"older is another one too",
       {.body = "4.30"},
       {},
       u"FOUND LATEST VERSION ON FTP SERVER"_s,
       QString(question431).replace(u"4.32"_s, u"4.30"_s),
       false},
      {"empty",
       {},
       {},
       u"FOUND LATEST VERSION ON FTP SERVER"_s,
       QString(question431).replace(u"4.32"_s, QString()),
       false},
      {"cut",
       {.body = "4.32\n1\n1\n"},
       {.cutAt = 2},
       u"CANCEL DOWNLOAD DUE TO NETWORK UNRELIABLE"_s,
       unreliable,
       false},
      {"refused",
       {.body = "no", .status = 403},
       {},
       u"CANCEL DOWNLOAD DUE TO NETWORK UNRELIABLE"_s,
       unreliable,
       false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    desk.server.setAnswer(u"/data/version.dat"_s, c.answer);
    desk.server.setDelivery(u"/data/version.dat"_s, c.delivery);
    check();
    EXPECT_EQ(newestLog(), c.log);
    EXPECT_THAT(desk.dialogs(), ElementsAre(c.dialog));
    EXPECT_EQ(terminal.cycle().watchEnabled(), c.watchGoesOn);
    EXPECT_FALSE(terminal.ended());
    EXPECT_FALSE(terminal.updaterRequested());
  }
}

TEST_F(VersionCheckTest, AYesEndsTheProgramToHandOver) {
  start();
  desk.setVersions("4.32\n1\n1\n");
  desk.run.desk.dialogs.answers = {true};
  check();
  EXPECT_TRUE(terminal.ended());
  EXPECT_TRUE(terminal.updaterRequested());
}

TEST_F(VersionCheckTest, AModuleThatMayNotRunIsNotHandedTo) {
  program.services.endpoints.signedUpdates = true;
  start();
  desk.setVersions("4.32\n1\n1\n");
  desk.run.desk.dialogs.answers = {true};
  check();
  EXPECT_FALSE(terminal.ended());
  EXPECT_FALSE(terminal.updaterRequested());
  EXPECT_TRUE(program.console.screen().text().contains(notice));
}

TEST_F(VersionCheckTest, TheTypedUpdateAlwaysAsks) {
  start();
  type(u"UPDATE");
  EXPECT_EQ(program.settings()[key::SORANバージョン], 0.0);
  EXPECT_TRUE(program.console.screen().text().contains(u"AUTO UPDATE READY\r\n"));
  EXPECT_THAT(desk.dialogs(), ElementsAre(QString(question431).replace(u"4.32"_s, u"4.31"_s)));
  EXPECT_FALSE(terminal.updaterRequested());
  desk.run.desk.dialogs.answers = {true};
  terminal.handleKey(u'\r'); // the word is still there
  EXPECT_TRUE(terminal.ended());
  EXPECT_TRUE(terminal.updaterRequested());
}

namespace {

struct StartCase {
  const char* name;
  QByteArray versions;
  bool check; ///< 起動時にバージョン確認
  bool ask;   ///< 更新確認メッセージ
  bool yes = false;
  bool module = true;
  QByteArray outcome = {}; ///< what came of the update out of which the program was started
  bool asked = false;
  bool handedOver = false;
  bool noticed = false;
  int status = 200;
  bool signedOnly = false;
};

class VersionAtStartTest : public VersionCheckTest, public ::testing::WithParamInterface<StartCase> {
 protected:
  ~VersionAtStartTest() override { qunsetenv(updateOutcome); }
};

const StartCase startCases[] = {
    {"Same", "4.31\n", true, true},
    {"SameNumber", "4.310\n", true, true},
    {"Page", "<html>", true, false},
    {.name = "Failed", .versions = "4.32\n", .check = true, .ask = false, .status = 500},
    {"AskedNo", "4.32\n", true, true, false, true, {}, true},
    {"AskedYes", "4.32\n", true, true, true, true, {}, true, true},
    {"Silent", "4.32\n", true, false, false, true, {}, false, true},
    {"WholeNumberCounts", "4.319\n", true, true, false, true, {}, true},
    {"EmptyAnswerIsVersionZero", "", true, true, false, true, {}, true},
    {"Passive", "4.32\n", false, true, true, true, {}, false, false, true},
    {"PassiveSame", "4.31\n", false, true},
    {"WithoutModule", "4.32\n", true, false, false, false, {}, false, false, true},
    {"WithoutModuleAskedYes", "4.32\n", true, true, true, false, {}, true, false, true},
    {"WithoutModuleAskedNo", "4.32\n", true, true, false, false, {}, true},
    {.name = "UnsignedModule",
     .versions = "4.32\n",
     .check = true,
     .ask = false,
     .noticed = true,
     .signedOnly = true},
    {"BehindAFailedUpdate", "4.32\n", true, false, false, true, "failed", false, false, true},
    {"BehindAnUpdate", "4.32\n", true, false, false, true, "done", false, false, true},
};

} // namespace

TEST_P(VersionAtStartTest, AsksTellsOrHandsOver) {
  const StartCase& c = GetParam();
  if (!c.outcome.isEmpty())
    qputenv(updateOutcome, c.outcome);
  if (!c.module)
    QFile::remove(desk.path(u"update.exe"_s));
  program.settings().store(key::起動時にバージョン確認, c.check);
  program.settings().store(key::更新確認メッセージ, c.ask);
  desk.server.setAnswer(u"/data/version.dat"_s, {.body = c.versions, .status = c.status});
  program.services.endpoints.signedUpdates = c.signedOnly;
  desk.run.desk.dialogs.answers = {c.yes};
  start();
  EXPECT_EQ(terminal.updaterRequested(), c.handedOver);
  EXPECT_EQ(terminal.ended(), c.handedOver);
  EXPECT_EQ(desk.dialogs().size(), c.asked ? 1 : 0);
  EXPECT_EQ(desk.waiting.waits, c.noticed ? 1 : 0);
  EXPECT_EQ(program.console.screen().text().contains(notice), c.noticed);
  EXPECT_EQ(program.console.screen().text().contains(u"PROGRAM UPDATE FAILED"), c.outcome == "failed");
}

INSTANTIATE_TEST_SUITE_P(Start, VersionAtStartTest, ::testing::ValuesIn(startCases),
                         [](const auto& test) { return std::string(test.param.name); });
