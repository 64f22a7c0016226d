// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desk/alarm_book.h"

#include "base/utc.h"

#include <QStringList>
#include <gtest/gtest.h>

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

const StationCode tokyo(u"RJTT"_s);
const StationCode narita(u"RJAA"_s);
const QTime night(3, 0);

QDateTime at(int minute) {
  return inUtc(QDate(2026, 11, 24), QTime(5, 0)).addSecs(minute * 60);
}

Finding visibility(double metres, int level) {
  return {
      .element = u"VIS"_s, .words = QString::number(metres), .value = metres, .limit = 1600, .level = level};
}
Finding ceiling(double feet, int level) {
  return {.element = u"CIG"_s, .words = u"BKN"_s, .value = feet, .limit = 200, .level = level};
}

/// "VIS CROSSED 1", joined.
QString told(const std::vector<AlarmEvent>& events) {
  QStringList lines;
  for (const AlarmEvent& event : events)
    lines.append(
        QString(event.element + u' ' + nameOf(event.kind) + u' ' + QString::number(event.level)).trimmed());
  return lines.join(u", ");
}

class AlarmBookTest : public ::testing::Test {
 protected:
  /// What a METAR with these findings makes of the book.
  QString metar(const std::vector<Finding>& findings, int minute,
                const QStringList& told = {u"VIS"_s, u"CIG"_s}) {
    return note(book.take(tokyo, ReportKind::Metar, findings, told, at(minute)));
  }
  /// The codes of the alarms that sound.
  QString rings(int minute, const RingRules& rules = {}, QTime local = night) {
    QStringList codes;
    const std::vector<AlarmEvent> events = book.ring(rules, at(minute), local);
    note(events);
    for (const AlarmEvent& event : events) {
      if (event.kind == AlarmEventKind::Rang)
        codes.append(event.code);
    }
    return codes.join(u' ');
  }
  QString note(const std::vector<AlarmEvent>& events) {
    log.insert(log.end(), events.begin(), events.end());
    return told(events);
  }

  AlarmBook book;
  std::vector<AlarmEvent> log;
};

} // namespace

TEST_F(AlarmBookTest, TellsEachCrossingOnce) {
  EXPECT_EQ(metar({}, 0), u"");
  EXPECT_EQ(metar({visibility(4000, 1)}, 10), u"VIS CROSSED 1");
  EXPECT_EQ(metar({visibility(4000, 1)}, 20), u"");
  EXPECT_EQ(metar({visibility(4500, 1)}, 30), u"");
  EXPECT_EQ(metar({visibility(3000, 1), ceiling(100, 3)}, 40), u"CIG CROSSED 3, VIS WORSE 1");
  EXPECT_EQ(metar({visibility(700, 3), ceiling(100, 3)}, 50), u"VIS CROSSED 3");
  // Above the third limit, below the first; then above all.
  EXPECT_EQ(metar({visibility(2000, 1)}, 60), u"VIS BACK 1, CIG BACK 0");
  EXPECT_EQ(metar({visibility(600, 3)}, 70), u"VIS CROSSED 3");
  // A value that is missing is no better one.
  EXPECT_EQ(metar({}, 75, {u"CIG"_s}), u"");
  EXPECT_EQ(metar({}, 80), u"VIS BACK 0");
  EXPECT_EQ(metar({}, 90), u"");
  // Of two findings of an element the worse counts, and a TAF has findings of its own.
  EXPECT_EQ(metar({visibility(4000, 1), visibility(700, 3)}, 100), u"VIS CROSSED 3");
  EXPECT_EQ(told(book.take(tokyo, ReportKind::Taf, {}, {u"VIS"_s}, at(100))), u"");
  EXPECT_EQ(told(book.take(narita, ReportKind::Metar, std::vector{visibility(700, 3)}, {}, at(100))),
            u"VIS CROSSED 3");
}

TEST_F(AlarmBookTest, AWindIsWorseTheStrongerItIs) {
  const auto wind = [](double knots) {
    return Finding{.element = u"GUST"_s, .words = u"G"_s, .value = knots, .limit = 30, .above = true};
  };
  EXPECT_EQ(metar({wind(35)}, 0), u"GUST CROSSED 1");
  EXPECT_EQ(metar({wind(32)}, 10), u"");
  EXPECT_EQ(metar({wind(40)}, 20), u"GUST WORSE 1");
}

