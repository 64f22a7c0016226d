// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
// soran-cli as a process.

#include "base/foreign_text.h"
#include "cli/cli_fixture.h"
#include "forms/list_rules.h"

#include <QJsonArray>

using namespace soran;

TEST_F(CliTest, RunTypesLinesAndPrintsTheScreen) {
  Cli run(with({u"run"_s, u"FOO"_s, u"rjtt"_s}));
  EXPECT_EQ(run.end(), 0);
  EXPECT_EQ(QString::fromUtf8(run.readAllStandardOutput()), reports);
  EXPECT_EQ(run.readAllStandardError(), QByteArray());
  EXPECT_FALSE(fileExists(world.path(u"data"_s)));
  Cli ended(with({u"run"_s, u"EXIT"_s, u"RJTT"_s}));
  EXPECT_EQ(ended.end(), 0);
  EXPECT_FALSE(ended.readAllStandardOutput().contains("RJTT"));
}

TEST_F(CliTest, RunTypesItsLinesWhateverVersionIsOut) {
  world.server.setFile(u"/data/version.dat"_s, "4.99\n1.00\n1.00\n");
  for (const bool asks : {false, true}) {
    world.store([&](Tables& tables) { tables.settings().store(key::更新確認メッセージ, asks); });
    Cli run(with({u"run"_s, u"RJTT"_s}));
    EXPECT_EQ(run.end(), 0);
    EXPECT_EQ(QString::fromUtf8(run.readAllStandardOutput()).section(u"DATABASE"_s, 0, 0), reports);
  }
}

TEST_F(CliTest, RunWaitsForTheHoursOfASequence) {
  for (const QString& hour : {u"02"_s, u"03"_s, u"04"_s})
    world.server.setFile(cyclesPath + hour + u"Z.TXT",
                         QString(u"RJTT 24" + hour + u"00Z 00000KT\n").toUtf8());
  Cli run(with({u"run"_s, u"SQ RJTT"_s}));
  EXPECT_EQ(run.end(), 0);
  const QString screen = QString::fromUtf8(run.readAllStandardOutput());
  for (const QString& report : {u"240200Z"_s, u"240300Z"_s, u"240400Z"_s, u"240500Z"_s})
    EXPECT_EQ(screen.count(report), 1) << report.toStdString();
  EXPECT_FALSE(screen.contains(u"LOADING")) << screen.toStdString();
}

TEST_F(CliTest, RunBringsTheReportsOfABoard) {
  world.report(u"RJTT"_s, u"05:00"_s, u"240500Z 33010KT 9999 FEW030 12/03 Q1018"_s);
  for (const QString& line : {u"board"_s, u"MAP"_s}) {
    Cli run(with({u"run"_s, line}));
    EXPECT_EQ(run.end(), 0);
    const QString screen = QString::fromUtf8(run.readAllStandardOutput());
    EXPECT_TRUE(screen.contains(u" RJTT "));
    EXPECT_TRUE(screen.contains(u"NO DATA"_s) && screen.count(u"NO DATA") == 1)
        << screen.toStdString(); // RJAA
    EXPECT_FALSE(screen.contains(u"WEATHER OBSERVATION"));
  }
}

