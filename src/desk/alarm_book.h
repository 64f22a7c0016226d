// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/report_rules.h"
#include "base/station_code.h"
#include "desk/alarm_event.h"

#include <QDateTime>
#include <QStringList>
#include <QTime>
#include <map>
#include <span>
#include <vector>

namespace soran {

/// One element of a report beyond a limit.
struct Finding {
  QString element = {}; ///< "VIS", "RVR", "CIG", ...
  QString words = {};   ///< the group of the report
  double value = 0;     ///< metres, feet or knots
  double limit = 0;     ///< in the same unit
  int level = 1;        ///< of the limit, 1 to 3
  bool above = false;   ///< the value lies above its limit, as a wind does, and not below it
};

/// Whether one finding is worse than another of the same element.
bool isWorse(const Finding& one, const Finding& other);

/// When alarms sound.
struct RingRules {
  int repeatMinutes = 0; ///< until acknowledged; 0: once
  QTime quietFrom = {};  ///< of the day, local; invalid: never quiet
  QTime quietTo = {};
};

enum class AlarmState {
  Quiet,
  Ringing,      ///< something happened that nobody has acknowledged
  Acknowledged, ///< seen, and still beyond a limit
};

/// What is known of an airport's alarm.
struct Alarm {
  AlarmState state = AlarmState::Quiet;
  bool muted = false;
  QDateTime mutedUntil = {}; ///< UTC; invalid where the muting has no end
  QDateTime lastRang = {};   ///< UTC; invalid where it did not ring yet
};

/// The alarms of the watched airports: what is beyond a limit, what nobody has acknowledged, what is muted.
/// All times are UTC but those of RingRules. Each change gives the events that the shift log holds; the book
/// made from the events of a log is the book that wrote them.
class AlarmBook {
 public:
  AlarmBook() = default;
  explicit AlarmBook(std::span<const AlarmEvent> log);

  /// Compares what is beyond a limit in the newest report of the station and kind with what was. Several
  /// findings of one element count as their worst. An element that is none of `told` and has no finding stays
  /// as it was: a value that is missing is no better one.
  std::vector<AlarmEvent> take(const StationCode& code, ReportKind report, std::span<const Finding> findings,
                               const QStringList& told, const QDateTime& now);
  /// The airports whose alarm sounds now, each as the event that tells of it; ends mutings whose time is
  /// over. `local` is the time of day that quiet hours are told in. Nothing sounds in quiet hours and where
  /// muted.
  std::vector<AlarmEvent> ring(const RingRules& rules, const QDateTime& now, const QTime& local);
  /// Empty where there is nothing to acknowledge.
  std::vector<AlarmEvent> acknowledge(const StationCode& code, const QDateTime& now);
  std::vector<AlarmEvent> acknowledgeAll(const QDateTime& now);
  /// An invalid `until` mutes without an end.
  AlarmEvent mute(const StationCode& code, const QDateTime& until, const QDateTime& now);
  /// Empty where it is not muted.
  std::vector<AlarmEvent> unmute(const StationCode& code, const QDateTime& now);

  /// Takes over what another desk did: an acknowledgement of what was known here by its time, a muting or its
  /// end that is newer than the last one here. Empty where it changes nothing.
  std::vector<AlarmEvent> follow(const AlarmEvent& other, const QDateTime& now);

  Alarm alarmOf(const StationCode& code) const;
  /// The codes of the airports that nobody has acknowledged, in the order of their codes.
  std::vector<StationCode> ringing() const;

 private:
  struct Beyond {
    double worst = 0; ///< since it crossed
    int level = 1;
  };
  struct Entry {
    std::map<std::pair<ReportKind, QString>, Beyond> beyond;
    Alarm alarm;
    bool due = false;             ///< something happened since it rang
    QDateTime happened = {};      ///< the last crossing, worsening or way back
    QDateTime mutingChanged = {}; ///< the last muting or end of one
  };

  void apply(const AlarmEvent& event);

  std::map<QString, Entry> entries_; // by code
};

} // namespace soran
