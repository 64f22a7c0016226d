// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/source_check.h"

#include "base/text.h"
#include "base/utc.h"
#include "imagery/image_choice.h"
#include "imagery/image_fetch.h"
#include "platform/network.h"
#include "reports/raw_lines.h"
#include "reports/station_text.h"
#include "store/json_fields.h"

#include <QHash>
#include <algorithm>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

constexpr int hour = 60;

QString kindName(BodyKind kind) {
  switch (kind) {
  case BodyKind::Empty:
    return u"empty"_s;
  case BodyKind::Png:
    return u"image png"_s;
  case BodyKind::Jpeg:
    return u"image jpeg"_s;
  case BodyKind::Gif:
    return u"image gif"_s;
  case BodyKind::Svg:
    return u"image svg"_s;
  case BodyKind::Pdf:
    return u"pdf"_s;
  case BodyKind::Html:
    return u"html page"_s;
  case BodyKind::Json:
    return u"json"_s;
  case BodyKind::Other:
    break;
  }
  return u"other"_s;
}

/// Why an answer brings nothing, whatever it should have brought; empty where it brings a body.
QString refusalOf(const Reply& reply, bool empty) {
  constexpr int refusals[] = {401, 402, 403, 407, 429, 451};
  switch (reply.failure) {
  case NetFailure::Unreachable:
  case NetFailure::TimedOut:
  case NetFailure::Cancelled:
    return u"NO ANSWER"_s;
  case NetFailure::Cut:
  case NetFailure::TooLarge:
    return u"BROKEN"_s;
  case NetFailure::NoFile:
    return u"NOTHING"_s;
  case NetFailure::None:
  case NetFailure::Status:
    break;
  }
  if (reply.status >= 500 || std::ranges::find(refusals, reply.status) != std::end(refusals))
    return u"REFUSED"_s;
  return reply.status >= 400 || empty ? u"NOTHING"_s : QString();
}

/// What a text that was asked for turned out to be.
struct Reading {
  QString kind;
  QDateTime time = {};
  QString verdict = CheckedSource::good.toString();
};

class SourceCheck {
 public:
  SourceCheck(const Endpoints& endpoints, Inet& inet, const QDateTime& now,
              const std::function<bool(const CheckedSource&)>& told)
      : endpoints_(endpoints), inet_(inet), now_(now.toUTC()), told_(told) {}

  void run() {
    for (const ReportSource& source : endpoints_.reportSources()) {
      reports(source, ReportKind::Metar);
      reports(source, ReportKind::Taf);
    }
    const QString cycle = endpoints_.cycles + twoDigits(now_.addSecs(-3600).time().hour()) + u"Z.TXT";
    text(u"cycles"_s, QUrl(cycle), 2 * hour, [this](const QByteArray& body) { return cycleFile(body); });
    text(u"update"_s, QUrl(endpoints_.update + u"/data/version.dat"), 0, versions);
    if (!endpoints_.sigmet.isEmpty())
      text(u"sigmet"_s, QUrl(endpoints_.sigmet), 0, sigmets);
    for (const ItemRow& item : itemRows(endpoints_, now_.toLocalTime(), u"+9")) {
      if (goesOn_)
        image(item);
    }
  }

 private:
  using Reader = std::function<Reading(const QByteArray&)>;

  void reports(const ReportSource& source, ReportKind kind) {
    std::vector<StationCode> codes = {StationCode(u"RJTT"_s)};
    if (source.takesLists(kind) && source.list > 1)
      codes.emplace_back(u"RJAA"_s);
    const bool metar = kind == ReportKind::Metar;
    text(source.name + (metar ? u" METAR" : u" TAF"), source.address(kind, codes), metar ? hour : 6 * hour,
         [&](const QByteArray& body) {
           return source.form == ReportSource::Form::RawLines ? rawLines(body, kind, codes)
                                                              : stationFile(body, codes.front());
         });
  }

  static QString textOf(const QByteArray& body) { return Reply{.ok = true, .body = body}.text(); }

  static Reading other(const QByteArray& body) {
    return {.kind = kindName(bodyKind(body)), .verdict = u"WRONG KIND"_s};
  }

  static Reading stationFile(const QByteArray& body, const StationCode& code) {
    const StationText read = readStationText(code, textOf(body));
    return read.isReport() ? Reading{.kind = u"report"_s, .time = read.time} : other(body);
  }

  Reading rawLines(const QByteArray& body, ReportKind kind, const std::vector<StationCode>& codes) const {
    const QHash<QString, RawReport> read = readRawLines(textOf(body), kind, now_);
    if (read.isEmpty())
      return other(body);
    Reading reading{.kind = u"raw lines"_s};
    for (const StationCode& code : codes) {
      const auto report = read.constFind(code.text());
      if (report == read.cend())
        reading.verdict = u"NOT ALL"_s;
      else if (!reading.time.isValid() || report->time < reading.time)
        reading.time = report->time;
    }
    return reading;
  }

  Reading cycleFile(const QByteArray& body) const {
    const QDateTime last = QDateTime::fromString(QString::fromLatin1(body.left(16)), u"yyyy/MM/dd HH:mm"_s);
    return last.isValid() ? Reading{.kind = u"report"_s, .time = inUtc(last.date(), last.time())}
                          : other(body);
  }

  static Reading versions(const QByteArray& body) {
    const bool three = bodyKind(body) == BodyKind::Other && body.trimmed().count('\n') == 2;
    return three ? Reading{.kind = u"other"_s} : other(body);
  }

