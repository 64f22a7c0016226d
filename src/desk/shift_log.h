// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/plain_file.h"
#include "desk/alarm_event.h"

#include <QByteArray>
#include <optional>
#include <span>
#include <vector>

namespace soran {

/// The shift log: a file of one JSON object a line, to which lines are only added. Times stand as
/// "2026-11-24T18:30:05Z".
class ShiftLog {
 public:
  struct Content {
    std::vector<AlarmEvent> events = {}; ///< in the order of the file
    int unreadable = 0;                  ///< lines that are none of ours, or cut
    FileFault fault = FileFault::None;   ///< a file that is missing is none
  };

  explicit ShiftLog(QString path) : path_(std::move(path)) {}

  Content read() const;
  FileFault add(std::span<const AlarmEvent> events);
  /// Leaves out what is older; what cannot be read goes too, the lines of others stay in their order. A log
  /// without older lines is not written.
  FileFault dropBefore(const QDateTime& time);

 private:
  QString path_;
};

/// A line of the log, without its end, and what it tells; nothing where it is none.
QByteArray jsonLine(const AlarmEvent& event);
std::optional<AlarmEvent> eventOfLine(const QByteArray& line);

/// What a person reads: "RJTT CROSSED METAR VIS 0800 (LIMIT 1600)"; as a line with its day and time ahead of
/// it: "24 18:30Z RJTT ...".
QString eventText(const AlarmEvent& event);
QString eventLine(const AlarmEvent& event);

/// The events as a table of comma-separated values (RFC 4180), with a heading.
QString shiftCsv(std::span<const AlarmEvent> events);

} // namespace soran
