// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/sequence.h"

#include "harness.h"
#include "runs/cycle_files.h"

#include <map>

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

SettingsRecord zone(const QString& offset, bool local, int span = 3) {
  SettingsRecord settings = SettingsRecord::standard(offset);
  settings.set(key::LOCAL使用, local);
  settings.set(key::シーケンス時間, span);
  return settings;
}

QString initialScreen() {
  return u"SYSTEM INITIALIZED\r\nDATABASE CONNECTION COMPLETED\r\n"_s;
}
const QString title = u"*** RJTT - SEQUENCE WEATHER OBSERVATION ***\r\n"_s;

/// A run at 10:20 of Japan, 01:20 UTC: the window is 22, 23, 00 and 01.
class SequenceRunTest : public ::testing::Test {
 protected:
  SequenceRunTest() {
    world.clock = SetClock(QDateTime::fromString(u"2026-11-24T10:20:00+09:00"_s, Qt::ISODate));
    world.prepare();
  }
  void file(const QString& hour, const QByteArray& text) {
    writeWhole(world.path(u"data/" + hour + u".dat"), text);
  }

  World world;
  ProgramRun run{world};
};

} // namespace

TEST(Sequence, WindowWrapsAtMidnight) {
  const struct {
    QTime now;
    SettingsRecord settings;
    int machine;
    std::vector<int> hours;
  } cases[] = {
      {{14, 20}, zone(u"+9"_s, true), 0, {2, 3, 4, 5}},
      {{10, 0}, zone(u"+9"_s, true), 0, {22, 23, 0, 1}},
      {{8, 59}, zone(u"+9"_s, true, 1), 0, {22, 23}},
      {{5, 20}, zone(u"+9"_s, false), 0, {2, 3, 4, 5}},
      {{5, 20}, zone(u"+9"_s, false), 9, {17, 18, 19, 20}},
      {{20, 0}, zone(u"-5"_s, true), 0, {22, 23, 0, 1}},
      {{0, 0}, zone(u"±0"_s, true, 0), 0, {0}},
      {{0, 0}, zone(u"±0"_s, true, -3), 0, {0}},
  };
  for (const auto& c : cases) {
    std::vector<int> hours;
    for (const UtcHour hour : sequenceHours(c.now, c.settings, {c.machine}))
      hours.push_back(hour.value);
    EXPECT_EQ(hours, c.hours) << c.now.toString().toStdString();
  }
  for (const int span : {23, 24, 30000})
    EXPECT_EQ(sequenceHours({12, 0}, zone(u"±0"_s, true, span), {}).size(), 24U);
  const struct {
    int hour;
    SettingsRecord settings;
    QString label;
  } labels[] = {{7, zone(u"+9"_s, false), u"0700Z"_s},
                {5, zone(u"+9"_s, true), u"1400I"_s},
                {20, zone(u"+9"_s, true), u"0500I"_s},
                {2, zone(u"-5"_s, true), u"0-300R"_s},
                {15, zone(u"-5"_s, true), u"1000R"_s}};
  for (const auto& c : labels)
    EXPECT_EQ(sequenceHourLabel({c.hour}, c.settings), c.label);
}

