// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runs/headline_note.h"

#include "base/text.h"
#include "desk/report_age.h"
#include "runs/night_desk.h"
#include "runs/program.h"

namespace soran {

using namespace Qt::StringLiterals;

namespace {

std::optional<ReportKind> kindNamed(QStringView word) {
  if (word == u"METAR" || word == u"SPECI")
    return ReportKind::Metar;
  if (word == u"TAF")
    return ReportKind::Taf;
  return std::nullopt;
}

QStringView lineAt(QStringView text, qsizetype at) {
  const qsizetype begin = at == 0 ? 0 : text.lastIndexOf(u'\n', at - 1) + 1;
  const qsizetype end = text.indexOf(u'\r', begin);
  return text.sliced(begin, (end < 0 ? text.size() : std::max(begin, end)) - begin);
}

} // namespace

QString ageText(const QDateTime& time, const QDateTime& now) {
  const qint64 minutes = std::max<qint64>(0, time.secsTo(now) / 60);
  const QString rest = QString::number(minutes % 60) + u" min OLD";
  return minutes < 60 ? rest : QString::number(minutes / 60) + u" h " + rest;
}

QString watchNote(Program& program) {
  const QDateTime now = program.services.clock.now().toUTC();
  QString oldest;
  QStringList overdue;
  QDateTime time;
  for (const QString& code : boardCodes(program, {}).value_or(QStringList())) {
    const auto* metar = program.knownReports.find(StationCode(code), ReportKind::Metar);
    if (!metar)
      continue;
    if (!time.isValid() || metar->time < time) {
      time = metar->time;
      oldest = code;
    }
    if (freshnessOf(metar->times, program.desk.watchedSince, now) == Freshness::Overdue)
      overdue.append(code);
  }
  if (oldest.isEmpty())
    return {};
  return u"OLDEST METAR "_s + oldest + u' ' + time.toString(u"ddHHmm") + u"Z / " + ageText(time, now) +
         u" / " + (overdue.isEmpty() ? u"NONE OVERDUE"_s : u"OVERDUE " + overdue.join(u' '));
}

QString headlineNote(const Program& program, qsizetype at) {
  const QStringView text = program.console.screen().text();
  if (at < 0 || at >= text.size())
    return {};
  const QList<QStringView> words = lineAt(text, at).split(u' ', Qt::SkipEmptyParts);
  const auto kind = words.size() == 3 ? kindNamed(words[1]) : std::nullopt;
  const auto known = kind ? program.knownReports.find(StationCode(words[0].toString()), *kind) : nullptr;
  if (!known)
    return {};
  return words[0] + u' ' + words[1] + u' ' + known->time.toString(u"ddHHmm") + u"Z / " +
         ageText(known->time, program.services.clock.now()) + u" / FROM " + known->source + u" / ASKED " +
         known->asked.toString(u"HH:mm") + u'Z';
}

} // namespace soran
