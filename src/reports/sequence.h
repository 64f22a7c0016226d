// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/report_rules.h"
#include "base/station_code.h"
#include "store/settings_record.h"

#include <QByteArray>
#include <QTime>
#include <array>
#include <functional>
#include <optional>
#include <vector>

namespace soran {

/// The hours (UTC, 0 to 23) of the cycle files that hold the last hours of a station, oldest first, the
/// present hour last. `now` is the local time of day; it is brought to UTC by 時差 where LOCAL使用 is true,
/// else by `systemZoneOffset`.
std::vector<UtcHour> sequenceHours(QTime now, const SettingsRecord& settings, ZoneOffset systemZoneOffset);

/// The label of a cycle file's hour: "0500Z", or in the displayed zone "1400I". An hour below zero is not
/// wrapped.
QString sequenceHourLabel(UtcHour hour, const SettingsRecord& settings);

/// The text of one cycle file with the lines of the wanted stations found in one pass over it: for each code,
/// the text from the code to the next LF (or to the end), wherever the code stands, going on behind that LF.
class CycleFile {
 public:
  /// `codes` are four ASCII characters each; others are searched for all the same, only slower.
  CycleFile(QByteArray text, const std::vector<StationCode>& codes);

  /// The lines of the station `index` of the codes, in the order of the file.
  std::vector<QString> lines(size_t index) const;

 private:
  void findFourLetterCodes(const std::vector<StationCode>& codes);
  void findOther(size_t index, const StationCode& code);

  QByteArray text_;
  struct Stretch {
    qsizetype begin;
    qsizetype end;
  };
  std::vector<std::vector<Stretch>> found_;
};

/// Where a sequence run reads a cycle file; null where the file does not exist.
using CycleFiles = std::function<const CycleFile*(UtcHour)>;

/// The sequence of one station.
struct SequenceBlock {
  QString text;
  bool missingFile = false; ///< an hour's file has not come yet
};

/// Builds the station's text: the reports of the window's files, each time group once, then the report in
/// force. `latestText` is the station file; nothing where it was refused. `latestShown` is kept by the caller
/// over all stations of a run: once set, every report line bears the tag of the latest one.
SequenceBlock sequenceBlock(const StationCode& code, size_t index, const std::optional<QString>& latestText,
                            const std::vector<UtcHour>& hours, const CycleFiles& files,
                            const SettingsRecord& settings, bool& latestShown);

} // namespace soran
