// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/clock.h"
#include "platform/endpoint.h"

#include <QByteArray>
#include <QDateTime>
#include <QHash>
#include <QString>
#include <optional>
#include <vector>

namespace soran {

/// One recorded day of reports that repeats every day, re-dated so that it always ends now: a report comes
/// out when the clock passes its time of day, and what stands in a file is the latest report not after now.
class DemoData {
 public:
  /// `records` is a table with tabs and a heading line: UTC time (2026-08-22T00:00:00Z), station, METAR,
  /// SPECI or TAF, and the report in one line, beginning with that word. Lines that do not read so are passed
  /// over. A record that was broken off before the day was full is made up: in hours of which almost nothing
  /// was recorded, stations report what they reported as many hours before the gap (a mirror image, so that
  /// the weather does not jump). A record that covers less than half of a day stays as it is. `clock`
  /// outlives the object.
  DemoData(const QByteArray& records, const Clock& clock);

  /// The METAR station file: a stamp line "YYYY/MM/DD HH:MM" and the report without METAR or SPECI; nothing
  /// for a station of which there is no report.
  std::optional<QByteArray> metarFile(const QString& station) const;

  /// The TAF station file: a stamp line and the forecast, each change group on a line of its own.
  std::optional<QByteArray> tafFile(const QString& station) const;

  /// The reports of all stations in one UTC hour of the day (0 to 23), the last 24 hours being looked at,
  /// oldest first: each a stamp line, a line and an empty line.
  QByteArray cycleFile(int hour) const;

  /// A SIGMET of the Fukuoka region, in force since an hour ago.
  QByteArray sigmet() const;

  /// Serves the three kinds of file under /pub/data/, and the SIGMET under /api/data/isigmet. The object must
  /// outlive the requests to `server`.
  void serveOn(Endpoint& server) const;

 private:
  struct Record {
    QDateTime issued; ///< UTC
    QString text;     ///< with TAF, without METAR and SPECI
  };
  using Records = std::vector<Record>;

  void fillGaps();
  void fillHour(int hour, int source);
  std::optional<QByteArray> latest(const QHash<QString, Records>& reports, const QString& station) const;

  const Clock& clock_;
  QHash<QString, Records> observations_;
  QHash<QString, Records> forecasts_;
};

} // namespace soran
