// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
// soran-cli as a process.

#include "terminal/harness.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>
#include <csignal>

using namespace soran;

namespace {

const QString commandLine = QString::fromUtf16(SORAN_CLI);

/// soran-cli with its input; the endpoint of this process serves it meanwhile.
class Cli : public QProcess {
 public:
  explicit Cli(const QStringList& arguments) {
    start(commandLine, arguments);
    EXPECT_TRUE(waitForStarted());
  }
  void send(const QByteArray& line) { write(line + '\n'); }
  /// The next line of the output as an object; empty where none came.
  QJsonObject receive() {
    serveWhile([this] { return state() != NotRunning && !canReadLine(); });
    return QJsonDocument::fromJson(readLine()).object();
  }
  QJsonObject ask(const QByteArray& line) {
    send(line);
    return receive();
  }
  int end() {
    closeWriteChannel();
    serveWhile([this] { return state() != NotRunning; });
    return exitStatus() == NormalExit ? exitCode() : -1;
  }

 private:
  static void serveWhile(const std::function<bool()>& waits) {
    QElapsedTimer time;
    time.start();
    while (waits() && time.elapsed() < 20'000)
      QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
  }
};

class CliTest : public ::testing::Test {
 protected:
  CliTest() {
    world.prepare([](Tables& tables) {
      storeAutoList(tables, {{u"RJTT"_s, u"羽田"_s}, {u"RJAA"_s, u"成田"_s}});
    });
    world.report(u"RJTT"_s, u"05:00"_s, u"240500Z 33010KT"_s, u"240500Z 2406/2512 33010KT"_s);
    const Endpoints& e = world.endpoints;
    const QString ini = u"[endpoints]\nupdate="_s + e.update + u"\nhome=" + e.home + u"\nmetar=" + e.metar +
                        u"\ntaf=" + e.taf + u"\ncycles=" + e.cycles + u'\n';
    writeWhole(world.path(u"endpoints.ini"_s), ini.toUtf8());
  }
  QStringList with(const QStringList& call) const {
    return QStringList{u"--home"_s, world.home(), u"--now"_s, u"2026-11-24T14:20:00+09:00"_s} + call;
  }

