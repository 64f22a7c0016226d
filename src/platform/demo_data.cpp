// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/demo_data.h"

#include "base/utc.h"
#include "platform/redating.h"

#include <QList>
#include <QStringList>
#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace soran {

namespace {

constexpr QStringView metarPath = u"/pub/data/observations/metar/stations/";
constexpr QStringView tafPath = u"/pub/data/forecasts/taf/stations/";
constexpr QStringView cyclePath = u"/pub/data/observations/metar/cycles/";

// The last time not after `now` at which the time of day was that of `issued`.
QDateTime lastTime(const QDateTime& issued, const QDateTime& now) {
  const QDateTime today = inUtc(now.date(), issued.time());
  return today > now ? today.addDays(-1) : today;
}

bool beginsChange(QStringView group) {
  return group == u"BECMG" || group == u"TEMPO" || (group.size() == 8 && group.startsWith(u"FM"));
}

QString inLines(const QString& report) {
  if (!report.startsWith(u"TAF"))
    return report;
  QString lines;
  const QStringList groups = report.split(u' ');
  for (const QString& group : groups) {
    if (!lines.isEmpty())
      lines += beginsChange(group) ? u"\n     "_s : u" "_s;
    lines += group;
  }
  return lines;
}

// A report as it stands in a file: the stamp line and the re-dated text.
QByteArray entry(const QString& text, const QDateTime& issued, const QDateTime& time) {
  const QString report = redated(text, issued.date(), issued.date().daysTo(time.date()));
  return (time.toString(u"yyyy/MM/dd HH:mm\n") + inLines(report) + u'\n').toUtf8();
}

// What stands between `folder` and `suffix` in the path of an address.
QString nameIn(const QUrl& url, QStringView folder, QStringView suffix) {
  const QString file = url.path(QUrl::FullyDecoded).mid(folder.size());
  return file.endsWith(suffix) ? file.chopped(suffix.size()) : QString();
}

} // namespace

DemoData::DemoData(const QByteArray& records, const Clock& clock) : clock_(clock) {
  const QList<QByteArray> lines = records.split('\n');
  for (const QByteArray& line : lines) {
    const QStringList fields = QString::fromUtf8(line).trimmed().split(u'\t');
    if (fields.size() != 4)
      continue;
    const QDateTime issued = QDateTime::fromString(fields[0], Qt::ISODate).toUTC();
    const QString opening = fields[2] + u' ';
    if (!issued.isValid() || !fields[3].startsWith(opening))
      continue;
    if (fields[2] == u"TAF")
      forecasts_[fields[1]].push_back({issued, fields[3]});
    else if (fields[2] == u"METAR" || fields[2] == u"SPECI")
      observations_[fields[1]].push_back({issued, fields[3].mid(opening.size())});
  }
  fillGaps();
}

void DemoData::fillGaps() {
  std::array<int, 24> count{};
  for (const Records& records : std::as_const(observations_)) {
    for (const Record& record : records)
      ++count.at(static_cast<size_t>(record.issued.time().hour()));
  }
  const int most = *std::max_element(count.begin(), count.end());
  const auto thin = [&](int hour) { return count.at(static_cast<size_t>((hour + 24) % 24)) * 3 < most; };
  int thinHours = 0;
  for (int hour = 0; hour < 24; ++hour)
    thinHours += thin(hour);
  if (thinHours > 12)
    return;
  for (int first = 0; first < 24; ++first) {
    if (!thin(first) || thin(first - 1))
      continue;
    for (int i = 0; thin(first + i); ++i) {
      if (const int source = first - 1 - i; !thin(source))
        fillHour((first + i) % 24, (source + 24) % 24);
    }
  }
}

