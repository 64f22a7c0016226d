// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desk/shift_log.h"

#include "base/files.h"
#include "base/utc.h"
#include "support/own_folder.h"

#include <QFile>
#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

QDateTime at(int day, int hour) {
  return inUtc(QDate(2026, 11, day), QTime(hour, 0));
}

const AlarmEvent crossed = {.time = at(24, 5),
                            .kind = AlarmEventKind::Crossed,
                            .code = u"RJTT"_s,
                            .report = ReportKind::Taf,
                            .element = u"VIS"_s,
                            .words = u"0800"_s,
                            .value = 800,
                            .limit = 1600,
                            .level = 2};
const AlarmEvent rang = {.time = at(24, 6), .kind = AlarmEventKind::Rang, .code = u"RJTT"_s};
const AlarmEvent muted = {
    .time = at(24, 7), .kind = AlarmEventKind::Muted, .code = u"RJTT"_s, .until = at(24, 9)};
const std::vector<AlarmEvent> events = {crossed, rang, muted};

class ShiftLogTest : public ::testing::Test {
 protected:
  QByteArray bytes() const { return readPlainFile(path, largestListFile).bytes; }

  OwnFolder folder;
  QString path = folder.path() + u"/shift.jsonl";
  ShiftLog log{path};
};

} // namespace

TEST_F(ShiftLogTest, HoldsWhatWasAdded) {
  EXPECT_TRUE(log.read().events.empty());
  EXPECT_EQ(log.add({}), FileFault::None);
  EXPECT_FALSE(fileExists(path));
  ASSERT_EQ(log.add(std::span(events).first(1)), FileFault::None);
  ASSERT_EQ(log.add(std::span(events).subspan(1)), FileFault::None);
  EXPECT_EQ(log.read().events, events);
  EXPECT_TRUE(bytes().contains(
      R"({"airport":"RJTT","element":"VIS","event":"CROSSED","group":"0800","level":2,"limit":1600,"report":"TAF")"));
  // Each line is an object, for whatever else reads the file.
  EXPECT_EQ(bytes().count('\n'), qsizetype(events.size()));
}

TEST_F(ShiftLogTest, ALineThatIsCutTakesNoOtherWithIt) {
  ASSERT_EQ(log.add(events), FileFault::None);
  // The end of the last line, as where the disk was full; then all of it once more.
  ASSERT_TRUE(writeWhole(path, bytes().chopped(20)));
  ASSERT_EQ(log.add(events), FileFault::None);
  ASSERT_EQ(appendToPlainFile(path, "{}\n{\"event\":\"RANG\"}\nnone\n[1]\n"), FileFault::None);
  const ShiftLog::Content content = log.read();
  EXPECT_EQ(content.events, events);
  EXPECT_EQ(content.unreadable, 5);
}

TEST_F(ShiftLogTest, LeavesOutWhatIsOlder) {
  ASSERT_EQ(log.add(events), FileFault::None);
  const QByteArray before = bytes();
  EXPECT_EQ(log.dropBefore(at(24, 5)), FileFault::None);
  EXPECT_EQ(bytes(), before);
  EXPECT_EQ(log.dropBefore(at(24, 6)), FileFault::None);
  EXPECT_EQ(log.read().events, (std::vector{rang, muted}));
}

TEST_F(ShiftLogTest, NothingButAPlainFileIsALog) {
  ASSERT_EQ(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
  EXPECT_EQ(log.read().fault, FileFault::NotPlain);
  EXPECT_NE(log.add(events), FileFault::None);
  EXPECT_NE(log.dropBefore(at(25, 0)), FileFault::None);
}

TEST(ShiftLines, TellEachKindOfEvent) {
  EXPECT_EQ(eventLine(crossed), u"24 05:00Z RJTT CROSSED TAF VIS 0800 (LIMIT 1600)");
  EXPECT_EQ(eventText(rang), u"RJTT RANG");
  EXPECT_EQ(eventText(muted), u"RJTT MUTED UNTIL 24 09:00Z");
  const AlarmEvent back = {
      .time = at(24, 5), .kind = AlarmEventKind::Back, .code = u"RJAA"_s, .element = u"CIG"_s};
  EXPECT_EQ(eventText(back), u"RJAA BACK METAR CIG");
  AlarmEvent odd = crossed;
  odd.words = u"a,\"b\""_s;
  AlarmEvent other = {.time = at(24, 7), .kind = AlarmEventKind::Acknowledged, .code = u"RJTT"_s};
  other.desk = u"night-1"_s;
  EXPECT_EQ(eventText(other), u"RJTT ACK BY night-1");
  EXPECT_EQ(shiftCsv(std::vector{odd, other}),
            u"time,event,airport,report,element,group,value,limit,level,until,desk\r\n"
            "2026-11-24T05:00:00Z,CROSSED,RJTT,TAF,VIS,\"a,\"\"b\"\"\",800,1600,2,,\r\n"
            "2026-11-24T07:00:00Z,ACK,RJTT,,,,,,,,night-1\r\n");
}