TEST_F(CliTest, TellsByItsStatusWhatWentWrong) {
  const QString elsewhere = world.folder.filePath(u"file"_s);
  writeWhole(elsewhere, "not a directory");
  world.server.setFile(u"/data/version.dat"_s, "<html>");
  const struct {
    QStringList arguments;
    int status;
    QByteArray error; ///< a part of it
  } cases[] = {
      {{}, 2, "no call"},
      {{u"fly"_s}, 2, "fly"},
      {{u"run"_s}, 2, "line"},
      {{u"--home"_s}, 2, "--home"},
      {{u"--nonsense"_s, u"run"_s, u"RJTT"_s}, 2, "--nonsense"},
      {{u"--now"_s, u"2026-11-24T14:20:00"_s, u"run"_s, u"RJTT"_s}, 2, "--now"},
      {{u"--now"_s, u"noon"_s, u"run"_s, u"RJTT"_s}, 2, "--now"},
      {{u"--endpoints"_s, elsewhere + u"s"_s, u"run"_s, u"RJTT"_s}, 2, "endpoints"},
      {{u"session"_s, u"more"_s}, 2, "session"},
      {{u"batch"_s, u"more"_s}, 2, "batch"},
      {{u"--runs"_s, u"batch"_s}, 2, "--runs"},
      {{u"--json"_s, u"batch"_s}, 2, "--json"},
      {{u"check-sources"_s, u"all"_s}, 2, "further"},
      {{u"export"_s}, 2, "export"},
      {with({u"run"_s, u"RJTT"_s}), 1, "インターネットに接続できません"},
      {{u"--home"_s, elsewhere, u"run"_s, u"RJTT"_s}, 1, "ディレクトリ"},
      {{u"--help"_s}, 0, {}},
      {{u"--version"_s}, 0, {}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.arguments.join(u' ').toStdString());
    Cli cli(c.arguments);
    EXPECT_EQ(cli.end(), c.status);
    const QByteArray error = cli.readAllStandardError();
    EXPECT_EQ(error.isEmpty(), c.status == 0) << error.toStdString();
    EXPECT_TRUE(error.contains(c.error)) << error.toStdString();
    EXPECT_EQ(cli.readAllStandardOutput().isEmpty(), c.status != 0);
  }
}

