// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "load/reports.h"

#include "base/utc.h"
#include "common/loopback.h"

#include <algorithm>
#include <ranges>

namespace soran::bench {

using namespace Qt::StringLiterals;

namespace {

constexpr int hoursOfDay = 24;

QByteArray metarText(const QString& code, const QDateTime& issued) {
  // Figures that differ from hour to hour and from station to station.
  const int turn = code[2].unicode() * 31 + code[3].unicode() * 7 + issued.time().hour() * 3;
  static constexpr const char* weather[] = {"9999 FEW030 BKN090", "9999 -RA FEW012 BKN025 OVC040",
                                            "3000 +SHRA BR SCT008 BKN015 FEW020CB", "0800 FG VV002"};
  const auto two = [](int number) { return QByteArray::number(number + 100).sliced(1); };
  return code.toLatin1() + issued.toString(u" ddHHmm'Z '").toLatin1() + two(turn % 36) + "0" +
         two(4 + turn % 20) + "KT " + weather[turn % 4] + ' ' + two(turn % 30) + '/' + two(turn % 25) +
         " Q10" + two(turn % 40) + " NOSIG RMK 1CU030 A2992";
}

QByteArray tafText(const QString& code, const QDateTime& issued, bool amended) {
  const QByteArray day = issued.toString(u"dd").toLatin1();
  return (amended ? "TAF AMD " : "TAF ") + code.toLatin1() + issued.toString(u" ddHHmm'Z '").toLatin1() +
         day + "06/" + day + "24 20010KT 9999 FEW030\n     BECMG " + day + "10/" + day +
         "12 4000 -RA BR BKN008\n     TEMPO " + day + "14/" + day + "20 1500 +SHRA BKN004 FEW015CB";
}

QByteArray entry(const QDateTime& issued, const QByteArray& text) {
  return issued.toString(u"yyyy/MM/dd HH:mm\n").toLatin1() + text + '\n';
}

} // namespace

QStringList stationCodes(int count) {
  QStringList codes;
  for (int i = 0; i < count; ++i)
    codes.append(u"RJ"_s + QChar(u'A' + i / 26) + QChar(u'A' + i % 26));
  return codes;
}

Reports::Reports(const QStringList& codes, const QDateTime& begin, int days) : now(begin) {
  const QDateTime first = inUtc(begin.date().addDays(-1), QTime(0, 0));
  for (qsizetype i = 0; i < codes.size(); ++i) {
    std::vector<Report>& reports = reports_[codes[i]];
    for (int hour = 0; hour < (days + 2) * hoursOfDay; ++hour) {
      const auto add = [&](int minute, bool taf, bool amended) {
        reports.push_back({first.addSecs((qint64(hour) * 60 + minute) * 60), taf, amended});
      };
      const int turn = int(hour + i * 5) % hoursOfDay;
      add(0, false, false);
      if (hour % 6 == 5)
        add(9, true, false);
      if (turn % 8 == 3)
        add(16 + int(i) % 6, false, false);
      add(30, false, false);
      if (turn == 13)
        add(42, true, true);
    }
  }
}

void Reports::serveOn(EndpointServer& server) {
  const auto serve = [&](QStringView folder, bool taf) {
    server.setHandler(folder.toString(), [this, folder, taf](const QUrl& url) -> std::optional<Answer> {
      const auto found = file(url.path().mid(folder.size(), 4), taf);
      return found ? std::optional(Answer{.body = *found}) : std::nullopt;
    });
  };
  serve(metarFolder, false);
  serve(tafFolder, true);
  server.setHandler(cycleFolder.toString(), [this](const QUrl& url) {
    return std::optional(Answer{.body = cycleFile(url.path().mid(cycleFolder.size(), 2).toInt())});
  });
}

std::optional<QByteArray> Reports::file(const QString& code, bool taf) const {
  const auto found = reports_.constFind(code);
  if (found == reports_.cend())
    return std::nullopt;
  const auto behind = std::ranges::upper_bound(*found, now, {}, &Report::issued);
  for (auto report = behind; report != found->begin();) {
    --report;
    if (report->taf == taf)
      return entry(report->issued,
                   taf ? tafText(code, report->issued, report->amended) : metarText(code, report->issued));
  }
  return std::nullopt;
}

QByteArray Reports::cycleFile(int hour) const {
  QDateTime begin = inUtc(now.date(), QTime(hour, 0));
  if (begin > now)
    begin = begin.addDays(-1);
  const QDateTime end = std::min(now, begin.addSecs(3599));
  QByteArray text;
  for (auto station = reports_.cbegin(); station != reports_.cend(); ++station) {
    for (auto report = std::ranges::lower_bound(*station, begin, {}, &Report::issued);
         report != station->end() && report->issued <= end; ++report) {
      if (!report->taf)
        text += entry(report->issued, metarText(station.key(), report->issued)) + '\n';
    }
  }
  return text;
}

QStringList Reports::announcements(const QString& code, const QDateTime& from, const QDateTime& to) const {
  QStringList lines;
  for (const Report& report : reports_[code]) {
    if (report.issued <= from || report.issued > to)
      continue;
    const bool routine = report.issued.time().minute() % 30 == 0;
    lines.append(code + (report.amended ? u" TAF(AMD) RECEIVED"_s
                         : report.taf   ? u" TAF   CHANGED"_s
                         : routine      ? u" METAR CHANGED"_s
                                        : u" SPECI RECEIVED"_s));
  }
  return lines;
}

} // namespace soran::bench
