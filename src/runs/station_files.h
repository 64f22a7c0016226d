// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/station_code.h"
#include "platform/inet.h"
#include "platform/report_source.h"
#include "reports/raw_lines.h"
#include "reports/station_text.h"
#include "runs/report_intake.h"
#include "runs/source_health.h"

#include <QHash>
#include <map>
#include <memory>
#include <optional>
#include <tuple>
#include <vector>

namespace soran {

struct Program;

/// The reports that one run asks the sources for. Where the first source has a file for each station, those
/// of the next `Use::ahead` stations are on the way while those of one are taken, by the same requests: a
/// METAR each and, where `forecasts` and the METAR is a report of the station, a TAF. A source that takes
/// lists is asked once for as many stations as it takes. Where a source brings no report, or an older one
/// than is known, the next one is asked.
class StationFiles {
 public:
  struct Use {
    bool forecasts = false; ///< TAFs are taken too
    int ahead = 0;          ///< stations whose files are asked for ahead of their turn
    bool byWatch = false;   ///< what a list brought within its source's pause is not asked for again
  };

  StationFiles(Program& program, std::vector<StationCode> codes, Use use);
  ~StationFiles();
  StationFiles(const StationFiles&) = delete;
  StationFiles& operator=(const StationFiles&) = delete;

  const std::vector<StationCode>& codes() const { return codes_; }

  /// The report of the station at `place` of the list (from 0). Waits in the event loop; throws Unwind where
  /// the program was closed. Asked once for each kind, for rising places; the TAF behind a METAR that was
  /// there, unless nothing is on the way ahead.
  Arrival take(size_t place, ReportKind kind);

 private:
  struct OnTheWay {
    std::unique_ptr<Transfer> metar;
    std::unique_ptr<Transfer> taf;
  };
  /// The stations of one request of a list.
  struct Stretch {
    size_t source;
    ReportKind kind;
    size_t first;
    bool operator<(const Stretch& other) const {
      return std::tie(source, kind, first) < std::tie(other.source, other.kind, other.first);
    }
  };
  struct Tally {
    int asked = 0;
    int failed = 0;
    bool dead = false; ///< nobody answered: not asked again by this run
  };
  using Reports = QHash<QString, RawReport>;

  void putInOrder();
  QUrl fileAddress(size_t source, size_t place, ReportKind kind) const;
  const Reply* recent(size_t source, const QUrl& address) const;
  void remember(const QUrl& address, const Reply& reply);
  Stretch stretchOf(size_t source, ReportKind kind, size_t place) const;
  QUrl addressOf(const Stretch& stretch) const;
  void beginList(const Stretch& stretch);
  void beginLists();
  void beginUpTo(size_t place);
  std::optional<StationText> fetch(size_t source, size_t place, ReportKind kind);
  std::optional<StationText> fetchFromList(const Stretch& stretch, const StationCode& code);
  Reply fetchFile(size_t source, size_t place, ReportKind kind);
  Reply fetchAnew(size_t source, size_t place, ReportKind kind);
  std::optional<Reports> takeList(const Stretch& stretch);
  std::optional<StationText> judged(size_t source, ReportKind kind, const StationCode& code,
                                    const Reply& reply);
  void count(size_t source, const Reply& reply, bool failed);

  Program& program_;
  std::vector<StationCode> codes_;
  Use use_;
  std::vector<ReportSource> sources_;
  std::vector<Tally> tallies_;
  std::vector<size_t> order_; ///< the sources in the order in which they are asked, without those away
  size_t begun_ = 0;          ///< places whose METAR was begun
  std::vector<OnTheWay> onTheWay_;
  std::map<Stretch, std::unique_ptr<Transfer>> lists_;
  std::map<Stretch, std::optional<Reports>> read_;
};

} // namespace soran
