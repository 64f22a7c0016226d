// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runs/change_detector.h"

#include "base/report_rules.h"
#include "base/text.h"
#include "reports/layout.h"
#include "runs/last_known.h"
#include "runs/night_desk.h"
#include "runs/station_files.h"

namespace soran {

using namespace Qt::StringLiterals;

namespace {

/// What a new report is called in the pad and in the log.
struct Notice {
  QString pad;
  QString log;
};

Notice tafNotice(const QString& response) {
  const QStringView amendment = amendmentIn(response);
  if (amendment.isEmpty())
    return {u" "_s, u" TAF   CHANGED"_s};
  return {u'(' + amendment + u") ", u" TAF(" + amendment + u") RECEIVED"};
}

Notice metarNotice(const Stamp& stamp) {
  return stamp.minute().isRoutine() ? Notice{u" "_s, u" METAR CHANGED"_s}
                                    : Notice{u"(SPECI) "_s, u" SPECI RECEIVED"_s};
}

class Comparison {
 public:
  explicit Comparison(Program& program)
      : program_(program),
        files_(program, codesOf(program.stationTable), {.forecasts = true, .byWatch = true}) {}

  void compare(size_t row) {
    const StationCode& code = files_.codes()[row];
    if (const Arrival metar = files_.take(row, ReportKind::Metar); isNews(row, metar, &Station::metarStamp))
      tell(code, metarNotice(metar.stamp()));
    if (const Arrival taf = files_.take(row, ReportKind::Taf); isNews(row, taf, &Station::tafStamp))
      tell(code, tafNotice(taf.text));
  }

  /// What was told so far, in the order of the table.
  const QStringList& notices() const { return notices_; }

 private:
  static std::vector<StationCode> codesOf(StationTable& table) {
    std::vector<StationCode> codes;
    for (const Station& station : table.rows())
      codes.emplace_back(asciiUpper(station.stationCode.text()));
    return codes;
  }

  /// Whether what came is to be told. Stores its stamp where that is a new one. The table may have been
  /// rebuilt during the wait.
  bool isNews(size_t row, const Arrival& arrival, Stamp Station::*field) {
    using enum Arrival::Standing;
    if (arrival.standing == Failed || arrival.standing == Older || row >= program_.stationTable.rows().size())
      return false;
    Stamp& stamp = program_.stationTable.rows()[row].*field;
    if (arrival.stamp() == stamp)
      return false;
    stamp = arrival.stamp();
    program_.cycleChanged = true;
    if (arrival.standing == Future)
      return false;
    program_.cycleAnnounces = true;
    return true;
  }

  void tell(const StationCode& station, const Notice& notice) {
    const QString& code = station.text();
    const QString pad = program_.console.padlbl();
    if (pad.contains(code))
      return;
    program_.console.setPad(pad + code + notice.pad);
    notices_.append(code + notice.log);
    program_.console.addLogEntry(notices_.last());
  }

  Program& program_;
  StationFiles files_;
  QStringList notices_;
};

} // namespace

void checkForChanges(Program& program) {
  program.console.setBusy(false);
  const bool watches = program.desk.tellsCrossings || program.settings()[key::自動デコード有効] != false;
  if (!watches || program.stationTable.stationCount() == 0)
    return;
  program.cycleChanged = program.cycleAnnounces = false;
  noteWatch(program);
  Comparison comparison(program);
  for (size_t row = 0; row < program.stationTable.rows().size(); ++row)
    comparison.compare(row);
  keepLastReports(program);
  observeReports(program);
  if (!comparison.notices().isEmpty())
    emit program.console.newReports(comparison.notices());
}

} // namespace soran
