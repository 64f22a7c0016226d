// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/stamp.h"
#include "base/station_code.h"
#include "reports/layout.h"
#include "reports/station_text.h"
#include "store/last_reports.h"

#include <QDateTime>
#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace soran {

struct Program;

/// The latest report of each station and kind that came in this run of the program.
class KnownReports {
 public:
  struct Known {
    QDateTime time;                     ///< UTC
    QString text;                       ///< the station file
    QString source = {};                ///< the name of who served it
    QDateTime asked = {};               ///< UTC
    std::optional<bool> isSpecial = {}; ///< what the source says of a METAR
    QString before = {};                ///< the report before, its station file; empty where there was none
    std::vector<QDateTime> times = {};  ///< of the reports of the last 26 hours, UTC, in the order they came
    int number = 0;                     ///< counts up with each report that is kept
  };

  /// What is known; null where nothing is.
  const Known* find(const StationCode& code, ReportKind kind) const;
  void keep(const StationCode& code, ReportKind kind, Known latest);

  /// How many were kept so far, and those of which that is more than `number`.
  int count() const { return count_; }
  std::vector<LastReport> takenSince(int number) const;

 private:
  std::map<std::pair<QString, ReportKind>, Known> reports_;
  int count_ = 0;
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
  QString text;        ///< the report; the page where it was refused with one
  QString known;       ///< the latest known where what came is older
  QString source = {}; ///< who served it, where it is a report

  bool isReport() const { return standing >= Standing::Older; }
  /// The stamp by which the watch tells it from others; that of nothing where it is no report and no page.
  Stamp stamp() const { return Stamp::of(text); }
};

/// Takes what the source of that name brought for `code`, nothing where the transfer failed; tells in the
/// running log what is refused, older or ahead of its time, and remembers the latest.
Arrival takeIn(Program& program, const StationCode& code, ReportKind kind,
               const std::optional<StationText>& brought, const QString& source);

} // namespace soran