  static Reading sigmets(const QByteArray& body) {
    return bodyKind(body) == BodyKind::Other ? Reading{.kind = u"raw lines"_s} : other(body);
  }

  void text(const QString& name, const QUrl& url, int period, const Reader& read) {
    if (!goesOn_)
      return;
    const Reply reply = inet_.open(url);
    CheckedSource source{.name = name, .address = url.toString(), .status = reply.status};
    const BodyKind kind = bodyKind(reply.body);
    source.kind = kindName(kind);
    source.verdict = refusalOf(reply, kind == BodyKind::Empty);
    // There are hours without a SIGMET in force.
    if (name == u"sigmet" && (reply.status == 204 || (reply.ok && kind == BodyKind::Empty)))
      source.verdict = CheckedSource::good.toString();
    if (source.verdict.isEmpty()) {
      const Reading reading = read(reply.body);
      source.kind = reading.kind;
      source.age = imageAge(reading.time, now_);
      const bool old = reading.verdict == CheckedSource::good && isOld(reading.time, period, now_);
      source.verdict = old ? u"OLD"_s : reading.verdict;
    }
    tell(source);
  }

  void image(const ItemRow& item) {
    const ImageRow& row = item.row;
    const bool bad = endpoints_.images->faults.contains(row.reason);
    if (bad)
      tell({.name = item.key, .address = row.reason, .kind = u"-"_s, .verdict = u"BAD ROW"_s});
    if (!row.isAvailable())
      return;
    // Several items may show the same.
    const QString same = row.list + u' ' + row.layers.join(u' ');
    if (!images_.contains(same))
      images_.insert(same, judged(row, fetchImage(inet_, row, now_)));
    CheckedSource source = images_.value(same);
    source.name = item.key;
    tell(source);
  }

  CheckedSource judged(const ImageRow& row, const FetchedImage& found) const {
    CheckedSource source{.address = found.address.toString(),
                         .status = found.reply.status,
                         .kind = kindName(found.kind),
                         .age = imageAge(found.time, now_)};
    const QString refusal = refusalOf(found.reply, found.kind == BodyKind::Empty);
    const bool page = row.kind == ImageRow::Kind::Page;
    if (found.ok() && (!page || found.kind == BodyKind::Html || found.kind == BodyKind::Svg))
      source.verdict = isOld(found.time, row.period, now_) ? u"OLD"_s : CheckedSource::good.toString();
    else if (!refusal.isEmpty())
      source.verdict = refusal;
    else
      source.verdict = found.isList ? u"NO NAME"_s : u"WRONG KIND"_s;
    return source;
  }

  void tell(const CheckedSource& source) {
    if (goesOn_)
      goesOn_ = told_(source);
  }

  const Endpoints& endpoints_;
  Inet& inet_;
  QDateTime now_;
  const std::function<bool(const CheckedSource&)>& told_;
  QHash<QString, CheckedSource> images_;
  bool goesOn_ = true;
};

QString ageText(const std::optional<qint64>& age) {
  return age ? QString::number(*age) + u" min" : u"-"_s;
}

QString lineText(const QString& name, const QString& status, const QString& kind, const QString& age,
                 const QString& verdict, const QString& address) {
  return name.leftJustified(26) + u' ' + status.rightJustified(6) + u"  " + kind.leftJustified(10) + u' ' +
         age.rightJustified(10) + u"  " + verdict.leftJustified(11) + u' ' + address + u'\n';
}

QString lineText(const CheckedSource& source) {
  return lineText(source.name, source.status == 0 ? u"-"_s : QString::number(source.status), source.kind,
                  ageText(source.age), source.verdict, source.address);
}

QByteArray jsonLine(const CheckedSource& source) {
  return lineOf({{u"name"_s, source.name},
                 {u"address"_s, source.address},
                 {u"status"_s, source.status == 0 ? QJsonValue() : QJsonValue(source.status)},
                 {u"kind"_s, source.kind},
                 {u"age_min"_s, source.age ? QJsonValue(*source.age) : QJsonValue()},
                 {u"verdict"_s, source.verdict}});
}

} // namespace

void checkSources(const Endpoints& endpoints, Inet& inet, const QDateTime& now,
                  const std::function<bool(const CheckedSource&)>& told) {
  SourceCheck(endpoints, inet, now, told).run();
}

int checkSourcesCall(const LaunchOptions& options, DeliveredFile delivered, StandardStream& output,
                     StandardStream& errors) {
  SteppedTimers timers;
  Launch launch(options, timers, std::move(delivered));
  if (!launch.fault().isEmpty()) {
    errors.tell(u"soran-cli: "_s + launch.fault() + u'\n');
    return notStarted;
  }
  const std::shared_ptr<Network> network = makeNetwork();
  network->courtesy().keepApart(std::chrono::seconds(1));
  NetInet inet(network, launch.shutdown());
  inet.setRequestTimeout(20);
  bool good = true;
  bool written = options.json || output.tell(lineText(u"NAME"_s, u"STATUS"_s, u"KIND"_s, u"AGE"_s,
                                                      u"VERDICT"_s, u"ADDRESS"_s));
  checkSources(launch.endpoints(), inet, launch.clock().now(), [&](const CheckedSource& source) {
    good = good && source.isGood();
    written = written && (options.json ? output.writeAll(jsonLine(source)) : output.tell(lineText(source)));
    return written;
  });
  if (!written)
    return outputLost;
  return good ? 0 : notStarted;
}

} // namespace soran
