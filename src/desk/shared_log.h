// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desk/shift_log.h"

#include <QByteArray>
#include <QString>
#include <optional>
#include <span>
#include <vector>

namespace soran {

/// What several desks tell each other: the file soran-shift.jsonl in a folder that all of them reach, on a
/// file server too. It has the lines of the shift log, each with the name of its desk, and lines are only
/// added, under a lock of the file beside it that the system lets go of by itself. It may be deleted at any
/// time.
class SharedLog {
 public:
  /// `desk` is the name that no other one has.
  SharedLog(const QString& folder, QString desk);

  /// Adds the events of this desk. Nothing where another desk writes right now.
  std::optional<FileFault> add(std::span<const AlarmEvent> events) const;

  struct News {
    std::vector<AlarmEvent> events = {}; ///< acknowledgements and mutings, each with its desk
    FileFault fault = FileFault::None;   ///< of the folder as well; a file that is not there yet is none
  };
  /// What other desks added since this was asked last. A line that has not come to its end waits for it; a
  /// file that was replaced is read from its beginning. Lines that are none are passed over, and so is
  /// what no desk does: an act of a time to come (`now` is in UTC), a muting without an end or of more than a
  /// day.
  News readNew(const QDateTime& now);

 private:
  QString folder_;
  QString path_;
  QString desk_;
  QDateTime changed_;   ///< the file when it was read
  qint64 read_ = 0;     ///< bytes
  QByteArray lastRead_; ///< the end of these
};

} // namespace soran
