// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runs/station_files.h"

#include "reports/station_text.h"

#include <algorithm>

namespace soran {

StationFiles::StationFiles(const Services& services, std::vector<StationCode> codes, bool forecasts)
    : services_(services), codes_(std::move(codes)), forecasts_(forecasts), onTheWay_(codes_.size()) {}

StationFiles::~StationFiles() = default;

QUrl StationFiles::addressOf(size_t place, ReportKind kind) const {
  const Endpoints& endpoints = services_.endpoints;
  return stationFile(kind == ReportKind::Metar ? endpoints.metar : endpoints.taf, codes_[place]);
}

void StationFiles::beginUpTo(size_t place) {
  while (begun_ < codes_.size() && begun_ <= place) {
    const size_t station = begun_++;
    onTheWay_[station].metar =
        services_.inet.begin(addressOf(station, ReportKind::Metar), [this, station](const Reply& reply) {
          if (forecasts_ && reply.ok && readStationText(codes_[station], reply.text()).isReport())
            onTheWay_[station].taf =
                services_.inet.begin(addressOf(station, ReportKind::Taf), [](const Reply&) {});
        });
  }
}

Reply StationFiles::take(size_t place, ReportKind kind) {
  if (services_.endpoints.ahead == 0)
    return services_.inet.open(addressOf(place, kind));
  beginUpTo(place + size_t(services_.endpoints.ahead));
  auto& transfer = kind == ReportKind::Metar ? onTheWay_[place].metar : onTheWay_[place].taf;
  Reply reply = transfer->take();
  transfer.reset();
  return reply;
}

} // namespace soran
