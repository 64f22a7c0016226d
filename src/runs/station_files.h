// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/station_code.h"
#include "platform/services.h"
#include "reports/layout.h"

#include <memory>
#include <vector>

namespace soran {

/// The station files that one run asks for. While those of one station are taken, those of the next
/// `Endpoints::ahead` stations are on the way, by the same requests: a METAR each and, where `forecasts` and
/// the METAR is a report of the station, a TAF. The replies belong to the places of the list and go with the
/// object.
class StationFiles {
 public:
  StationFiles(const Services& services, std::vector<StationCode> codes, bool forecasts);
  ~StationFiles();
  StationFiles(const StationFiles&) = delete;
  StationFiles& operator=(const StationFiles&) = delete;

  const std::vector<StationCode>& codes() const { return codes_; }

  /// What came as a file of the station at `place` of the list (from 0), not judged yet. Waits in the event
  /// loop; throws Unwind where the program was closed. Asked once for each file, for rising places, the TAF
  /// behind a METAR that was there.
  Reply take(size_t place, ReportKind kind);

 private:
  struct OnTheWay {
    std::unique_ptr<Transfer> metar;
    std::unique_ptr<Transfer> taf;
  };
  QUrl addressOf(size_t place, ReportKind kind) const;
  void beginUpTo(size_t place);

  const Services& services_;
  std::vector<StationCode> codes_;
  bool forecasts_;
  size_t begun_ = 0; // places whose METAR was begun
  std::vector<OnTheWay> onTheWay_;
};

} // namespace soran
