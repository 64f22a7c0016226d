// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/inet.h"

#include <QDateTime>
#include <QString>
#include <array>
#include <map>

namespace soran {

/// How the sources of reports fare in this run of the program, each by its place in the order (from 0).
class SourceHealth {
 public:
  /// True while the source is left out: it failed for most of a list.
  bool isAway(size_t source, const QDateTime& now) const { return awayUntil(source, now).isValid(); }
  /// The time up to which it is left out; invalid where it is not.
  QDateTime awayUntil(size_t source, const QDateTime& now) const;

  /// A list was asked of the source, and so many of its requests failed. Where these are most, it is away for
  /// a minute, and for twice as long each time that this happens again, up to half an hour.
  void tell(size_t source, int asked, int failed, const QDateTime& now);

 private:
  struct State {
    int failures = 0; // lists that failed, one behind the other
    QDateTime until = {};
  };
  std::map<size_t, State> states_;
};

/// Who served the METAR and the TAF of a station in the last run; no name where one was refused or not asked
/// for. And when they were asked for, UTC.
struct ServedBy {
  std::array<QString, 2> names;
  std::array<QDateTime, 2> asked;
};

/// An answer, and when it was asked for. The watch asks nobody twice for the same within a pause.
struct RecentReply {
  QDateTime asked;
  Reply reply;
};

} // namespace soran
