// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/sequence.h"

#include "support/printing.h"

#include <gtest/gtest.h>
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
