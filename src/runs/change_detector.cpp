// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runs/change_detector.h"

#include "base/report_rules.h"
#include "base/text.h"
#include "reports/layout.h"

#include <optional>

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
  explicit Comparison(Program& program) : program_(program) {}

  void compare(size_t row) {
    const StationCode code(asciiUpper(program_.stationTable.rows()[row].stationCode.text()));
    const Endpoints& endpoints = program_.services.endpoints;
    if (const auto response = fetch(endpoints.metar, code);
        response && taken(row, *response, &Station::metarStamp))
      tell(code, metarNotice(Stamp::of(*response)));
    if (const auto response = fetch(endpoints.taf, code);
        response && taken(row, *response, &Station::tafStamp))
      tell(code, tafNotice(*response));
  }

  /// What was told so far, in the order of the table.
  const QStringList& notices() const { return notices_; }

 private:
  std::optional<QString> fetch(const QString& base, const StationCode& code) {
    const Reply reply = program_.services.inet.open(stationFile(base, code));
    return reply.isWhole() ? std::optional(reply.text()) : std::nullopt;
  }

  /// Stores the response's stamp where it is a new one. The table may have been rebuilt during the wait.
  bool taken(size_t row, const QString& response, Stamp Station::*field) {
    if (row >= program_.stationTable.rows().size())
      return false;
    Stamp& stamp = program_.stationTable.rows()[row].*field;
    const Stamp found = Stamp::of(response);
    if (found == stamp)
      return false;
    stamp = found;
    program_.cycleChanged = true;
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
  QStringList notices_;
};

} // namespace

void checkForChanges(Program& program) {
  program.console.setBusy(false);
  if (program.settings()[key::自動デコード有効] == false || program.stationTable.stationCount() == 0)
    return;
  program.cycleChanged = false;
  Comparison comparison(program);
  for (size_t row = 0; row < program.stationTable.rows().size(); ++row)
    comparison.compare(row);
  if (!comparison.notices().isEmpty())
    emit program.console.newReports(comparison.notices());
}

} // namespace soran
