// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desk/shared_log.h"

#include "base/files.h"
#include "base/utc.h"
#include "desk/alarm_book.h"
#include "support/own_folder.h"

#include <gtest/gtest.h>
#include <thread>

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

AlarmEvent act(AlarmEventKind kind, int second, const QString& code = u"RJTT"_s) {
  return {.time = inUtc(QDate(2026, 11, 24), QTime(5, 0, second)), .kind = kind, .code = code};
}

const QDateTime noon = inUtc(QDate(2026, 11, 24), QTime(12, 0));

class SharedLogTest : public ::testing::Test {
 protected:
  QString path() const { return folder.filePath(u"soran-shift.jsonl"_s); }

  OwnFolder folder;
  SharedLog one{folder.path(), u"one-1"_s};
  SharedLog two{folder.path(), u"two-2"_s};
};

} // namespace

TEST_F(SharedLogTest, GivesEachLineOfOthersOnce) {
  using enum AlarmEventKind;
  // What no desk does is nothing: a muting without an end, an act of a time to come.
  const AlarmEvent endless = act(Muted, 3);
  AlarmEvent muted = endless;
  muted.until = noon;
  AlarmEvent ahead = act(Acknowledged, 4);
  ahead.time = noon.addDays(1);
  EXPECT_EQ(one.add(std::vector{act(Acknowledged, 1), act(Crossed, 2), muted, endless, ahead}),
            FileFault::None);
  const auto kinds = [](const SharedLog::News& news) {
    std::vector<AlarmEventKind> list;
    for (const AlarmEvent& event : news.events)
      list.push_back(event.kind);
    return list;
  };
  EXPECT_EQ(kinds(two.readNew(noon)), (std::vector{Acknowledged, Muted}));
  EXPECT_TRUE(two.readNew(noon).events.empty());
  EXPECT_TRUE(one.readNew(noon).events.empty());
  // Half a line waits for its end, lines of nobody and of anything are passed over.
  const QByteArray line =
      "{\"time\":\"2026-11-24T05:00:09Z\",\"event\":\"ACK\",\"airport\":\"RJAA\",\"desk\":\"x-3\"}\n";
  const QByteArray bad =
      "x\n{\"time\":\"2026-11-24T05:00:09Z\",\"event\":\"ACK\",\"airport\":\"RJ\\u202eA\",\"desk\":\"x\"}\n"
      "{\"time\":\"2026-11-24T05:00:09Z\",\"event\":\"ACK\",\"airport\":\"RJAA\",\"desk\":\"a b\"}\n";
  ASSERT_EQ(appendToPlainFile(path(), bad + line.first(30)), FileFault::None);
  EXPECT_TRUE(two.readNew(noon).events.empty());
  ASSERT_EQ(appendToPlainFile(path(), line.sliced(30)), FileFault::None);
  EXPECT_EQ(two.readNew(noon).events.size(), 1U);
  // Another file in its place is read from its beginning.
  ASSERT_TRUE(writeWhole(path(), line.repeated(20)));
  EXPECT_EQ(two.readNew(noon).events.size(), 20U);
}

TEST_F(SharedLogTest, TwoWhoWriteAtOnceLoseNothing) {
  constexpr int each = 200;
  const auto write = [&](const SharedLog& log) {
    for (int i = 0; i < each;) {
      if (log.add(std::vector{act(AlarmEventKind::Acknowledged, i % 60)}) == FileFault::None)
        ++i;
    }
  };
  std::thread other([&] { write(two); });
  write(one);
  other.join();
  SharedLog reader(folder.path(), u"three-3"_s);
  EXPECT_EQ(reader.readNew(noon).events.size(), 2U * each);
}

TEST_F(SharedLogTest, TellsWhyItCannotBeReached) {
  SharedLog missing(folder.filePath(u"none"_s), u"one-1"_s);
  EXPECT_EQ(missing.readNew(noon).fault, FileFault::Missing);
  EXPECT_EQ(missing.add(std::vector{act(AlarmEventKind::Acknowledged, 1)}), FileFault::Missing);
  ASSERT_TRUE(QFile::link(u"/dev/null"_s, path()));
  EXPECT_EQ(one.add(std::vector{act(AlarmEventKind::Acknowledged, 1)}), FileFault::NotPlain);
  EXPECT_EQ(two.readNew(noon).fault, FileFault::NotPlain);
}

TEST(AlarmBook, FollowsAnotherDesk) {
  using enum AlarmEventKind;
  const StationCode tokyo(u"RJTT"_s);
  AlarmEvent crossed = act(Crossed, 30);
  crossed.element = u"VIS"_s;
  const AlarmBook before(std::vector{crossed});
  const std::pair<AlarmEvent, bool> cases[] = {
      {act(Acknowledged, 20), false}, // of something that this desk did not know yet
      {act(Acknowledged, 26), true},
      {act(Acknowledged, 40), true},
      {act(Acknowledged, 40, u"RJAA"_s), false},
      {act(Crossed, 40), false},
      {act(Muted, 40), true},
      {act(Unmuted, 40), false},
  };
  for (const auto& [event, changes] : cases) {
    AlarmBook book = before;
    EXPECT_EQ(!book.follow(event, noon).empty(), changes)
        << nameOf(event.kind).toString().toStdString() << event.time.time().second();
  }
  AlarmBook book = before;
  book.mute(tokyo, {}, act(Muted, 50).time);
  EXPECT_TRUE(book.follow(act(Unmuted, 49), noon).empty());
  EXPECT_FALSE(book.follow(act(Unmuted, 51), noon).empty());
  AlarmEvent over = act(Muted, 55);
  over.until = noon.addSecs(-1);
  EXPECT_TRUE(book.follow(over, noon).empty());
}
