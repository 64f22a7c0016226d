// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "http/endpoint_server.h"

#include <QDateTime>
#include <QStringList>
#include <vector>

namespace soran::bench {

/// So many station codes, all different.
QStringList stationCodes(int count);

/// The reports of stations over some days: METAR at 00 and 30 minutes, TAF four times a day, three SPECI and
/// one amended TAF a day, no two of a station within seven minutes.
class Reports {
 public:
  Reports(const QStringList& codes, const QDateTime& begin, int days);

  /// Serves station files and cycle files as they stand at `now`.
  void serveOn(EndpointServer& server);
  QDateTime now;

  /// The log lines that tell of the reports of one station issued behind `from` and up to `to`, in order.
  QStringList announcements(const QString& code, const QDateTime& from, const QDateTime& to) const;

 private:
  struct Report {
    QDateTime issued;
    bool taf = false;
    bool amended = false;
  };
  std::optional<QByteArray> file(const QString& code, bool taf) const;
  QByteArray cycleFile(int hour) const;

  QMap<QString, std::vector<Report>> reports_;
};

} // namespace soran::bench
