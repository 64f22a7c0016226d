// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runs/arrival_forecast.h"

#include "base/text.h"
#include "reports/forecast_at.h"
#include "runs/last_known.h"
#include "runs/program.h"
#include "runs/station_files.h"

namespace soran {

using namespace Qt::StringLiterals;

namespace {

/// The latest report of the kind; empty where there is none.
QString take(StationFiles& files, ReportKind kind) {
  const Arrival arrival = files.take(0, kind);
  if (!arrival.isReport())
    return {};
  return arrival.standing == Arrival::Standing::Older ? arrival.known : arrival.text;
}

} // namespace

QString arrivalForecast(Program& program, const StationCode& code, const QDateTime& at) {
  // Nothing is asked ahead, so that the TAF can be had where there is no METAR.
  StationFiles files(program, {code}, {.forecasts = true});
  const QString metar = take(files, ReportKind::Metar);
  const QString taf = take(files, ReportKind::Taf);
  keepLastReports(program);
  const QString title =
      u"*** ETA " + code.text() + u' ' + displayedTime(at, program.record()) + u" ***" + crlf;
  if (metar.isEmpty() && taf.isEmpty())
    return title + crlf + code.text() + u"  NOT FOUND" + crlf;
  const StationForecast forecast =
      forecastAt(metar, taf, at, program.services.clock.now().toUTC(), program.limitsOf(code));
  return title + crlf + forecastText(forecast, program.record());
}

} // namespace soran
