// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runs/report_intake.h"

#include "runs/program.h"

namespace soran {

using namespace Qt::StringLiterals;

namespace {

using Standing = Arrival::Standing;

Arrival refused(Program& program, const StationCode& code, const StationText& what) {
  // A page is how a server says that it has no such file, which the run tells by itself.
  if (what.kind != StationText::Kind::Page) {
    // Each later answer over its connection might be that to the request before.
    program.services.inet.distrustConnections();
    program.console.addLogEntry(code.text() + u" REFUSED: " +
                                (what.other.isEmpty() ? u"NO REPORT"_s : u"REPORT OF " + what.other));
  }
  return {Standing::Refused, what.text, {}};
}

} // namespace

const KnownReports::Known* KnownReports::find(const StationCode& code, ReportKind kind) const {
  const auto found = reports_.find({code.text(), kind});
  return found == reports_.end() ? nullptr : &found->second;
}

void KnownReports::keep(const StationCode& code, ReportKind kind, Known latest) {
  reports_[{code.text(), kind}] = std::move(latest);
}

Arrival takeIn(Program& program, const StationCode& code, ReportKind kind, const Reply& reply) {
  constexpr qint64 toleranceSeconds = 3600;
  if (!reply.ok)
    return {};
  StationText report = readStationText(code, reply.text());
  if (!report.isReport())
    return refused(program, code, report);
  if (!report.time.isValid())
    return {Standing::Latest, std::move(report.text), {}};
  const auto log = [&](QStringView what) {
    program.console.addLogEntry(code.text() + what + report.time.toString(u"HHmm"));
  };
  if (program.services.clock.now().secsTo(report.time) > toleranceSeconds) {
    log(u" FUTURE REPORT ");
    return {Standing::Future, std::move(report.text), {}};
  }
  const KnownReports::Known* known = program.knownReports.find(code, kind);
  if (known && report.time < known->time) {
    log(u" OLDER REPORT ");
    return {Standing::Older, std::move(report.text), known->text};
  }
  program.knownReports.keep(code, kind, {report.time, report.text});
  return {Standing::Latest, std::move(report.text), {}};
}

} // namespace soran
