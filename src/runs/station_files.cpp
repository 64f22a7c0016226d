// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runs/station_files.h"

#include <algorithm>

namespace soran {

namespace {

/// Nothing where the transfer failed or brought a page.
std::optional<QString> reportIn(const Reply& reply) {
  const QString text = reply.text();
  return reply.isWhole() && !text.startsWith(u'<') ? std::optional(text) : std::nullopt;
}

} // namespace

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
          if (forecasts_ && reportIn(reply))
            onTheWay_[station].taf =
                services_.inet.begin(addressOf(station, ReportKind::Taf), [](const Reply&) {});
        });
  }
}

std::optional<QString> StationFiles::take(size_t place, ReportKind kind) {
  Reply reply;
  if (const int ahead = services_.endpoints.ahead; ahead == 0) {
    reply = services_.inet.open(addressOf(place, kind));
  } else {
    beginUpTo(place + size_t(ahead));
    auto& transfer = kind == ReportKind::Metar ? onTheWay_[place].metar : onTheWay_[place].taf;
    reply = transfer->take();
    transfer.reset();
  }
  return reportIn(reply);
}

} // namespace soran