TEST(Sequence, BuildsTheBlockOfAStation) {
  const QString nothing = u"2026/11/24 05:00\n"_s;
  const struct {
    const char* name;
    std::map<int, QByteArray> files; ///< of the hours 4 and 5
    std::optional<QString> latest;
    QString block;
    bool missing = false;
    bool tagged = false; ///< a station before this one had its latest report tagged
  } cases[] = {
      {"refused", {{4, "RJTT 240400Z A\n"}, {5, ""}}, {}, u"\r\nRJTT  NOT FOUND\r\n"_s},
      {"in order, duplicates dropped",
       {{4, "2026/11/24 04:00\nRJTT 240430Z B\nRJTT 240400Z A\n\nRJTT 240430Z COR\n"},
        {5, "RJTT 240400Z AGAIN\nRJTT 240515Z C\n"}},
       u"2026/11/24 05:15\nRJTT 240515Z C\n"_s,
       u"\r\nRJTT  METAR 0430Z\r\n      240430Z B\r\n\r\nRJTT  METAR 0400Z\r\n      240400Z A\r\n"
       "\r\nRJTT  SPECI 0515Z\r\n      240515Z C\r\n"_s},
      {"latest added without a line end of its own",
       {{4, "RJTT 240400Z A\n"}, {5, ""}},
       u"2026/11/24 05:00\nRJTT 240500Z C\n"_s,
       u"\r\nRJTT  METAR 0400Z\r\n      240400Z A\r\n\r\nRJTT  METAR 0500Z (LATEST ISSUED)\r\n      240500Z C\n"_s},
      {"no data, never of the last hour",
       {{4, "RJAA 240400Z A\n"}, {5, ""}},
       nothing,
       u"\r\nRJTT  NO DATA AT 0400Z\r\n"_s},
      {"missing files",
       {{5, "RJTT 240500Z A\n"}},
       nothing,
       u"\r\nRJTT  LOADING SEQUENCE DATA AT 0400Z\r\n\r\nRJTT  METAR 0500Z\r\n      240500Z A\r\n"_s,
       true},
      {"only duplicates gave nothing",
       {{4, "RJTT 240300Z A\n"}, {5, "RJTT 240300Z A\n"}},
       nothing,
       u"\r\nRJTT  METAR 0300Z\r\n      240300Z A\r\n"_s},
      {"a short line that stands in an earlier key, and one that does not",
       {{4, "RJTT 240400Z A\nRJTT 2404\n"}, {5, "RJTT 2405\nRJTT\n"}},
       nothing,
       u"\r\nRJTT  METAR 0400Z\r\n      240400Z A\r\n\r\nRJTT  METAR 05Z\r\n      2405\r\n"_s},
      {"wherever the code stands, last line without line end",
       {{4, "METAR RJTT 240400Z A RJTT\nXRJTT 240410Z B"}, {5, ""}},
       nothing,
       u"\r\nRJTT  METAR 0400Z\r\n      240400Z A RJTT\r\n\r\nRJTT  SPECI 0410Z\r\n      240410Z B\r\n"_s},
      {"every line bears the tag once it was set",
       {{4, "RJTT 240400Z A\n"}, {5, ""}},
       nothing,
       u"\r\nRJTT  METAR 0400Z (LATEST ISSUED)\r\n      240400Z A\r\n"_s,
       false,
       true},
      {"short file",
       {{4, "RJTT 240400Z A\n"}, {5, ""}},
       QString(),
       u"\r\nRJTT  METAR 0400Z\r\n      240400Z A\r\n"_s},
      {"not UTF-8",
       {{4, "RJTT 240400Z \xe9\n"}, {5, ""}},
       nothing,
       u"\r\nRJTT  METAR 0400Z\r\n      240400Z é\r\n"_s},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    const StationCode station(u"RJTT"_s);
    std::map<UtcHour, CycleFile> files;
    for (const auto& [hour, text] : c.files)
      files.emplace(UtcHour{hour}, CycleFile(text, std::vector{station}));
    bool latestShown = c.tagged;
    const SequenceBlock block = sequenceBlock(
        station, 0, c.latest, {{4}, {5}},
        [&files](UtcHour hour) { return files.contains(hour) ? &files.at(hour) : nullptr; },
        zone(u"+9"_s, false), latestShown);
    EXPECT_EQ(block.text, c.block);
    EXPECT_EQ(block.missingFile, c.missing);
    EXPECT_EQ(latestShown, c.tagged || c.block.contains(u"(LATEST ISSUED)"_s));
  }
}

