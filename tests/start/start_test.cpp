// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "start/opening.h"

#include "fakes/bare_program.h"

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

/// A start of the program, up to its terminal.
class StartRun : public BareProgram {
 public:
  using BareProgram::BareProgram;
  bool start() {
    result = opening.start();
    return result == Opening::Result::Started;
  }

  Opening opening{program};
  Opening::Result result = Opening::Result::NoDirectory;
};

} // namespace

TEST(Start, EndsWithoutTheUpdateEndpoint) {
  for (const Answer& answer : {Answer{}, Answer{.body = "<html>"}, Answer{.body = "gone", .status = 500}}) {
    World world;
    world.prepare();
    world.server.setAnswer(u"/data/version.dat"_s, answer);
    StartRun run(world);
    EXPECT_FALSE(run.start());
    EXPECT_EQ(run.result, Opening::Result::NoNetwork);
    EXPECT_EQ(run.desk.takeSeen().forms, QStringList{u"noconnectmsg"_s});
    EXPECT_EQ(run.asked(), QStringList{u"/data/version.dat"_s});
    EXPECT_EQ(run.screen(), QString());
  }
}

TEST(Start, NeedsNoUpdateEndpointWhereTheProbeAnswers) {
  World world;
  world.prepare();
  world.report(u"RJTT"_s, u"05:00"_s, u"240500Z"_s);
  world.endpoints.probe = world.endpoints.metar + u"RJTT.TXT";
  world.server.setAnswer(u"/data/version.dat"_s, {.body = "gone", .status = 500});
  StartRun run(world);
  ASSERT_TRUE(run.start());
  EXPECT_TRUE(run.program.networkAvailable);
}

TEST(Start, RestoresALostDatabase) {
  const QByteArray whole = delivered::file(u"update/data/soran.mdb"_s);
  const struct {
    const char* name;
    std::optional<QByteArray> database;
    bool backup;
    QByteArray served;
    QString notice;
  } cases[] = {
      {"missing, backup", {}, true, whole, u"DATABASE RESTORED FROM BACKUP"_s},
      {"missing, first start", {}, false, whole, {}},
      {"missing, page served", {}, false, "<html>", {}},
      {"empty", QByteArray(""), false, "", u"DATABASE RESTORED FROM DELIVERED FILE"_s},
      {"garbage, backup", QByteArray(9000, 'x'), true, whole, u"DATABASE RESTORED FROM BACKUP"_s},
      {"garbage", QByteArray(9000, 'x'), false, whole, u"DATABASE RESTORED FROM DELIVERED FILE"_s},
      {"garbage, garbage served", QByteArray(9000, 'x'), false, QByteArray(9000, 'y'),
       u"DATABASE RESTORED FROM DELIVERED FILE"_s},
      {"cut", whole.left(whole.size() / 2), true, whole, u"DATABASE RESTORED FROM BACKUP"_s},
      {"damaged inside", QByteArray(whole).replace(20000, 9000, QByteArray(9000, 'x')), true, whole,
       u"DATABASE RESTORED FROM BACKUP"_s},
  };
  const auto check = [](const auto& c, const QString& copy) {
    SCOPED_TRACE(c.name + (" " + copy.toStdString()));
    World world;
    world.prepare([](Tables& tables) { tables.settings().store(key::起動回数, 33); });
    const QString database = world.path(u"soran.mdb"_s);
    QFile::rename(database, database + copy);
    if (!c.backup)
      QFile::remove(database + copy);
    if (c.database)
      writeWhole(database, *c.database);
    world.server.setFile(u"/data/soran.mdb"_s, c.served);
    StartRun run(world);
    ASSERT_TRUE(run.start());
    EXPECT_EQ(run.opening.notice().split(crlf.toString()).first(), c.notice);
    EXPECT_EQ(run.program.settings()[key::起動回数], c.backup ? 33 : 0);
    EXPECT_EQ(QDir(world.home()).entryList({u"soran.mdb.damaged-*"_s}).size() == 1, c.database.has_value());
    EXPECT_FALSE(fileExists(database + u".new"));
    EXPECT_EQ(QFile::permissions(database) & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
    EXPECT_TRUE(run.program.settings().store(key::雲高1, 1));
  };
  for (const auto& c : cases) {
    for (const QString& copy : {u".bak"_s, u".day"_s})
      check(c, copy);
  }
}
