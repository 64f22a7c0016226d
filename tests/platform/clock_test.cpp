// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/clock.h"

#include "platform/timers.h"
#include "support/printing.h"

#include <gtest/gtest.h>

using namespace soran;
using namespace Qt::StringLiterals;

TEST(Clock, ASetClockKeepsTheOffsetOfItsStart) {
  const struct {
    QString start;
    int hours;
    QString offset;
    QString date;
    QString time;
    QString zone;
  } cases[] = {
      {u"2026-11-24T14:20:00+09:00"_s, 9, u"+9"_s, u"2026/11/25"_s, u"00:20:00"_s, u"UTC+09"_s},
      {u"2026-11-24T23:59:59Z"_s, 0, u"±0"_s, u"2026/11/25"_s, u"09:59:59"_s, u"UTC"_s},
      {u"2026-12-31T20:00:00-05:00"_s, -5, u"-5"_s, u"2027/01/01"_s, u"06:00:00"_s, u"UTC-05"_s},
      {u"2026-11-24T12:00:00-03:30"_s, -3, u"-3"_s, u"2026/11/24"_s, u"22:00:00"_s, u"UTC-03:30"_s},
  };
  for (const auto& c : cases) {
    SetClock clock(QDateTime::fromString(c.start, Qt::ISODate));
    clock.advance(10 * 3600);
    EXPECT_EQ(clock.offset().hours, c.hours);
    EXPECT_EQ(offsetText(clock.offset()), c.offset);
    EXPECT_EQ(dateText(clock), c.date);
    EXPECT_EQ(timeText(clock), c.time);
    EXPECT_EQ(clock.zoneName(), c.zone);
  }
}

TEST(SteppedTimers, TickInTheOrderOfTheirMaking) {
  SteppedTimers timers;
  QString ticks;
  std::unique_ptr<Timer> b;
  std::unique_ptr<Timer> c;
  const auto a = timers.make([&] { ticks += u'a'; });
  b = timers.make([&] {
    ticks += u'b';
    b->setEnabled(false);
    c.reset();
    a->setEnabled(true);
  });
  c = timers.make([&] { ticks += u'c'; });
  const auto d = timers.make([&] { ticks += u'd'; });
  const auto stepped = [&](int seconds) {
    ticks.clear();
    for (int i = 0; i < seconds; ++i)
      timers.step();
    return ticks;
  };
  EXPECT_EQ(stepped(2), u"");
  a->setInterval(3000);
  b->setInterval(2000);
  // Switched on in another order than made.
  for (Timer* timer : {d.get(), c.get(), b.get(), a.get()})
    timer->setEnabled(true);
  EXPECT_EQ(stepped(1), u"cd");
  // The second tick of b takes c away, and enables a, which goes on as it was.
  EXPECT_EQ(stepped(1), u"bd");
  EXPECT_EQ(stepped(1), u"ad");
  EXPECT_EQ(stepped(2), u"dd");
  a->setEnabled(false);
  EXPECT_EQ(stepped(3), u"ddd");
  EXPECT_FALSE(a->enabled() || b->enabled());
}