TEST_F(AlarmBookTest, RingsUntilItIsAcknowledged) {
  const RingRules rules = {.repeatMinutes = 5};
  EXPECT_EQ(rings(0, rules), u"");
  metar({visibility(700, 3)}, 1);
  EXPECT_EQ(rings(1, rules), u"RJTT");
  EXPECT_EQ(rings(5, rules), u"");
  EXPECT_EQ(rings(6, rules), u"RJTT");
  // Something new sounds at once.
  metar({visibility(300, 3)}, 7);
  EXPECT_EQ(rings(7, rules), u"RJTT");
  EXPECT_EQ(told(book.acknowledge(tokyo, at(8))), u"ACK 0");
  EXPECT_EQ(book.alarmOf(tokyo).state, AlarmState::Acknowledged);
  EXPECT_EQ(rings(60, rules), u"");
  EXPECT_TRUE(book.acknowledge(tokyo, at(61)).empty());
  EXPECT_TRUE(book.acknowledgeAll(at(61)).empty());
  // The way back sounds, too, and is then quiet.
  metar({}, 62);
  EXPECT_EQ(rings(62, {}), u"RJTT");
  EXPECT_EQ(rings(600, {}), u"");
  EXPECT_EQ(book.acknowledgeAll(at(601)).size(), 1U);
  EXPECT_EQ(book.alarmOf(tokyo).state, AlarmState::Quiet);
}

TEST_F(AlarmBookTest, IsSilentInQuietHoursAndWhereMuted) {
  const RingRules overMidnight = {.quietFrom = QTime(22, 0), .quietTo = QTime(6, 0)};
  const RingRules byDay = {.quietFrom = QTime(12, 0), .quietTo = QTime(13, 0)};
  metar({visibility(700, 3)}, 0);
  for (const QTime local : {QTime(22, 0), QTime(0, 0), QTime(5, 59)})
    EXPECT_EQ(rings(1, overMidnight, local), u"");
  EXPECT_EQ(rings(1, byDay, QTime(12, 59)), u"");
  // What happened in quiet hours sounds behind them.
  EXPECT_EQ(rings(2, overMidnight, QTime(6, 0)), u"RJTT");
  EXPECT_EQ(rings(2, {.repeatMinutes = 0, .quietFrom = QTime(0, 0), .quietTo = QTime(0, 0)}), u"");

  note({book.mute(tokyo, at(30), at(3))});
  metar({visibility(500, 3)}, 4);
  EXPECT_EQ(rings(29), u"");
  EXPECT_TRUE(book.alarmOf(tokyo).muted);
  EXPECT_EQ(rings(30), u"RJTT");
  EXPECT_FALSE(book.alarmOf(tokyo).muted);
  EXPECT_TRUE(book.unmute(tokyo, at(31)).empty());
  note({book.mute(tokyo, at(90), at(31))});
  EXPECT_EQ(told(book.unmute(tokyo, at(32))), u"UNMUTED 0");
}

TEST_F(AlarmBookTest, ALogMakesTheBookThatWroteIt) {
  const RingRules rules = {.repeatMinutes = 5};
  metar({visibility(4000, 1), ceiling(100, 3)}, 0);
  rings(0, rules);
  note(book.take(narita, ReportKind::Taf, std::vector{visibility(700, 3)}, {}, at(1)));
  note(book.acknowledge(narita, at(2)));
  note({book.mute(tokyo, at(30), at(2))});
  book = AlarmBook(log);
  EXPECT_TRUE(book.alarmOf(tokyo).muted);
  EXPECT_EQ(book.alarmOf(tokyo).mutedUntil, at(30));
  EXPECT_EQ(book.alarmOf(narita).state, AlarmState::Acknowledged);
  EXPECT_EQ(metar({visibility(4000, 1), ceiling(100, 3)}, 10), u"");
  EXPECT_EQ(metar({visibility(3000, 1)}, 11), u"VIS WORSE 1, CIG BACK 0");
  EXPECT_EQ(rings(40, rules), u"RJTT");
  ASSERT_EQ(book.ringing().size(), 1U);
  EXPECT_EQ(book.ringing().front(), tokyo);
}