void DemoData::fillHour(int hour, int source) {
  for (Records& records : observations_) {
    const auto in = [](int wanted) {
      return [wanted](const Record& record) { return record.issued.time().hour() == wanted; };
    };
    if (std::any_of(records.begin(), records.end(), in(hour)))
      continue;
    Records made;
    std::copy_if(records.begin(), records.end(), std::back_inserter(made), in(source));
    for (Record& record : made) {
      const QTime time(hour, record.issued.time().minute(), record.issued.time().second());
      const QDateTime anew = inUtc(record.issued.date(), time);
      record = {anew, reissued(record.text, record.issued, anew)};
    }
    records.insert(records.end(), made.begin(), made.end());
  }
}

std::optional<QByteArray> DemoData::latest(const QHash<QString, Records>& reports,
                                           const QString& station) const {
  const QDateTime now = clock_.now().toUTC();
  const auto found = reports.constFind(station);
  if (found == reports.cend())
    return {};
  // Of two reports of the same minute the one recorded later counts.
  const auto last =
      std::max_element(found->rbegin(), found->rend(), [&](const Record& one, const Record& other) {
        return lastTime(one.issued, now) < lastTime(other.issued, now);
      });
  return last == found->rend() ? std::nullopt
                               : std::optional(entry(last->text, last->issued, lastTime(last->issued, now)));
}

std::optional<QByteArray> DemoData::metarFile(const QString& station) const {
  return latest(observations_, station);
}

std::optional<QByteArray> DemoData::tafFile(const QString& station) const {
  return latest(forecasts_, station);
}

QByteArray DemoData::cycleFile(int hour) const {
  const QDateTime now = clock_.now().toUTC();
  // The present hour of yesterday gives way to that of today.
  const QDateTime begin = inUtc(now.date(), QTime(now.time().hour(), 0)).addSecs(-23LL * 3600);
  QList<QByteArray> entries;
  for (const Records& records : observations_) {
    for (const Record& record : records) {
      const QDateTime time = lastTime(record.issued, now);
      if (time.time().hour() == hour && time >= begin)
        entries.append(entry(record.text, record.issued, time));
    }
  }
  // The stamp comes first in an entry, so this is the order of time.
  std::sort(entries.begin(), entries.end());
  QByteArray file;
  for (const QByteArray& report : std::as_const(entries))
    file += report + '\n';
  return file;
}

void DemoData::serveOn(Endpoint& server) const {
  const auto answer = [](const std::optional<QByteArray>& file) {
    return file ? std::optional(Answer{.body = *file}) : std::nullopt;
  };
  server.setHandler(metarPath.toString(), [this, answer](const QUrl& url) {
    return answer(metarFile(nameIn(url, metarPath, u".TXT")));
  });
  server.setHandler(tafPath.toString(), [this, answer](const QUrl& url) {
    return answer(tafFile(nameIn(url, tafPath, u".TXT")));
  });
  server.setHandler(cyclePath.toString(), [this, answer](const QUrl& url) {
    bool number = false;
    const QString name = nameIn(url, cyclePath, u"Z.TXT");
    const int hour = name.toInt(&number);
    const bool known = number && name.size() == 2 && hour >= 0 && hour < 24;
    return answer(known ? std::optional(cycleFile(hour)) : std::nullopt);
  });
  server.setHandler(u"/api/data/isigmet"_s, [this](const QUrl&) { return Answer{.body = sigmet()}; });
}

QByteArray DemoData::sigmet() const {
  const QDateTime from = clock_.now().toUTC().addSecs(-3600);
  const auto group = [&](int hours) { return from.addSecs(hours * 3600LL).toString(u"ddHH00"); };
  return QString(
             u"RJJJ SIGMET D01 VALID " + group(0) + u'/' + group(4) +
             u" RJTD-\nRJJJ FUKUOKA FIR SEV TURB FCST WI N3640 E13830 - N3640 E14130 - N3430 E14130 - N3430 "
             "E13830 - N3640 E13830 FL280/380 MOV E 25KT NC=\n")
      .toUtf8();
}

} // namespace soran
