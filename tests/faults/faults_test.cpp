// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The programs are killed, or get errors, at one call on a file after the other: whatever the moment, a plain
// start then finds a whole database with the user's rows and a whole program.

#include "fakes/release.h"
#include "fakes/updating.h"
#include "faults/faulty_run.h"
#include "reports/airport_limits.h"
#include "start/opening.h"
#include "support/own_folder.h"
#include "support/printing.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <gmock/gmock.h>

using namespace soran;
using namespace Qt::StringLiterals;
using ::testing::AnyOf;
using ::testing::ElementsAre;

namespace {

const std::vector<FaultKind> changing = {FaultKind::Kill, FaultKind::Torn, FaultKind::Full, FaultKind::Error};
const std::vector<FaultKind> everyKind = {
    FaultKind::Kill,   FaultKind::Torn,   FaultKind::Full,   FaultKind::Error, FaultKind::Eio,
    FaultKind::Enospc, FaultKind::Emfile, FaultKind::Eacces, FaultKind::Eintr, FaultKind::Short};
constexpr int limit = 4321;
const QList<Group> mine = {{u"MINE"_s, u"RJTT"_s}};
const QList<Group> edited = [] {
  QList<Group> groups;
  for (int i = 0; i < 200; ++i)
    groups.append({u"GROUP"_s + QString::number(i), u"RJAA"_s});
  return groups;
}();

/// The events of a session by which the groups are edited, and three settings at once.
QByteArray editingOf(const QList<Group>& groups) {
  QJsonArray rows;
  for (const Group& group : groups)
    rows.append(QJsonArray{group.id, group.route});
  return QJsonDocument(QJsonObject{{u"table"_s, u"カンパニー"_s}, {u"rows"_s, rows}})
             .toJson(QJsonDocument::Compact) +
         "\n{\"set\": {\"視程1\": 77, \"視程2\": 77, \"視程3\": 77}}\n";
}

/// The limits of an airport, and the event of a session by which they are edited.
QList<AirportLimits> limitsOf(int crosswind) {
  return {{.code = u"RJTT"_s, .condition = 2, .crosswind = crosswind, .weather = u"TS"_s}};
}
const QByteArray editingOfLimits =
    R"({"table": "空港別制限", "rows": [{"ICAOコード": "RJTT", "条件": 2, "横風": 30, "天気": "TS"}]})"
    "\n";

/// What is done with the program, and what holds then beside the user's rows.
struct Deed {
  const char* name;
  std::function<void(Tables&)> before = {};
  QStringList call = {u"run"_s, u"CLS"_s};
  QByteArray input = {};
  QList<Group> groups = mine;                 ///< what the groups may be beside those from before
  bool renews = false;                        ///< the module and the database become those of the endpoint
  bool isFirst = false;                       ///< there is nothing yet
  QList<AirportLimits> limits = limitsOf(20); ///< what they may be beside those from before
};

const Deed deeds[] = {
    {"Renewal",
     [](Tables& tables) {
       tables.settings().store(key::DBバージョン, 0.0);
       tables.settings().store(key::UPDATEバージョン, 0.5);
     },
     {u"run"_s, u"CLS"_s},
     {},
     mine,
     true},
    {"FirstStart", {}, {u"run"_s, u"CLS"_s}, {}, mine, true, true},
    {"Reset", {}, {u"run"_s, u"RESET"_s}},
    {"Compaction", [](Tables& tables) { tables.settings().store(key::起動回数, 60); }},
    {"Editing", {}, {u"session"_s}, editingOf(edited), edited},
    {"Limits", {}, {u"session"_s}, editingOfLimits, mine, false, false, limitsOf(30)},
    {"FirstLimits",
     [](Tables& tables) { tables.database().execute(u"DROP TABLE 空港別制限"_s); },
     {u"session"_s},
     editingOfLimits,
     mine,
     false,
     false,
     {}},
    {"Watch", {}, {u"session"_s}, "{\"type\": \"RJTT\"}\n{\"tick\": 200}\n{\"type\": \"SQ RJTT\"}\n"},
};

class FaultsTest : public ::testing::TestWithParam<std::tuple<Deed, FaultKind>> {
 protected:
  FaultsTest() {
    const QString folder = desk.path(u"../endpoint"_s);
    QDir().mkpath(folder + u"/data");
    const QByteArray delivered = desk.database([](Tables& t) {
      t.rewrite(table::日本語解析, {{1, u"NEW"_s, u"新"_s}});
    });
    for (const auto& [name, bytes] : {std::pair{u"soran.mdb"_s, delivered},
                                      {u"update.exe"_s, QByteArray(50'000, 'm')},
                                      {u"update.exe.sig"_s, "new signature"},
                                      {u"error.wav"_s, "sound"},
                                      {u"ring.wav"_s, "sound"},
                                      {u"version.dat"_s, "4.31\n1.00\n1.00\n"}})
      EXPECT_TRUE(writeWhole(folder + u"/data/" + name, bytes));
    writeWhole(folder + u"/data/RJTT.TXT", "2026/11/24 05:00\nRJTT 240500Z 36010KT\n");
    desk.endpoints.update = QUrl::fromLocalFile(QDir::cleanPath(folder)).toString();
  }

  /// The directory of a user with a group, limits, and a backup from before both.
  void prepare(const Deed& deed) {
    desk.clearHome();
    const QByteArray reports = desk.endpoints.update.toUtf8() + "/data/";
    for (const QString& folder : {u"data"_s, u"sound"_s})
      QDir().mkpath(desk.path(folder));
    writeWhole(desk.path(u"endpoints.ini"_s), "[endpoints]\nupdate=" + desk.endpoints.update.toUtf8() +
                                                  "\nprobe=\nmetar=" + reports + "\ntaf=" + reports +
                                                  "\ncycles=" + reports + '\n');
    writeWhole(desk.path(u"notes.txt"_s), "the user's own");
    if (deed.isFirst)
      return;
    for (const auto& [name, bytes] : {std::pair{u"soran.mdb"_s, Updating::deliveredDatabase()},
                                      {u"soran.mdb.bak"_s, Updating::deliveredDatabase()},
                                      {u"sound/error.wav"_s, "sound"},
                                      {u"sound/ring.wav"_s, "sound"},
                                      {u"update.exe"_s, "former module"},
                                      {u"update.exe.sig"_s, "former signature"},
                                      {u".soran"_s, "mark"}})
      ASSERT_TRUE(writeWhole(desk.path(name), bytes, true));
    Tables tables;
    tables.openAllTables(desk.path(u"soran.mdb"_s));
    Settings& settings = tables.settings();
    settings.store(key::SORANバージョン, 4.31);
    settings.store(key::DBバージョン, 1.0);
    settings.store(key::UPDATEバージョン, 1.0);
    settings.store(key::BASEurl, desk.endpoints.update);
    settings.store(key::雲高1, limit);
    tables.rewrite(table::カンパニー, {{1, mine[0].id, mine[0].route}});
    tables.rewrite(table::空港別制限, {storedRow(limitsOf(20)[0], 1)});
    if (deed.before)
      deed.before(tables);
  }

  void expectAllWhole(const Deed& deed) {
    ASSERT_TRUE(deed.isFirst || isWholeDatabase(desk.path(u"soran.mdb"_s)));
    Program program(desk.services());
    Opening opening(program);
    ASSERT_EQ(opening.start(), Opening::Result::Started);
    EXPECT_EQ(opening.notice(), QString());
    if (!deed.isFirst) {
      EXPECT_THAT(program.tables.groupRows(), AnyOf(mine, deed.groups));
      const QList<AirportLimits> before = deed.limits.isEmpty() ? limitsOf(30) : limitsOf(20);
      EXPECT_THAT(program.tables.limitRows(), AnyOf(before, deed.limits));
      EXPECT_EQ(program.settings()[key::雲高1], limit);
      const auto visibility = program.settings()[key::視程1];
      EXPECT_EQ(program.settings()[key::視程2] == visibility, visibility == 77);
      EXPECT_EQ(program.settings()[key::視程3] == visibility, visibility == 77);
    }
    EXPECT_EQ(desk.bytes(u"notes.txt"_s), "the user's own");
    EXPECT_FALSE(desk.bytes(u"endpoints.ini"_s).isEmpty());
    EXPECT_TRUE(deed.isFirst || !desk.bytes(u"soran.mdb.bak"_s).isEmpty());
    // What the fault kept from being done, this start has done.
    EXPECT_EQ(program.settings()[key::DBバージョン], 1.0);
    EXPECT_EQ(program.settings()[key::UPDATEバージョン], 1.0);
    EXPECT_EQ(desk.bytes(u"sound/error.wav"_s), "sound");
    EXPECT_EQ(desk.bytes(u"sound/ring.wav"_s), "sound");
    if (!deed.renews)
      return;
    EXPECT_THAT(program.tables.phraseRows(), ElementsAre(DictionaryEntry{u"NEW"_s, u"新"_s}));
    EXPECT_EQ(desk.bytes(u"update.exe"_s), QByteArray(50'000, 'm'));
    EXPECT_EQ(desk.bytes(u"update.exe.sig"_s), "new signature");
  }

  Updating desk;
};

} // namespace

TEST_P(FaultsTest, LeaveAWholeDatabaseWithTheUsersRows) {
  const auto& [deed, kind] = GetParam();
  const FaultyRun cli(QString::fromUtf16(SORAN_CLI), QStringList{u"--home"_s, desk.home()} + deed.call,
                      desk.home(), deed.input);
  prepare(deed);
  const QStringList calls = cli.calls(kind);
  ASSERT_GT(calls.size(), 10);
  expectAllWhole(deed);
  const std::vector<qsizetype> tries = faultsWorthTrying(calls, kind);
  RecordProperty("tries", int(tries.size()));
  for (const qsizetype at : tries) {
    prepare(deed);
    cli.run(kind, at);
    expectAllWhole(deed);
    ASSERT_FALSE(HasFailure()) << "call " << at << ": " << calls[at - 1].toStdString();
  }
}

INSTANTIATE_TEST_SUITE_P(All, FaultsTest,
                         ::testing::Combine(::testing::ValuesIn(deeds), ::testing::ValuesIn(everyKind)),
                         [](const auto& test) {
                           return std::string(std::get<0>(test.param).name) +
                                  std::string(nameOf(std::get<1>(test.param)));
                         });

namespace {

const QMap<QString, QByteArray> newPrograms = {{u"soran"_s, QByteArray(70'000, 'n')},
                                               {u"soran-cli"_s, QByteArray(50'000, 'm')},
                                               {u"soran-update"_s, QByteArray(20'000, 'u')}};

class UpdateFaultsTest : public ::testing::TestWithParam<FaultKind> {};

} // namespace

TEST_P(UpdateFaultsTest, LeaveAWholeProgram) {
  const OwnFolder folder;
  const QString endpoint = folder.filePath(u"endpoint"_s);
  const QMap<QString, QByteArray> served = Release::of(u"4.32"_s, newPrograms).served(TestKey());
  for (auto i = served.cbegin(); i != served.cend(); ++i) {
    QDir().mkpath(QFileInfo(endpoint + i.key()).path());
    ASSERT_TRUE(writeWhole(endpoint + i.key(), i.value()));
  }
  std::unique_ptr<Installation> installation;
  const auto module = [&] {
    installation = std::make_unique<Installation>();
    installation->setEndpoint(QUrl::fromLocalFile(endpoint).toString());
    return FaultyRun(QString::fromUtf16(SORAN_TEST_MODULE),
                     {u"--home"_s, installation->home(), u"--program"_s, installation->at(u"soran"_s)},
                     installation->path(u""_s), {});
  };
  const QStringList calls = module().calls(GetParam());
  ASSERT_GT(calls.size(), 10);
  for (const qsizetype at : faultsWorthTrying(calls, GetParam())) {
    module().run(GetParam(), at);
    for (auto i = installation->former.cbegin(); i != installation->former.cend(); ++i)
      EXPECT_THAT(bytesOf(installation->at(i.key())), AnyOf(i.value(), newPrograms[i.key()]));
    // A program that is new has a version that its next start records.
    const bool isNew = bytesOf(installation->at(u"soran"_s)) == newPrograms[u"soran"_s];
    EXPECT_THAT(installation->storedVersion(), AnyOf(0, isNew ? 0 : 4.31));
    // What ended in the middle is in the way of no later update.
    EXPECT_THAT(Updater(installation->job(TestKey().publicKey), [](const QString&) {}).run(),
                AnyOf(Updater::Outcome::Updated, Updater::Outcome::Current));
    for (auto i = newPrograms.cbegin(); i != newPrograms.cend(); ++i)
      EXPECT_EQ(bytesOf(installation->at(i.key())), i.value());
    for (auto i = installation->former.cbegin(); i != installation->former.cend(); ++i)
      EXPECT_EQ(bytesOf(installation->at(i.key() + u".former")), i.value());
    EXPECT_EQ(installation->storedVersion(), 0);
    ASSERT_FALSE(HasFailure()) << "call " << at << ": " << calls[at - 1].toStdString();
  }
}

INSTANTIATE_TEST_SUITE_P(All, UpdateFaultsTest, ::testing::ValuesIn(changing),
                         [](const auto& test) { return std::string(nameOf(test.param)); });
