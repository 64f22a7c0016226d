// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/stamp.h"
#include "base/station_code.h"
#include "platform/inet.h"
#include "reports/layout.h"
#include "reports/station_text.h"

#include <QDateTime>
#include <map>
#include <optional>
#include <utility>

namespace soran {

struct Program;

/// The latest report of each station and kind that came in this run of the program.
class KnownReports {
 public:
  struct Known {
    QDateTime time; ///< UTC
    QString text;   ///< the station file
  };

  /// What is known; null where nothing is.
  const Known* find(const StationCode& code, ReportKind kind) const;
  void keep(const StationCode& code, ReportKind kind, Known latest);

 private:
  std::map<std::pair<QString, ReportKind>, Known> reports_;
};

/// What came as a station's file, beside what is known.
struct Arrival {
  enum class Standing {
    Failed,  ///< the transfer brought nothing
    Refused, ///< what it brought is no report of the station
    Older,   ///< dated before the latest known
    Future,  ///< dated more than an hour ahead of the clock; never becomes the latest known
    Latest,  ///< the latest known, from now on
  };
  Standing standing = Standing::Failed;
  QString text;  ///< the report; the page where it was refused with one
  QString known; ///< the latest known where what came is older

  bool isReport() const { return standing >= Standing::Older; }
  /// The stamp by which the watch tells it from others; that of nothing where it is no report and no page.
  Stamp stamp() const { return Stamp::of(text); }
};

/// Takes what a transfer brought for `code`, tells in the running log what is refused, older or ahead of its
/// time, and remembers the latest.
Arrival takeIn(Program& program, const StationCode& code, ReportKind kind, const Reply& reply);

} // namespace soran
