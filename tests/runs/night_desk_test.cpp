// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runs/night_desk.h"

#include "base/utc.h"
#include "reports/airport_limits.h"
#include "runs/run_bench.h"
#include "runs/shift_report.h"
#include "support/own_folder.h"

#include <map>

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

/// A desk that watches, with alarms by the standard limits: visibilities of 5000, 1600 and 800 m.
class NightDeskTest : public ::testing::Test {
 protected:
  NightDeskTest() { watch(u"RJTT RJAA"_s); }

  void watch(const QString& codes) {
    world.prepare([&](Tables& tables) {
      setAutoList(tables, codes);
      Settings& settings = tables.settings();
      settings.store(key::シーケンス表示, false);
      settings.store(key::条件アラーム, true);
      settings.store(key::アラーム間隔, 5);
    });
  }
  void metar(const QString& code, const QString& time, const QString& visibility) {
    world.report(code, time,
                 u"24"_s + QString(time).remove(u':') + u"Z 36003KT " + visibility + u" FEW030 12/11 Q1018",
                 u"240505Z 2406/2512 36010KT 9999 FEW030"_s);
  }
  QStringList events() {
    QStringList lines;
    for (const AlarmEvent& event : ShiftLog(world.path(u"shift.jsonl"_s)).read().events)
      lines.append(eventText(event));
    return lines;
  }

  World world;
};

} // namespace

TEST_F(NightDeskTest, RingsAtACrossingUntilItIsAcknowledgedOverARestart) {
  metar(u"RJTT"_s, u"05:00"_s, u"9999"_s);
  metar(u"RJAA"_s, u"05:00"_s, u"9999"_s);
  writeWhole(world.path(u"sound/ring.wav"_s), "x");
  {
    RunBench run(world);
    ASSERT_TRUE(run.begin());
    run.tick(120);
    EXPECT_TRUE(events().isEmpty());
    metar(u"RJTT"_s, u"05:20"_s, u"0700"_s);
    run.desk.takeSeen();
    run.tick(90);
    EXPECT_EQ(events(), (QStringList{u"RJTT CROSSED METAR VIS 0700 (LIMIT 800)"_s, u"RJTT RANG"_s}));
    EXPECT_TRUE(run.logged().contains(u"RJTT CROSSED METAR VIS 0700 (LIMIT 800)"));
    run.tick(300);
    EXPECT_EQ(events().count(u"RJTT RANG"_s), 2);
    run.close();
  }
  RunBench run(world);
  ASSERT_TRUE(run.begin());
  run.tick(1);
  EXPECT_EQ(events().count(u"RJTT CROSSED METAR VIS 0700 (LIMIT 800)"_s), 1);
  EXPECT_EQ(boardRows(run.program, {u"RJTT"_s}).front().alarm.state, AlarmState::Ringing);
  EXPECT_EQ(acknowledgeText(run.program, u"RJAA"_s), u"NO ALARM TO ACKNOWLEDGE"_s);
  EXPECT_EQ(acknowledgeText(run.program, u"ALL"_s), u"ACKNOWLEDGED RJTT"_s);
  const qsizetype rings = events().count(u"RJTT RANG"_s);
  run.tick(900);
  EXPECT_EQ(events().count(u"RJTT RANG"_s), rings);
  metar(u"RJTT"_s, u"05:40"_s, u"9999"_s);
  run.tick(90);
  EXPECT_EQ(events().last(2), (QStringList{u"RJTT BACK METAR VIS"_s, u"RJTT RANG"_s}));
}

TEST_F(NightDeskTest, StaysQuietWhereItIsNotChosen) {
  metar(u"RJTT"_s, u"05:00"_s, u"0300"_s);
  metar(u"RJAA"_s, u"05:00"_s, u"0300"_s);
  RunBench run(world);
  ASSERT_TRUE(run.begin());
  run.program.settings().store(key::条件アラーム, false);
  run.tick(120);
  EXPECT_FALSE(fileExists(world.path(u"shift.jsonl"_s)));
  EXPECT_EQ(boardRows(run.program, {u"RJTT"_s}).front().level(), 3);
  // Chosen later, it tells of what is there.
  run.program.settings().store(key::条件アラーム, true);
  run.tick(90);
  EXPECT_EQ(events().filter(u"CROSSED"_s).size(), 2);
}

