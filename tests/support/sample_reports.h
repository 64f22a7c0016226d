// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QFile>
#include <QRegularExpression>
#include <QString>
#include <vector>

namespace soran {

struct SampleReport {
  QString text; ///< on one line, from METAR, SPECI, TAF or the station on
  bool isForecast = false;
  QDateTime issued = {}; ///< UTC; invalid where the file does not tell
};

/// The reports of the file that SORAN_REPORTS names, a report a line with columns ahead of it, else those of
/// the recorded day.
inline std::vector<SampleReport> sampleReports() {
  QFile file(qEnvironmentVariable("SORAN_REPORTS", QStringLiteral(":/delivered/demo/day.tsv")));
  const QByteArray bytes = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  static const QRegularExpression isReport(QStringLiteral("\\d{6}Z "));
  std::vector<SampleReport> reports;
  for (const QString& line : QString::fromUtf8(bytes).split(u'\n')) {
    const QString text = line.section(u'\t', -1);
    if (isReport.match(text).hasMatch())
      reports.push_back(
          {text, text.startsWith(u"TAF "), QDateTime::fromString(line.section(u'\t', 0, 0), Qt::ISODate)});
  }
  return reports;
}

} // namespace soran
