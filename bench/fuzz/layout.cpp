// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The first byte chooses kind and zone display; the first line is the zone, the rest the station file.
#include "reports/layout.h"

#include "base/text.h"
#include "targets.h"

namespace soran::fuzz {

namespace {

QString withoutBlanks(QStringView text) {
  return text.toString().remove(u' ');
}

} // namespace

void layout(QByteArrayView input) {
  if (input.isEmpty())
    return;
  const ReportKind kind = input[0] & 2 ? ReportKind::Taf : ReportKind::Metar;
  const QString whole = textOf(input.sliced(1));
  QStringView response = whole;
  const SettingsRecord settings = settingsIn(takeUntil(response, u'\n'), static_cast<uint8_t>(input[0]));

  const StationReport report = layoutReport(response, kind, settings);
  const QStringView behindCode = mid1(response, kind == ReportKind::Metar ? Position1(22) : Position1(26));
  require(withoutBlanks(report.body) == withoutBlanks(behindCode), "a layout moves blanks and nothing else");
  require(report.body.startsWith(u"      "), "the first line is indented by six blanks");
  require(report.body.size() <= 2 * behindCode.size() + 6, "a layout adds a few blanks only");
  require(report.stamp.text().size() <= 5 && response.contains(report.stamp.text()),
          "the stamp stands in the file");
  require(report.obsTime.size() >= 2 && report.obsTime.endsWith(displayedZone(settings)),
          "the label is an hour, minutes and the zone");

  const LineHeading heading = lineHeading(StationCode(QStringLiteral("RJTT")), response, settings);
  require(heading.text.startsWith(u"\r\nRJTT  ") && heading.text.endsWith(u' ' + heading.time),
          "a heading ends with its time");
}

} // namespace soran::fuzz