TEST_F(NightDeskTest, RingsByTheLimitsOfTheAirport) {
  world.store([](Tables& tables) {
    const AirportLimits rows[] = {{.code = u"ALL"_s, .condition = 2, .weather = u"TS"_s},
                                  {.code = u"RJTT"_s, .condition = 3, .visibility = 400, .crosswind = 20}};
    tables.rewrite(table::空港別制限, {storedRow(rows[0], 1), storedRow(rows[1], 2)});
  });
  RunBench run(world);
  run.program.services.runways = [] { return QByteArray("\nRJTT\t18\t180\nRJTT\t36\t360\n"); };
  const auto report = [&](const QString& code, const QString& time, const QString& groups) {
    world.report(code, time, u"24"_s + QString(time).remove(u':') + u"Z " + groups + u" FEW030 12/11 Q1018",
                 u"240505Z 2406/2512 36010KT 9999 FEW030"_s);
  };
  report(u"RJTT"_s, u"05:00"_s, u"09020KT 9999"_s);
  report(u"RJAA"_s, u"05:00"_s, u"09040KT 9999"_s);
  ASSERT_TRUE(run.begin());
  run.tick(120);
  EXPECT_TRUE(events().isEmpty());
  report(u"RJTT"_s, u"05:20"_s, u"09025G30KT 0600 TS"_s);
  report(u"RJAA"_s, u"05:20"_s, u"09040KT 0600 VCTS"_s);
  run.tick(90);
  QStringList told = events().filter(u"CROSSED"_s);
  told.sort();
  EXPECT_EQ(told, (QStringList{u"RJAA CROSSED METAR VIS 0600 (LIMIT 800)"_s, u"RJAA CROSSED METAR WX VCTS"_s,
                               u"RJTT CROSSED METAR VIS 0600 (LIMIT 1600)"_s, u"RJTT CROSSED METAR WX TS"_s,
                               u"RJTT CROSSED METAR XWIND 09025G30KT (LIMIT 20)"_s}));
  report(u"RJTT"_s, u"05:25"_s, u"09025G33KT 9999"_s);
  run.tick(90);
  EXPECT_TRUE(events().contains(u"RJTT WORSE METAR XWIND 09025G33KT (LIMIT 20)"_s));
  EXPECT_TRUE(events().contains(u"RJTT BACK METAR WX"_s));
  // A wind that is missing is not back.
  report(u"RJTT"_s, u"05:26"_s, u"/////KT 9999"_s);
  run.tick(90);
  EXPECT_FALSE(events().contains(u"RJTT BACK METAR XWIND"_s));
  report(u"RJTT"_s, u"05:27"_s, u"36025KT 9999"_s);
  run.tick(90);
  EXPECT_TRUE(events().contains(u"RJTT BACK METAR XWIND"_s));
}

TEST_F(NightDeskTest, CommandsTakeTheirWordsOnly) {
  RunBench run(world);
  ASSERT_TRUE(run.begin());
  for (const QString& words : {u""_s, u"RJTT 0"_s, u"RJTT 1441"_s, u"RJTT X"_s, u"RJT"_s, u"RJTT 5 5"_s})
    EXPECT_FALSE(muteText(run.program, words)) << words.toStdString();
  for (const QString& words : {u"0"_s, u"721"_s, u"X"_s, u"CSV 5"_s, u"5 5"_s})
    EXPECT_FALSE(shiftText(run.program, words)) << words.toStdString();
  EXPECT_FALSE(acknowledgeText(run.program, u""_s));
  EXPECT_EQ(muteText(run.program, u"RJTT OFF"_s), u"RJTT IS NOT MUTED"_s);
  EXPECT_EQ(muteText(run.program, u"RJTT 90"_s), u"RJTT MUTED UNTIL 24 06:50Z"_s);
  EXPECT_EQ(muteText(run.program, u"RJTT OFF"_s), u"RJTT SOUNDS AGAIN"_s);
  const QString log = shiftText(run.program, u""_s).value_or(QString());
  EXPECT_TRUE(log.contains(u"24 05:20Z RJTT MUTED UNTIL 24 06:50Z\r\n")) << log.toStdString();
  EXPECT_FALSE(boardCodes(run.program, u"NONE"_s));
  run.desk.dialogs.choices = {world.path(u"shift.csv"_s)};
  EXPECT_TRUE(shiftText(run.program, u"24 CSV"_s)->startsWith(u"2 ENTRIES SAVED TO "));
  EXPECT_TRUE(contents(world.path(u"shift.csv"_s)).contains("\r\n2026-11-24T05:20:00Z,MUTED,RJTT,"));
  run.desk.dialogs.choices = {std::nullopt};
  EXPECT_EQ(shiftText(run.program, u"JSON"_s), u"CANCELED"_s);
  // A log that cannot be read or written is told, and nothing is replaced.
  ASSERT_TRUE(QFile::remove(world.path(u"shift.jsonl"_s)));
  ASSERT_TRUE(QDir().mkdir(world.path(u"shift.jsonl"_s)));
  run.logged();
  EXPECT_TRUE(muteText(run.program, u"RJTT 90"_s)->contains(u"SHIFT LOG NOT WRITTEN: "));
  EXPECT_EQ(run.logged().filter(u"SHIFT LOG: "_s).size(), 1);
  const QString waiting = shiftText(run.program, u""_s).value_or(QString());
  EXPECT_TRUE(waiting.contains(u"NOT READ: ") && waiting.contains(u"RJTT MUTED UNTIL"))
      << waiting.toStdString();
  // It is written as soon as it can be.
  ASSERT_TRUE(QDir().rename(world.path(u"shift.jsonl"_s), world.path(u"folder"_s)));
  run.tick(10);
  EXPECT_EQ(events(), QStringList{u"RJTT MUTED UNTIL 24 06:50Z"_s});
  EXPECT_FALSE(shiftText(run.program, u""_s)->contains(u"NOT "));
}

