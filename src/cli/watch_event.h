// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desk/alarm_event.h"
#include "desk/board.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <optional>

namespace soran {

/// Something that the watch tells.
struct WatchEvent {
  QDateTime time; ///< UTC
  /// REPORT, AMENDED, one of the kinds of the shift log, OVERDUE, CURRENT, EXPIRED, SOURCE AWAY, SOURCE BACK,
  /// NETWORK LOST, NETWORK BACK.
  QString event = {};
  QString code = {};   ///< of the airport, empty for what concerns none
  QString text = {};   ///< what a person reads
  QString report = {}; ///< the report on one line, empty where there is none
  QString kind = {};   ///< METAR, SPECI or TAF; empty where it is about no report
  QString source = {}; ///< who served the report, or who is away; empty where nobody is known
  std::optional<AlarmEvent> alarm = {};
};

/// One line a person reads, and one JSON object, both without a line end. The object has the event in small
/// letters ("new", "source_away").
QString lineOf(const WatchEvent& event);
QByteArray jsonOf(const WatchEvent& event);

/// Names the event that another report is by its code, kind and report: REPORT or AMENDED, and a text as the
/// running log has it, "RJTT METAR CHANGED", "RJTT TAF(AMD) RECEIVED".
void nameReport(WatchEvent& event);

} // namespace soran