TEST_F(SequenceRunTest, ShowsTheWindowOverMidnight) {
  ASSERT_TRUE(run.begin());
  file(u"22"_s, "RJTT 232200Z A\nRJAA 232200Z D\n");
  file(u"23"_s, "RJTT 232300Z B\n");
  file(u"00"_s, "RJAA 240000Z E\n");
  file(u"01"_s, "RJTT 240115Z C\n");
  world.report(u"RJTT"_s, u"01:18"_s, u"240118Z L"_s);
  world.report(u"RJAA"_s, u"00:00"_s, u"240000Z E"_s);
  run.program.console.setPanel(2, u"元"_s);
  QString during;
  run.onRequest = [&](const QString&) { during = run.panel2(); };
  run.type(u"SQ RJTT RJAA"_s);
  EXPECT_EQ(run.screen(), title +
                              u"\r\nRJTT  METAR 0700I\r\n      232200Z A\r\n\r\nRJTT  METAR 0800I\r\n"
                              "      232300Z B\r\n\r\nRJTT  NO DATA AT 0900I\r\n\r\nRJTT  SPECI 1015I\r\n"
                              "      240115Z C\r\n\r\nRJTT  SPECI 1018I (LATEST ISSUED)\r\n      240118Z L\n"
                              "\r\n*** RJAA - SEQUENCE WEATHER OBSERVATION ***\r\n"
                              "\r\nRJAA  METAR 0700I (LATEST ISSUED)\r\n      232200Z D\r\n"
                              "\r\nRJAA  NO DATA AT 0800I\r\n"
                              "\r\nRJAA  METAR 0900I (LATEST ISSUED)\r\n      240000Z E\r\n"_s +
                              ready);
  EXPECT_EQ(run.logged(), (QStringList{u"MANUAL DECODE"_s, u"CALL SEQUENCE RJTT RJAA"_s}));
  EXPECT_EQ(run.asked(), (QStringList{u"M/RJTT"_s, u"M/RJAA"_s}));
  EXPECT_EQ(run.program.currentInput, u"SQ RJTT RJAA");
  EXPECT_EQ(during, u"データ シーケンス取得中");
  EXPECT_EQ(run.panel2(), u"元");
  EXPECT_FALSE(run.terminal.cycle().retryEnabled());
}

TEST_F(SequenceRunTest, RetriesUntilTheFilesHaveCome) {
  world.report(u"RJTT"_s, u"01:00"_s, u"240100Z L"_s);
  for (const QString& hour : {u"22"_s, u"23"_s, u"00"_s, u"01"_s})
    world.server.setFile(cyclesPath + hour + u"Z.TXT", QString(u"RJTT 24" + hour + u"00Z X\n").toUtf8());
  ASSERT_TRUE(run.begin());
  run.terminal.cycle().enableWatch(false);
  run.program.console.setPanel(2, u"元"_s);
  run.type(u"SQ RJTT"_s);
  EXPECT_EQ(run.screen().count(u"  LOADING SEQUENCE DATA AT "), 4);
  EXPECT_EQ(run.panel2(), u"データ シーケンス取得中");
  EXPECT_TRUE(run.terminal.cycle().retryEnabled());
  run.asked();
  run.tick(2);
  EXPECT_TRUE(run.asked().isEmpty());
  run.tick(1);
  EXPECT_EQ(run.asked(), QStringList{u"M/RJTT"_s});
  EXPECT_TRUE(run.screen().endsWith(ready + crlf));
  run.tick(8 * 3);
  EXPECT_EQ(run.asked(), QStringList(8, u"M/RJTT"_s));
  // After the tenth retry the files are fetched even with the cycle stopped.
  run.tick(3);
  EXPECT_EQ(run.asked(), (QStringList{u"M/RJTT"_s, u"C/22"_s, u"C/23"_s, u"C/00"_s, u"C/01"_s, u"C/01"_s}));
  run.tick(3);
  EXPECT_FALSE(run.screen().contains(u"LOADING"));
  EXPECT_TRUE(run.screen().contains(u"RJTT  METAR 0900I\r\n      240000Z X\r\n"));
  EXPECT_EQ(run.panel2(), u"元");
  EXPECT_FALSE(run.terminal.cycle().retryEnabled());
}