// Two desks with homes of their own, which share a folder.
TEST_F(NightDeskTest, DesksShareWhatWasAcknowledged) {
  OwnFolder office;
  World other;
  for (World* desk : {&world, &other}) {
    desk->endpoints.shared = office.path();
    if (desk == &other)
      desk->prepare([](Tables& tables) {
        setAutoList(tables, u"RJTT RJAA"_s);
        tables.settings().store(key::条件アラーム, true);
      });
    desk->report(u"RJTT"_s, u"05:00"_s, u"240500Z 36003KT 0700 FEW030 12/11 Q1018"_s);
    desk->report(u"RJAA"_s, u"05:00"_s, u"240500Z 36003KT 0700 FEW030 12/11 Q1018"_s);
  }
  RunBench here(world);
  RunBench there(other);
  ASSERT_TRUE(here.begin() && there.begin());
  for (RunBench* desk : {&here, &there})
    desk->tick(120);
  const auto stateOf = [](RunBench& desk, QStringView code) {
    return alarmWord(boardRows(desk.program, {code.toString()}).front().alarm);
  };
  ASSERT_EQ(stateOf(there, u"RJTT"), u"RING");
  acknowledgeText(here.program, u"RJTT"_s);
  muteText(here.program, u"RJAA 90"_s);
  there.tick(10);
  EXPECT_EQ(stateOf(there, u"RJTT"), u"ACK");
  EXPECT_EQ(stateOf(there, u"RJAA"), u"MUTED");
  EXPECT_TRUE(shiftText(there.program, u""_s)->contains(u"RJTT ACK BY "));
  // A folder that cannot be reached is told, and what happens meanwhile is shared when it is back.
  const QString away = office.path() + u"-away";
  ASSERT_TRUE(QDir().rename(office.path(), away));
  EXPECT_TRUE(muteText(there.program, u"RJAA OFF"_s)->contains(u"SHARED FOLDER NOT REACHED: "));
  here.tick(10);
  EXPECT_EQ(stateOf(here, u"RJAA"), u"MUTED");
  ASSERT_TRUE(QDir().rename(away, office.path()));
  there.tick(10);
  here.tick(10);
  EXPECT_NE(stateOf(here, u"RJAA"), u"MUTED");
  EXPECT_FALSE(shiftText(there.program, u""_s)->contains(u"NOT REACHED"));
}

// Sixty airports in a night with fog that comes and goes, each at its own time.
TEST_F(NightDeskTest, ANightTellsEachCrossingOnce) {
  constexpr int airports = 60;
  constexpr int reports = 24; // one each half hour
  const auto visibility = [](int airport, int number) {
    const int depth = 12 - std::abs(number - 8 - airport % 7);
    return std::clamp(9000 - depth * (600 + 15 * airport), 200, 9000) / 100 * 100;
  };
  const auto level = [](int metres) { return metres < 800 ? 3 : metres < 1600 ? 2 : metres < 5000 ? 1 : 0; };
  QStringList codes;
  for (int i = 0; i < airports; ++i)
    codes.append(u"RX"_s + QChar(u'A' + i / 26) + QChar(u'A' + i % 26));
  watch(codes.join(u' '));
  world.clock = SetClock(QDateTime::fromString(u"2026-11-24T18:00:00+09:00"_s, Qt::ISODate));
  std::map<QString, int> expected; // crossings, by airport and group
  RunBench run(world);
  ASSERT_TRUE(run.begin());
  run.program.settings().store(key::バッファ, 6);
  for (int number = 0; number < reports; ++number) {
    const QDateTime time = world.clock.now().toUTC();
    for (int i = 0; i < airports; ++i) {
      const int now = visibility(i, number);
      const int before = number == 0 ? 9999 : visibility(i, number - 1);
      const QString words = QString::number(now).rightJustified(4, u'0');
      if (level(now) > level(before))
        ++expected[codes[i] + u' ' + words];
      world.report(codes[i], time.toString(u"hh:mm"_s),
                   time.toString(u"ddHHmm"_s) + u"Z 00000KT " + words + u" FEW030 02/02 Q1018");
    }
    run.tick(1800);
    if (number % 6 == 5)
      acknowledgeText(run.program, u"ALL"_s);
  }
  std::map<QString, int> told;
  for (const AlarmEvent& event : ShiftLog(world.path(u"shift.jsonl"_s)).read().events) {
    if (event.kind == AlarmEventKind::Crossed)
      ++told[event.code + u' ' + event.words];
  }
  EXPECT_GT(expected.size(), 100U);
  EXPECT_EQ(told, expected);
}
