// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runs/last_known.h"

#include "base/skip.h"
#include "base/text.h"
#include "reports/colouring_words.h"
#include "reports/layout.h"
#include "runs/headline_note.h"
#include "runs/program.h"

namespace soran {

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcLast, "soran.last")

QString headline(const QDateTime& time, Program& program) {
  QString text = colouring::lastKnown + u" - " + ageText(time, program.services.clock.now());
  if (!program.networkAvailable)
    text += u" - NO NETWORK";
  return text + u" ***" + crlf;
}

std::optional<LastReport> find(Program& program, const QString& code, ReportKind kind) {
  const StationCode station(code);
  if (const KnownReports::Known* known = program.knownReports.find(station, kind))
    return LastReport{code, kind, known->text, known->time, known->asked, known->source};
  std::optional<LastReport> found;
  passOver(lcLast(), "looking for the last report", [&] { found = program.lastReports.find(code, kind); });
  return found;
}

QString metarText(const QString& code, const QString& file, const SettingsRecord& settings) {
  const StationReport report = layoutReport(file, ReportKind::Metar, settings);
  return code + kindWord(MinuteOfHour::at(report.obsTime, 3).isRoutine()) + report.obsTime + crlf +
         report.body;
}

QString tafText(const QString& code, const QString& file, const SettingsRecord& settings) {
  const StationReport report = layoutReport(file, ReportKind::Taf, settings);
  return crlf + code + u"  TAF   " + report.obsTime + crlf + report.body;
}

QString blockOf(Program& program, const QString& code) {
  const auto metar = find(program, code, ReportKind::Metar);
  const auto taf = find(program, code, ReportKind::Taf);
  if (!metar && !taf)
    return crlf + code + u"  NOT FOUND" + crlf;
  QString text = crlf + headline(metar ? metar->time : taf->time, program);
  if (metar)
    text += metarText(code, metar->text, program.record());
  if (taf)
    text += tafText(code, taf->text, program.record());
  return text + crlf;
}

} // namespace

QString knownReportText(Program& program, const QString& code) {
  const StationCode station(code);
  QString text;
  if (const auto* metar = program.knownReports.find(station, ReportKind::Metar))
    text += metarText(code, metar->text, program.record());
  if (const auto* taf = program.knownReports.find(station, ReportKind::Taf))
    text += tafText(code, taf->text, program.record());
  return text;
}

void keepLastReports(Program& program) {
  const std::vector<LastReport> fresh = program.knownReports.takenSince(program.keptReports);
  if (fresh.empty())
    return;
  passOver(lcLast(), "keeping the last reports", [&] { program.lastReports.keep(fresh); });
  program.keptReports = program.knownReports.count();
}

QString lastKnownText(Program& program, const QStringList& codes) {
  QString text;
  for (const QString& code : codes)
    text += blockOf(program, code);
  return text;
}

} // namespace soran