  World world;
};

const QString reports = u"*** RJTT - WEATHER OBSERVATION AND FORECASTS ***\n\nRJTT  METAR 1400I\n"
                        "      240500Z 33010KT\n\nRJTT  TAF   1400I\n      240500Z 2406/2512 33010KT\n\n\n"
                        "READY / PRESS ESC TO EXIT\n"_s;

} // namespace

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

TEST_F(CliTest, SessionTellsItsStateBehindEachEvent) {
  Cli session(with({u"session"_s}));
  QJsonObject state = session.receive();
  QStringList fields = state.keys();
  EXPECT_EQ(fields, (QStringList{u"caret"_s,  u"currentInput"_s, u"dialogs"_s, u"ended"_s,    u"event"_s,
                                 u"forms"_s,  u"input"_s,        u"log"_s,     u"pad"_s,      u"pages"_s,
                                 u"panel1"_s, u"panel2"_s,       u"prints"_s,  u"requests"_s, u"screen"_s,
                                 u"sounds"_s, u"staging"_s,      u"timers"_s,  u"tip"_s,      u"update"_s}));
  EXPECT_EQ(state[u"event"].toInt(), 0);
  EXPECT_EQ(state[u"screen"].toString(), u"SYSTEM INITIALIZED\r\nDATABASE CONNECTION COMPLETED\r\n");
  EXPECT_EQ(textsOf(state[u"requests"].toArray()),
            (QStringList{u"/data/version.dat"_s, u"/data/server.dat"_s, u"/data/version.dat"_s}));
  EXPECT_EQ(textsOf(state[u"log"].toArray()),
            (QStringList{u"SYSTEM  CONNECTED  KSD  DATABASE"_s, u"SYSTEM  LOGIN"_s, u"SYSTEM  LOAD"_s}));
  EXPECT_EQ(
      state[u"timers"].toObject(),
      (QJsonObject{{u"Timer"_s, true}, {u"Timer2"_s, true}, {u"Timer4"_s, false}, {u"timer1"_s, false}}));
  EXPECT_TRUE(state[u"tip"].isNull());

  session.ask(R"({"keys": "rjt"})");
  session.ask(R"({"key": "Backspace"})");
  state = session.ask(R"({"keys": "tt"})");
  EXPECT_EQ(state[u"pad"].toString(), u"rjtt");
  EXPECT_EQ(state[u"event"].toInt(), 3);
  state = session.ask(R"({"key": "Enter"})");
  EXPECT_EQ(state[u"screen"].toString().remove(u'\r').append(u'\n'), reports);
  EXPECT_EQ(state[u"staging"].toString() + ready, state[u"screen"].toString());
  EXPECT_EQ(state[u"caret"].toInt(), state[u"screen"].toString().size());
  EXPECT_EQ(state[u"currentInput"].toString(), u"RJTT");
  EXPECT_EQ(textsOf(state[u"requests"].toArray()),
            (QStringList{stationsPath + u"RJTT.TXT", forecastsPath + u"RJTT.TXT"}));
  EXPECT_EQ(textsOf(state[u"log"].toArray()).mid(0, 3),
            (QStringList{u"RJTT TAF   RECEIVED"_s, u"RJTT METAR RECEIVED"_s, u"MANUAL DECODE"_s}));

  session.ask(R"({"printer": ["OFFICE", "TOWER"]})");
  session.ask(R"({"choose": "TOWER"})");
  state = session.ask(R"({"type": "PRINT"})");
  EXPECT_EQ(state[u"prints"].toArray()[0].toObject()[u"printer"].toString(), u"TOWER");
  EXPECT_EQ(textsOf(state[u"forms"].toArray()), QStringList{u"printerselect"_s});

  session.ask(R"({"set": {"自動デコード有効": false}})");
  session.ask(R"({"answer": ["yes"]})");
  state = session.ask(R"({"type": "ATO"})");
  EXPECT_EQ(
      state[u"dialogs"].toArray(),
      (QJsonArray{QJsonObject{{u"kind"_s, u"question"_s},
                              {u"title"_s, u" 確認"_s},
                              {u"text"_s, u"自動デコードが無効になっています　　\r\r有効にしますか？"_s},
                              {u"answer"_s, u"yes"_s}}}));
  EXPECT_EQ(state[u"currentInput"].toString(), u"RJTT RJAA");
  world.report(u"RJTT"_s, u"05:15"_s, u"240515Z 33010KT"_s);
  state = session.ask(R"({"tick": 80})");
  EXPECT_EQ(textsOf(state[u"sounds"].toArray()), QStringList{u"ring.wav"_s});
  EXPECT_EQ(textsOf(state[u"forms"].toArray()), QStringList{u"datachange"_s});
  EXPECT_TRUE(state[u"panel2"].toString().endsWith(u"14:20(I)"_s));
  EXPECT_EQ(session.ask(R"({"minimise": true})")[u"forms"].toArray(), QJsonArray{u"taskicon"_s});
  EXPECT_TRUE(session.ask(R"({"minimise": false})")[u"timers"].toObject()[u"timer1"].toBool());

  session.send({});
  EXPECT_TRUE(session.receive().contains(u"error"));
  EXPECT_EQ(session.end(), 0);
  state = QJsonDocument::fromJson(session.readLine()).object();
  EXPECT_TRUE(state[u"ended"].toBool());
  EXPECT_FALSE(session.canReadLine());
}

TEST_F(CliTest, SessionReadsAndWritesTables) {
  Cli session(with({u"session"_s}));
  session.receive();
  session.ask(R"({"table": "カンパニー", "rows": [[" ttaa ", "rjtt rjaa"], ["X", ""], ["Y", "RJTT"]]})");
  QJsonObject state = session.ask(R"({"read": "カンパニー"})");
  EXPECT_EQ(state[u"rows"].toArray(),
            (QJsonArray{QJsonObject{{u"順位"_s, 1}, {u"id"_s, u"TTAA"_s}, {u"route"_s, u"RJTT RJAA"_s}},
                        QJsonObject{{u"順位"_s, 3}, {u"id"_s, u"Y"_s}, {u"route"_s, u"RJTT"_s}}}));
  session.ask(R"({"table": "自動デコード", "rows": []})");
  state = session.ask(R"({"read": "設定"})");
  const QJsonObject row = state[u"rows"].toArray()[0].toObject();
  EXPECT_EQ(row.size(), 72);
  EXPECT_EQ(row[u"自動デコード有効"], QJsonValue(false));
  EXPECT_EQ(row[u"SORANバージョン"], QJsonValue(u"4.31"_s));
  EXPECT_EQ(row[u"バッファ"], QJsonValue(10));
  session.ask(R"({"set": {"時差": "-5", "バッファ": 3, "ポップアップ": false}})");
  session.ask(R"({"set": {"視程1": -32768, "視程2": 32767, "視程1の色": 16777215}})");
  session.end();
  world.store([](Tables& tables) {
    EXPECT_EQ(tables.settings()[key::時差], u"-5"_s);
    EXPECT_EQ(tables.settings()[key::バッファ], 3);
    EXPECT_EQ(tables.settings()[key::視程1], -32768);
    EXPECT_EQ(tables.settings()[key::視程2], 32767);
    EXPECT_EQ(tables.settings()[key::ポップアップ], false);
    EXPECT_EQ(tables.settings()[key::起動回数], 1);
  });
}

TEST_F(CliTest, SessionAnswersBadLinesWithAnErrorAlone) {
  Cli session(with({u"session"_s}));
  const QJsonObject first = session.receive();
  for (const QByteArray line : {"",
                                "nonsense",
                                "[]",
                                "3",
                                "{",
                                "{}",
                                "\xff\xfe",
                                R"({"tpye": "RJTT"})",
                                R"({"type": 3})",
                                R"({"type": "RJTT", "x": 1})",
                                R"({"type": "RJTT", "keys": "x"})",
                                R"({"key": "enter"})",
                                R"({"tick": -1})",
                                R"({"tick": 1.5})",
                                R"({"tick": "3"})",
                                R"({"tick": 1e99})",
                                R"({"answer": ["maybe"]})",
                                R"({"answer": "yes"})",
                                R"({"set": {"存在しない": 1}})",
                                R"({"set": {"ポップアップ": 1}})",
                                R"({"set": {"バッファ": 3, "時差": 9}})",
                                R"({"set": {"ポップアップ": false, "バッファ": 32768}})",
                                R"({"set": {"視程1": -32769}})",
                                R"({"set": []})",
                                R"({"table": "設定", "rows": []})",
                                R"({"table": "カンパニー", "rows": [["X"]]})",
                                R"({"table": "カンパニー", "rows": [["X", 1]]})",
                                R"({"table": "カンパニー"})",
                                R"({"read": "表"})",
                                R"({"choose": 1})",
                                R"({"close": false})",
                                R"({"minimise": 1})",
                                R"({"printer": "X"})"}) {
    const QJsonObject answer = session.ask(line);
    EXPECT_EQ(answer.keys(), QStringList{u"error"_s}) << line.toStdString();
  }
  EXPECT_EQ(session.ask(R"({"type": "RJTT", "id": 7})").value(u"id"), 7);
  const QJsonObject last = session.ask(R"({"tick": 0})");
  EXPECT_EQ(last[u"event"].toInt(), 1);
  EXPECT_EQ(last[u"screen"], first[u"screen"]);
  EXPECT_EQ(last[u"log"], first[u"log"]);
  EXPECT_TRUE(session.ask(R"({"type": "EXIT"})")[u"ended"].toBool());
  EXPECT_EQ(session.end(), 0);
  world.store([](Tables& tables) {
    EXPECT_EQ(tables.settings()[key::バッファ], 10);
    EXPECT_EQ(tables.settings()[key::ポップアップ], true);
  });
}

TEST_F(CliTest, SessionReadsTheSettingsAgainWhenTheirFormCloses) {
  Cli session(with({u"session"_s, u"--runs"_s}));
  session.receive();
  const auto base = [](const QJsonObject& state) { return state[u"runs"][0][2].toInt(); };
  const auto probes = [&session](const QByteArray& seconds) {
    return !session.ask(R"({"tick": )" + seconds + "}")[u"requests"].toArray().isEmpty();
  };
  QJsonObject state = session.ask(R"({"set": {"バッファ": 1, "表示文字の色": 255}})");
  EXPECT_EQ(base(state), 0xFFFFFF);
  EXPECT_TRUE(probes("20"));
  EXPECT_TRUE(probes("20"));
  state = session.ask(R"({"menu": "menu_option"})");
  EXPECT_EQ(textsOf(state[u"forms"].toArray()), QStringList{u"opton"_s});
  EXPECT_EQ(base(state), 255);
  // The wait that has begun is still the former one.
  EXPECT_TRUE(probes("20"));
  EXPECT_FALSE(probes("109"));
  EXPECT_TRUE(probes("1"));
  EXPECT_EQ(session.end(), 0);
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
  EXPECT_EQ(status(u"export"_s, page + u"/below", "below"), 1);
  route({});
  Cli session(with({u"session"_s}));
  session.receive();
  EXPECT_EQ(status(u"import"_s, file, "すでに起動しています"), 1);
  session.end();
  EXPECT_EQ(status(u"import"_s, file), 0);
  route(u"RJTT RJAA"_s);
}

TEST_F(CliTest, SessionExportsAndImportsByItsMenus) {
  Cli session(with({u"session"_s, u"--runs"_s}));
  session.receive();
  const auto choose = [&session](const QByteArray& menu, const QByteArray& file, const QByteArray& answer) {
    session.ask(R"({"choose": )" + file + "}");
    session.ask(R"({"answer": [)" + answer + "]}");
    const QJsonObject state = session.ask(R"({"menu": ")" + menu + R"("})");
    return textsOf(state[u"dialogs"].toArray()) + QStringList{state[u"log"][0].toString()};
  };
  const auto setting = [&session](QStringView column) {
    return session.ask(R"({"read": "設定"})")[u"rows"][0][column].toInt();
  };
  const QString done = u"データを書き出しました　　"_s;
  const QString again = u"SORAN.json はすでに存在します  \r\r上書きしますか？　　"_s;
  const QString replace = u"現在のリストと設定を置き換えますか？　　"_s;
  session.ask(R"({"set": {"表示文字の色": 255}})");
  EXPECT_EQ(choose("menu_export", "null", ""), QStringList{u"DATA EXPORT COMMAND"_s});
  EXPECT_EQ(choose("menu_export", "\"SORAN.json\"", ""), (QStringList{done, u"DATA EXPORT COMPLETED"_s}));
  session.ask(R"({"set": {"表示文字の色": 127}})");
  EXPECT_EQ(choose("menu_export", "\"SORAN.json\"", "\"no\""),
            (QStringList{again, u"DATA EXPORT COMMAND"_s}));
  EXPECT_EQ(choose("menu_export", "\"none/x\"", ""),
            (QStringList{u"ファイルに書き出すことができませんでした　　"_s, u"DATA EXPORT COMMAND"_s}));
  EXPECT_EQ(choose("menu_import", "null", ""), QStringList{u"DATA IMPORT COMMAND"_s});
  EXPECT_EQ(choose("menu_import", "\"none\"", ""),
            (QStringList{u"ファイルを開くことができませんでした　　"_s, u"DATA IMPORT COMMAND"_s}));
  EXPECT_EQ(choose("menu_import", "\"endpoints.ini\"", "\"yes\"").last(), u"CANCEL DATA IMPORT COMMAND");
  EXPECT_EQ(choose("menu_import", "\"SORAN.json\"", "\"no\""),
            (QStringList{replace, u"DATA IMPORT COMMAND"_s}));
  EXPECT_EQ(setting(u"表示文字の色"), 127);
  EXPECT_EQ(choose("menu_import", "\"SORAN.json\"", "\"yes\""),
            (QStringList{replace, u"データを読み込みました　　"_s, u"DATA IMPORT COMPLETED"_s}));
  EXPECT_EQ(setting(u"表示文字の色"), 255);
  // The screen follows at once.
  EXPECT_EQ(session.ask(R"({"tick": 0})")[u"runs"][0][2].toInt(), 255);
  EXPECT_EQ(session.end(), 0);
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
  ::kill(static_cast<pid_t>(first.processId()), SIGKILL);
  first.waitForFinished();
  Cli third(with({u"session"_s}));
  EXPECT_FALSE(third.receive()[u"ended"].toBool());
  third.end();
}

TEST_F(CliTest, SessionTellsThePathsOfAFolder) {
  const QString folder = world.path(u"endpoint"_s);
  ASSERT_TRUE(QDir().mkpath(folder + u"/data"));
  writeWhole(folder + u"/data/version.dat", "4.31\n0.00\n0.00\n");
  writeWhole(world.path(u"endpoints.ini"_s),
             "[endpoints]\nupdate=" + QUrl::fromLocalFile(folder).toEncoded() + '\n');
  Cli session(with({u"session"_s}));
  const QStringList requests = textsOf(session.receive()[u"requests"].toArray());
  EXPECT_EQ(requests.value(0), folder + u"/data/version.dat");
  session.end();
}

TEST_F(CliTest, SessionWithoutNetworkGivesOneLine) {
  world.server.stop();
  Cli session(with({u"session"_s}));
  const QJsonObject state = session.receive();
  EXPECT_TRUE(state[u"ended"].toBool());
  EXPECT_EQ(textsOf(state[u"forms"].toArray()), QStringList{u"noconnectmsg"_s});
  EXPECT_EQ(session.end(), 1);
}

TEST_F(CliTest, SessionWaitsBehindThePassiveNotice) {
  world.server.setFile(u"/data/version.dat"_s, "4.99\n1.00\n1.00\n");
  world.store([](Tables& tables) { tables.settings().store(key::起動時にバージョン確認, false); });
  for (const bool ends : {false, true}) {
    Cli session(with({u"session"_s, u"--runs"_s}));
    QJsonObject state = session.receive();
    EXPECT_TRUE(state[u"screen"].toString().contains(u"download a latest version 4.99\r\n"_s));
    EXPECT_EQ(state[u"runs"].toArray()[1].toArray(), (QJsonArray{18, 162, 65535, false}));
    EXPECT_FALSE(state[u"timers"].toObject()[u"Timer"].toBool());
    if (ends) {
      EXPECT_EQ(session.end(), 0);
      state = QJsonDocument::fromJson(session.readLine()).object();
    } else {
      state = session.ask(R"({"key": "Enter"})");
      EXPECT_TRUE(state[u"timers"].toObject()[u"Timer"].toBool());
      session.end();
    }
    EXPECT_EQ(state[u"event"].toInt(), 1);
    EXPECT_EQ(state[u"ended"].toBool(), ends);
  }
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

TEST_F(CliTest, LinksNoLibraryOfAWindow) {
  QProcess ldd;
  ldd.start(u"ldd"_s, {commandLine});
  ASSERT_TRUE(ldd.waitForFinished());
  const QByteArray libraries = ldd.readAll();
  EXPECT_TRUE(libraries.contains("libQt6Core"));
  for (const char* name : {"Qt6Gui", "Qt6Widgets", "Qt6WebEngine", "Qt6Multimedia", "libX11", "libwayland"})
    EXPECT_FALSE(libraries.contains(name)) << name;
}

TEST_F(CliTest, FetchesALongListOverOneConnection) {
  QStringList codes;
  for (int i = 0; i < 40; ++i) {
    codes.append(u"RJ"_s + QChar(u'A' + i / 26) + QChar(u'A' + i % 26));
    world.report(codes.last(), u"05:00"_s, u"240500Z"_s, u"240500Z"_s);
  }
  world.server.setDelivery(u"/pub/"_s, {.delay = 10});
  Cli run(with({u"run"_s, codes.join(u' ')}));
  QElapsedTimer time;
  time.start();
  EXPECT_EQ(run.end(), 0);
  EXPECT_EQ(run.readAllStandardOutput().count("  METAR 1400I"), 40);
  EXPECT_EQ(world.server.connections(), 1);
  RecordProperty("milliseconds", static_cast<int>(time.elapsed()));
}
