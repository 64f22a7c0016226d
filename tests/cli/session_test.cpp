// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
// soran-cli session as a process.

#include "cli/cli_fixture.h"

#include <QJsonArray>

using namespace soran;

TEST_F(CliTest, SessionTellsItsStateBehindEachEvent) {
  Cli session(with({u"session"_s}));
  QJsonObject state = session.receive();
  QStringList fields = state.keys();
  EXPECT_EQ(fields, (QStringList{u"asked"_s,    u"caret"_s,  u"currentInput"_s, u"dialogs"_s, u"ended"_s,
                                 u"event"_s,    u"forms"_s,  u"from"_s,         u"input"_s,   u"log"_s,
                                 u"pad"_s,      u"pages"_s,  u"panel1"_s,       u"panel2"_s,  u"prints"_s,
                                 u"requests"_s, u"screen"_s, u"sounds"_s,       u"sources"_s, u"staging"_s,
                                 u"timers"_s,   u"tip"_s,    u"update"_s}));
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
  session.ask(R"({"table": "空港別制限", "rows": [{"ICAOコード": "rjtt", "条件": 2, "横風": 20}]})");
  EXPECT_TRUE(session.ask(R"({"type": "LIMITS"})")[u"screen"].toString().contains(
      u"COND   VIS    RVR    CIG    WIND   GUST   XWIND  WX\r\n"
      "RJTT   2      -      -      -      -      -      20     -\r\n"_s));
  state = session.ask(R"({"read": "空港別制限"})");
  EXPECT_EQ(state[u"rows"][0][u"横風"], 20);
  EXPECT_TRUE(state[u"rows"][0][u"視程"].isNull());
  session.ask(R"({"table": "自動デコード", "rows": []})");
  state = session.ask(R"({"read": "設定"})");
  const QJsonObject row = state[u"rows"].toArray()[0].toObject();
  EXPECT_EQ(row.size(), qsizetype(settingSpecs.size()));
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
                                R"({"table": "空港別制限", "rows": [["RJTT", "1"]]})",
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
            (QStringList{u"ファイルに書き出すことができませんでした　　\r\n\r\n"_s + world.home() +
                             u"/none/x\r\nフォルダーがありません",
                         u"DATA EXPORT COMMAND"_s}));
  EXPECT_EQ(choose("menu_import", "null", ""), QStringList{u"DATA IMPORT COMMAND"_s});
  EXPECT_EQ(choose("menu_import", "\"none\"", ""),
            (QStringList{u"ファイルを開くことができませんでした　　\r\n\r\n"_s + world.home() +
                             u"/none\r\nファイルがありません",
                         u"DATA IMPORT COMMAND"_s}));
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

TEST_F(CliTest, SessionTellsThePathsOfAFolder) {
  const QString folder = world.path(u"endpoint"_s);
  ASSERT_TRUE(QDir().mkpath(folder + u"/data"));
  writeWhole(folder + u"/data/version.dat", "4.31\n0.00\n0.00\n");
  const QUrl address = QUrl::fromLocalFile(folder);
  writeWhole(world.path(u"endpoints.ini"_s), "[endpoints]\nupdate=" + address.toEncoded() + '\n');
  Cli session(with({u"session"_s}));
  const QStringList requests = textsOf(session.receive()[u"requests"].toArray());
  EXPECT_EQ(requests.value(0), address.path(QUrl::FullyEncoded) + u"/data/version.dat");
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
