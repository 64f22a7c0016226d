// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/layout.h"

#include "base/report_rules.h"
#include "base/text.h"

#include <array>
#include <utility>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

// Applied one after the other over the whole text; each works on the result of the one before. The three
// replacements of blanks bring every indent of a file to six blanks.
constexpr std::array<std::pair<QStringView, QStringView>, 8> replacements = {{
    {u"TRD", u"TRD  "},
    {u"AMD", u"AMD  "},
    {u"COR", u"COR  "},
    {u"       ", u"     "},
    {u"      ", u"     "},
    {u"    ", u"     "},
    {u"BECMG", u"BECMG  "},
    {u"TEMPO", u"TEMPO  "},
}};

} // namespace

int displayedHour(int hour, const SettingsRecord& settings) {
  return settings[key::LOCAL使用] == true ? shiftedHour(hour, settings.zoneOffset()) : hour;
}

QString displayedZone(const SettingsRecord& settings) {
  return settings[key::LOCAL使用] == true ? ZoneLetter(settings.zoneOffset()).toString() : u"Z"_s;
}

StationReport layoutReport(QStringView response, ReportKind kind, const SettingsRecord& settings) {
  const int hour = displayedHour(leadingInteger(mid1(response, 12, 2)), settings);
  QString label = QString::number(hour);
  if (hour < 10)
    label.prepend(u'0');
  label += mid1(response, 15, 2);
  label += displayedZone(settings);

  constexpr Position1 metarBody = 22;
  constexpr Position1 tafBody = 26;
  QString body = u"     "_s + mid1(response, kind == ReportKind::Metar ? metarBody : tafBody);
  for (const auto& [find, replace] : replacements)
    body.replace(find.toString(), replace.toString());
  return {Stamp::of(response), label, body};
}

QString kindWord(bool routine) {
  return routine ? u"  METAR "_s : u"  SPECI "_s;
}

LineHeading lineHeading(const StationCode& code, QStringView line, const SettingsRecord& settings) {
  const QStringView hhmm = mid1(line, 8, 4);
  QString time = hhmm.toString();
  if (settings[key::LOCAL使用] == true)
    time = twoDigits(displayedHour(leadingInteger(hhmm.first(qMin<qsizetype>(2, hhmm.size()))), settings)) +
           mid1(hhmm, 3);
  time += displayedZone(settings);
  const bool routine = MinuteOfHour::at(line, 10).isRoutine();
  return {crlf + code.text() + kindWord(routine) + time, time};
}

} // namespace soran