TEST_F(SequenceRunTest, ShowsItsOwnRecord) {
  world.report(u"RJTT"_s, u"01:00"_s, u"240100Z 10010KT,9999 A"_s);
  world.report(u"RJAA"_s, u"01:15"_s, u"240115Z 20010KT\n     MORE"_s);
  ASSERT_TRUE(run.begin());
  run.program.settings().store(key::シーケンス表示, false);
  run.type(u"SQ RJTT"_s);
  EXPECT_EQ(run.screen(), initialScreen() + crlf + u"NO SEQUENCE DATA" + crlf + ready);
  EXPECT_EQ(run.logged(), QStringList{u"MANUAL DECODE"_s});
  run.type(u"RJTT RJAA RJTT"_s);
  world.report(u"RJTT"_s, u"01:10"_s, u"240110Z 30010KT"_s);
  run.type(u"RJTT"_s);
  run.logged();
  run.type(u"SQ RJTT RJAA RJSN"_s);
  EXPECT_EQ(run.screen(),
            title +
                u"\r\nRJTT  METAR 1000I\r\n240100Z 10010KT\r\n\r\nRJTT  SPECI 1010I\r\n240110Z 30010KT\r\n"
                "\r\n*** RJAA - SEQUENCE WEATHER OBSERVATION ***\r\n"
                "\r\nRJAA  SPECI 1015I\r\n240115Z 20010KT\r\nMORE\r\n"
                "\r\n*** RJSN - SEQUENCE WEATHER OBSERVATION ***\r\n\r\nRJSN  NO SEQUENCE DATA\r\n"_s +
                ready);
  EXPECT_EQ(run.logged(), (QStringList{u"MANUAL DECODE"_s, u"CALL SEQUENCE RJTT RJAA RJSN"_s}));
}

TEST_F(SequenceRunTest, RenewsCycleFilesOnceInTenMinutes) {
  QByteArray body = "RJTT 240000Z X\n";
  world.server.setHandler(cyclesPath, [&body](const QUrl&) { return std::optional(Answer{.body = body}); });
  ASSERT_TRUE(run.begin());
  const auto refresh = [&] {
    refreshCycleFiles(run.program);
    return run.asked();
  };
  const auto stored = [&](const QString& hour) {
    QFile f(world.path(u"data/" + hour + u".dat"));
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("none");
  };
  world.server.setDelivery(cyclesPath + u"23", {.cutAt = 3});
  EXPECT_EQ(refresh(), (QStringList{u"C/22"_s, u"C/23"_s, u"C/00"_s, u"C/01"_s, u"C/01"_s}));
  EXPECT_EQ(stored(u"22"_s), body + "\r\n");
  EXPECT_EQ(stored(u"23"_s), "none"); // a failed transfer stores nothing, least of all another hour's text
  EXPECT_TRUE(refresh().isEmpty());
  world.clock.advance(9 * 60);
  EXPECT_TRUE(refresh().isEmpty());
  world.clock.advance(60);
  world.server.setDelivery(cyclesPath + u"23", {});
  body = "<html>";
  EXPECT_EQ(refresh(), (QStringList{u"C/23"_s, u"C/01"_s}));
  EXPECT_EQ(stored(u"01"_s), "<html>\r\n");
  EXPECT_EQ(stored(u"22"_s), "RJTT 240000Z X\n\r\n");
  world.clock.advance(40 * 60); // 11:10
  EXPECT_EQ(refresh(), (QStringList{u"C/02"_s, u"C/02"_s}));
  run.program.settings().store(key::シーケンス表示, false);
  world.clock.advance(600);
  EXPECT_TRUE(refresh().isEmpty());
  run.program.settings().store(key::シーケンス表示, true);
  run.program.settings().store(key::シーケンス時間, -1);
  EXPECT_EQ(refresh(), QStringList{u"C/02"_s});
}
