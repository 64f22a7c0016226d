// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/report_rules.h"

#include <QDateTime>
#include <QString>
#include <array>

namespace soran {

/// What the shift log tells of.
enum class AlarmEventKind {
  Crossed,      ///< an element went below a limit
  Worse,        ///< further below than it was since it crossed
  Back,         ///< within a limit again; at level 0 within all of them
  Rang,         ///< the alarm of an airport sounded
  Acknowledged, ///< the user has seen it
  Muted,
  Unmuted,
};

/// One line of the shift log. What an event has nothing to say of is empty or 0.
struct AlarmEvent {
  QDateTime time; ///< UTC
  AlarmEventKind kind = AlarmEventKind::Crossed;
  QString code;
  ReportKind report = ReportKind::Metar;
  QString element = {}; ///< "VIS", "RVR", "CIG", ...
  QString words = {};   ///< the group of the report that did it
  double value = 0;     ///< metres, feet or knots
  double limit = 0;     ///< in the same unit
  int level = 0;        ///< of the limit that it is beyond, 1 to 3, the highest being the worst
  QDateTime until = {}; ///< UTC; the end of a muting, invalid where it has none
  QString desk = {};    ///< the name of another desk that did it; empty where it was this one

  bool operator==(const AlarmEvent&) const = default;
};

/// The names of the kinds in files and on the screen, in their order.
inline constexpr std::array<QStringView, 7> alarmEventNames = {u"CROSSED", u"WORSE", u"BACK",   u"RANG",
                                                               u"ACK",     u"MUTED", u"UNMUTED"};

inline QStringView nameOf(AlarmEventKind kind) {
  return alarmEventNames[size_t(kind)];
}

} // namespace soran
