// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "pipeline/change_detector.h"

#include "base/text.h"
#include "pipeline/layout.h"

#include <optional>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

/// What a new report is called in the pad and in the log.
struct Notice {
  QStringView pad;
  QStringView log;
};

Notice tafNotice(const QString& response) {
  struct Kind {
    QStringView word;
    Notice notice;
  };
  constexpr Kind kinds[] = {{u"AMD", {u"(AMD) ", u" TAF(AMD) RECEIVED"}},
                            {u"COR", {u"(COR) ", u" TAF(COR) RECEIVED"}},
                            {u"TRD", {u"(TRD) ", u" TAF(TRD) RECEIVED"}}};
  for (const Kind& kind : kinds) {
    if (response.contains(kind.word))
      return kind.notice;
  }
  return {u" ", u" TAF   CHANGED"};
}

Notice metarNotice(const QString& stamp) {
  return isRoutineMinute(leadingInteger(mid1(stamp, 4, 2))) ? Notice{u" ", u" METAR CHANGED"}
                                                            : Notice{u"(SPECI) ", u" SPECI RECEIVED"};
}

class Comparison {
 public:
  explicit Comparison(Program& program) : program_(program) {}

  void compare(size_t row) {
    const QString code = asciiUpper(program_.stationTable.rows()[row].stationCode);
    const Endpoints& endpoints = program_.services.endpoints;
    if (const auto response = fetch(endpoints.metar, code);
        response && taken(row, *response, &Station::metarStamp))
      tell(code, metarNotice(stampOf(*response)));
    if (const auto response = fetch(endpoints.taf, code);
        response && taken(row, *response, &Station::tafStamp))
      tell(code, tafNotice(*response));
  }

  /// What was told so far, in the order of the table.
  const QStringList& notices() const { return notices_; }

 private:
  std::optional<QString> fetch(const QString& base, const QString& code) {
    const Reply reply = program_.services.inet.open(stationFile(base, code));
    return reply.isWhole() ? std::optional(reply.text()) : std::nullopt;
  }

  /// Stores the response's stamp where it is a new one. The table may have been rebuilt during the wait.
  bool taken(size_t row, const QString& response, QString Station::*field) {
    if (row >= program_.stationTable.rows().size())
      return false;
    QString& stamp = program_.stationTable.rows()[row].*field;
    const QString found = stampOf(response);
    if (found == stamp)
      return false;
    stamp = found;
    program_.cycleChanged = true;
    return true;
  }

  void tell(const QString& code, const Notice& notice) {
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
