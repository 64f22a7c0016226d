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

/// The report without what stands ahead of its code, and without its lines.
QString reportIn(const QString& file, const StationCode& code) {
  return file.sliced(std::max<qsizetype>(0, file.indexOf(code.text(), file.indexOf(u'\n')))).simplified();
}

} // namespace

const KnownReports::Known* KnownReports::find(const StationCode& code, ReportKind kind) const {
  const auto found = reports_.find({code.text(), kind});
  return found == reports_.end() ? nullptr : &found->second;
}

void KnownReports::keep(const StationCode& code, ReportKind kind, Known latest) {
  constexpr qint64 keptSeconds = qint64(26) * 3600;
  Known& known = reports_[{code.text(), kind}];
  latest.number = ++count_;
  latest.times = std::move(known.times);
  latest.before = known.time.isValid() && known.time != latest.time ? known.text : known.before;
  if (latest.times.empty() || latest.times.back() != latest.time)
    latest.times.push_back(latest.time);
  std::erase_if(latest.times, [&](const QDateTime& time) { return time.secsTo(latest.time) > keptSeconds; });
  known = std::move(latest);
}

std::vector<LastReport> KnownReports::takenSince(int number) const {
  std::vector<LastReport> taken;
  for (const auto& [station, known] : reports_) {
    if (known.number > number)
      taken.push_back({station.first, station.second, known.text, known.time, known.asked, known.source});
  }
  return taken;
}

Arrival takeIn(Program& program, const StationCode& code, ReportKind kind,
               const std::optional<StationText>& brought, const QString& source) {
  constexpr qint64 toleranceSeconds = 3600;
  if (!brought)
    return {};
  StationText report = *brought;
  if (!report.isReport())
    return refused(program, code, report);
  if (!report.time.isValid())
    return {Standing::Latest, std::move(report.text), {}};
  const auto log = [&](const QString& what) {
    program.console.addLogEntry(code.text() + what + report.time.toString(u"HHmm"));
  };
  const QDateTime now = program.services.clock.now();
  if (now.secsTo(report.time) > toleranceSeconds) {
    log(u" FUTURE REPORT "_s);
    return {Standing::Future, std::move(report.text), {}};
  }
  const KnownReports::Known* known = program.knownReports.find(code, kind);
  if (known && known->source != source && reportIn(known->text, code) == reportIn(report.text, code)) {
    // The same report of another source, which may have another time of writing.
    report.text = known->text;
    report.time = known->time;
  }
  if (known && report.time < known->time) {
    log(u" OLDER REPORT "_s);
    return {Standing::Older, std::move(report.text), known->text};
  }
  if (report.isSpecial && *report.isSpecial == isRoutine(report.time))
    log((*report.isSpecial ? u" IS SPECI BY "_s : u" IS METAR BY "_s) + source + u' ');
  program.knownReports.keep(code, kind, {report.time, report.text, source, now.toUTC(), report.isSpecial});
  return {Standing::Latest, std::move(report.text), {}};
}

} // namespace soran