TEST_F(CliTest, OutputThatIsLostIsTold) {
  const struct {
    QByteArray call;
    QByteArray input = {};
  } cases[] = {
      {"run RJTT"}, {"batch", R"({"op":"colour","text":"RJTT"})"}, {"session"}, {"--help"}, {"--version"},
  };
  for (const auto& c : cases) {
    for (const QByteArray output : {" > /dev/full", " >&-", " | true", " > /dev/null"}) {
      SCOPED_TRACE(QByteArray(c.call + output).toStdString());
      // The reader of a pipe is gone before anything is written.
      const QByteArray wait = output == " | true" ? "sleep 0.3; " : "";
      const QByteArray script =
          "{ { " + wait + "\"$0\" --home \"$1\" " + c.call + "; echo $? >&2; } " + output + "; } 2>&1";
      QProcess shell;
      shell.start(u"/bin/sh"_s, {u"-c"_s, QString::fromUtf8(script), commandLine, world.home()});
      shell.write(c.input + '\n');
      shell.closeWriteChannel();
      QElapsedTimer time;
      time.start();
      while (shell.state() != QProcess::NotRunning && time.elapsed() < 20'000)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
      const QByteArray told = shell.readAll();
      const bool isLost = output != " > /dev/null";
      EXPECT_EQ(told.trimmed().endsWith(isLost ? "\n4" : "0"), true) << told.toStdString();
      EXPECT_EQ(told.contains("soran-cli: cannot write the output: "), isLost) << told.toStdString();
    }
  }
}

TEST_F(CliTest, NothingThatMisleadsReachesTheTerminal) {
  writeWhole(world.folder.filePath(u"data.json"_s),
             R"({"format":"SORAN data","version":1,"tables":{"\u001b[2J\u202e":[]},"settings":{}})");
  const struct {
    QStringList call;
    QByteArray input;
    QByteArray shown;
  } cases[] = {
      {with({u"import"_s, world.folder.filePath(u"data.json"_s)}), {}, "·[2J·"},
      {{u"\x1B]0;x\a\u009B\u200B"_s}, {}, "·]0;x···"},
      {{u"batch"_s},
       R"({"op":"x","id":"\u001b\u007f\u009b\u202e\ufeff\ud800\udb40\udc41\u3042\t"})",
       R"("id":"\u001b\u007f\u009b\u202e\ufeff\ud800\udb40\udc41あ\t"})"},
      {with({u"session"_s}), R"({"keys":"\u202eA"})", R"("input":"\u202eA")"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.shown.toStdString());
    Cli cli(c.call);
    cli.send(c.input);
    cli.end();
    const QString told = QString::fromUtf8(cli.readAllStandardOutput() + cli.readAllStandardError());
    EXPECT_TRUE(told.contains(QString::fromUtf8(c.shown))) << told.toStdString();
    EXPECT_EQ(cleaned(told), told);
  }
}

TEST_F(CliTest, ExportAndImportCarryTheUsersDataOver) {
  const QString file = world.folder.filePath(u"data.json"_s);
  const QString page = world.folder.filePath(u"page.json"_s);
  writeWhole(page, "<html>");
  const auto status = [this](const QString& call, const QString& path, const QByteArray& error = {}) {
    Cli cli(with({call, path}));
    const int end = cli.end();
    const QByteArray told = cli.readAllStandardError();
    EXPECT_TRUE(told.contains(error) && told.isEmpty() == error.isEmpty()) << told.toStdString();
    return end;
  };
  const auto route = [this](const QString& stored) {
    world.store([&](Tables& tables) {
      const QList<Group> groups = tables.groupRows();
      EXPECT_EQ(groups.isEmpty() ? QString() : groups[0].route, stored);
    });
  };
  world.store([](Tables& tables) { storeGroups(tables, {{u"TTAA"_s, u"RJTT RJAA"_s}}); });
  EXPECT_EQ(status(u"export"_s, file), 0);
  world.store([](Tables& tables) { storeGroups(tables, {}); });
  EXPECT_EQ(status(u"import"_s, page, "JSON"), 1);
  EXPECT_EQ(status(u"import"_s, world.folder.filePath(u"none"_s), "none"), 1);
  EXPECT_EQ(status(u"import"_s, world.path(u"soran.mdb"_s), "soran.mdb: データベースは読み込めません"), 1);
  EXPECT_EQ(status(u"export"_s, page + u"/below", "below"), 1);
  route({});
  Cli session(with({u"session"_s}));
  session.receive();
  EXPECT_EQ(status(u"import"_s, file, "すでに起動しています"), 1);
  session.end();
  EXPECT_EQ(status(u"import"_s, file), 0);
  route(u"RJTT RJAA"_s);
  writeWhole(world.path(u"soran.mdb"_s), QByteArray("SQLite format 3\0 of another program", 36), true);
  EXPECT_EQ(status(u"export"_s, file, "soran.mdb: 形式が異なります"), 1);
  writeWhole(world.path(u"soran.mdb"_s), "no database");
  EXPECT_EQ(status(u"import"_s, file, "soran.mdb: データベースではありません"), 1);
  QFile::remove(world.path(u"soran.mdb"_s));
  EXPECT_EQ(status(u"import"_s, file, "一度起動すると"), 1);
}

TEST_F(CliTest, OneInstanceForEachHome) {
  Cli first(with({u"session"_s}));
  first.receive();
  Cli second(with({u"session"_s}));
  const QJsonObject state = second.receive();
  EXPECT_TRUE(state[u"ended"].toBool());
  EXPECT_EQ(textsOf(state[u"dialogs"].toArray()), QStringList{u"SORAN はすでに起動しています  "_s});
  EXPECT_EQ(second.end(), 1);
  EXPECT_TRUE(second.readAll().isEmpty());
  Cli run(with({u"run"_s, u"RJTT"_s}));
  EXPECT_EQ(run.end(), 1);
  EXPECT_TRUE(run.readAllStandardError().contains("すでに起動しています"));
  EXPECT_FALSE(first.ask(R"({"type": "RJTT"})")[u"ended"].toBool());
  // One that was killed does not count.
  first.kill();
  first.waitForFinished();
  Cli third(with({u"session"_s}));
  EXPECT_FALSE(third.receive()[u"ended"].toBool());
  third.end();
}

TEST_F(CliTest, BatchAnswersEachJobInOrder) {
  const QByteArray job = R"("op": "layout", "kind": "METAR", "response": "2026/11/24 05:00\nRJTT 240500Z\n")";
  const struct {
    QByteArray line;
    QByteArray answer; ///< the id, where there is one
    bool fails;
  } cases[] = {
      {"{" + job + "}", {}, false},
      {R"({"id": 7, )" + job + "}", "7", false},
      {R"({"id": {"a": [1, null]}, )" + job + "}", R"({"a":[1,null]})", false},
      {R"({"id": null, )" + job + "}", "null", false},
      {R"({"id": "x", "op": "fly"})", R"("x")", true},
      {R"({"id": 8})", "8", true},
      {R"({"id": 9, "more": 1, )" + job + "}", "9", true},
      {R"({"id": 10, "settings": {"ポップアップ": 1}, )" + job + "}", "10", true},
      {R"({"id": 11, "settings": {"ポップアップ": false}, )" + job + "}", "11", false},
      {R"({"id": 12, "op": "layout", "kind": "SPECI", "response": ""})", "12", true},
      {R"({"id": 13, "op": "layout", "kind": "TAF"})", "13", true},
      {R"({"id": 14, "tables": {"設定": []}, )" + job + "}", "14", true},
      {"", {}, true},
      {"[]", {}, true},
      {R"({"id": 15)", {}, true},
  };
  Cli batch({u"batch"_s});
  for (const auto& c : cases)
    batch.send(c.line);
  for (const auto& c : cases) {
    SCOPED_TRACE(c.line.toStdString());
    const QJsonObject answer = batch.receive();
    EXPECT_EQ(answer.contains(u"error"), c.fails);
    EXPECT_EQ(answer.contains(u"result"), !c.fails);
    const QJsonDocument id = QJsonDocument::fromJson("[" + c.answer + "]");
    EXPECT_EQ(answer.contains(u"id"), !c.answer.isEmpty());
    EXPECT_EQ(answer[u"id"], c.answer.isEmpty() ? QJsonValue(QJsonValue::Undefined) : id.array()[0]);
  }
  const QByteArray body(5'000'000, 'x');
  const QJsonObject big =
      batch.ask(R"({"op": "layout", "kind": "METAR", "response": "2026/11/24 05:00\nRJTT )" + body + R"("})");
  EXPECT_EQ(big[u"result"].toObject()[u"body"].toString().size(), body.size() + 6);
  EXPECT_EQ(big[u"result"].toObject()[u"obsTime"].toString(), u"1400I");
  // What was recorded of jobs that do not name the key stays as it was.
  const QByteArray report =
      R"({"op":"translate","code":"RJTY","time":"0546Z","body":"CALM CAVOK 29/25 A2996 RMK SLP145")";
  EXPECT_TRUE(batch.ask(report + "}")[u"result"].toString().contains(u" 914.5"));
  EXPECT_TRUE(
      batch.ask(report + R"(,"settings":{"規約読み":true}})")[u"result"].toString().contains(u" 1014.5"));
  EXPECT_EQ(batch.end(), 0);
}

TEST_F(CliTest, BatchKnowsNoTimeZoneOfItsMachine) {
  qputenv("TZ", "America/New_York"); // an hour that is left out there
  Cli batch({u"batch"_s});
  qunsetenv("TZ");
  const QJsonObject answer =
      batch.ask(R"({"op": "chart", "item": "menu_chart_today", "index": 3, "now": "2026-03-08T02:30:00"})");
  EXPECT_TRUE(answer.contains(u"result")) << answer[u"error"].toString().toStdString();
  batch.end();
}

TEST_F(CliTest, LinksNoLibraryThatAStartDoesNotNeed) {
  QProcess ldd;
  ldd.start(u"ldd"_s, {commandLine});
  ASSERT_TRUE(ldd.waitForFinished());
  // Ours, and what stands behind Qt's core and the database on any system that we know.
  QStringList needed = {u"linux-vdso"_s,  u"ld-linux-x86-64"_s,      u"libc"_s,         u"libm"_s,
                        u"libdl"_s,       u"libpthread"_s,           u"librt"_s,        u"libgcc_s"_s,
                        u"libstdc++"_s,   u"libQt6Core"_s,           u"libsqlcipher"_s, u"libcrypto"_s,
                        u"libsodium"_s,   u"libicui18n"_s,           u"libicuuc"_s,     u"libicudata"_s,
                        u"libglib-2"_s,   u"libdouble-conversion"_s, u"libb2"_s,        u"libgomp"_s,
                        u"libpcre2-16"_s, u"libpcre2-8"_s,           u"libzstd"_s,      u"libz"_s,
                        u"libatomic"_s};
#ifdef __SANITIZE_ADDRESS__
  needed += {u"libasan"_s, u"libubsan"_s};
#endif
  QStringList others;
  const QStringList lines = QString::fromUtf8(ldd.readAll()).split(u'\n', Qt::SkipEmptyParts);
  for (const QString& line : lines) {
    const QString name = line.trimmed().section(u' ', 0, 0).section(u'/', -1);
    if (!needed.contains(name.section(u'.', 0, 0)))
      others.append(name);
  }
  EXPECT_GT(lines.size(), 10);
  EXPECT_EQ(others, QStringList());
}
