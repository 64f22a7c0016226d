// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/watch.h"

#include "base/text.h"
#include "cli/plain_values.h"
#include "runs/desk_record.h"
#include "runs/night_desk.h"
#include "start/opening.h"

#include <QEventLoop>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

/// The report of a station file on one line.
QString onOneLine(const KnownReports::Known* known) {
  return known ? known->text.section(u'\n', 1).simplified() : QString();
}

} // namespace

Watch::Watch(const LaunchOptions& options, DeliveredFile delivered, StandardStream& output,
             StandardStream& errors)
    : options_(options), output_(output), errors_(errors), launch_(options, timers_, std::move(delivered)),
      waiting_(launch_.shutdown()), program_(launch_.services(desk_.frontEnd(waiting_))), view_(program_),
      hooks_(options.exec, QUrl(options.webhook), errors) {
  connect(&signals_, &SignalWatch::closing, this, [this] { view_.terminal().close(); });
  connect(&timer_, &QTimer::timeout, this, &Watch::second);
  program_.services.handsOver = false;
  desk_.onDialog = [this](const QString& text) { errors_.tell(text.simplified() + u'\n'); };
}

QDateTime Watch::now() const {
  return program_.services.clock.now().toUTC();
}

std::optional<QStringList> Watch::codes() {
  if (options_.list.isEmpty())
    return boardCodes(program_, options_.group);
  const QString list = asciiUpper(options_.list.simplified());
  QStringList codes = list.split(u' ');
  codes.removeDuplicates();
  return isCodeList(list) ? std::optional(codes) : std::nullopt;
}

int Watch::run() {
  Opening opening(program_);
  if (opening.start() != Opening::Result::Started) {
    errors_.tell(u"soran-cli: "_s + opening.failure() + u'\n');
    return notStarted;
  }
  const std::optional<QStringList> watched = codes();
  if (!watched || watched->isEmpty()) {
    const QString why = !options_.list.isEmpty()    ? u"no codes: "_s + options_.list
                        : !options_.group.isEmpty() ? u"no such group, or an empty one: "_s + options_.group
                                                    : u"the automatic list is empty"_s;
    errors_.tell(u"soran-cli: no airports to watch: "_s + why + u'\n');
    return notStarted;
  }
  if (launch_.demo())
    errors_.tell(demonstrationMark + u'\n');
  program_.desk.watched = *watched;
  program_.desk.tellsCrossings = true;
  QEventLoop loop;
  connect(&view_, &View::stopped, &loop, &QEventLoop::quit);
  Terminal& terminal = view_.terminal();
  terminal.guarded([&] { terminal.start(opening.notice()); });
  terminal.guarded([&] {
    terminal.cycle().run(
        {.kind = RunKind::List, .codes = watched->join(u' '), .origin = RunOrigin::Typed, .fullLoad = true});
  });
  // What is there at the start is no news.
  newReports();
  timer_.start(1000);
  if (!terminal.ended())
    loop.exec();
  return lost_ ? outputLost : 0;
}

void Watch::second() {
  if (const QString note = recordNote(program_); note != std::exchange(note_, note) && !note.isEmpty())
    errors_.tell(u"soran-cli: "_s + note + u'\n');
  for (const WatchEvent& event : newReports())
    tell(event);
  takeAlarms();
  lookAtNetwork();
  lookAtAges();
}

/// The reports that are others than when they were looked for last. The log and the pad of the window have
/// one line for the METAR and the TAF that come at the same time, and none for a correction of the same time.
std::vector<WatchEvent> Watch::newReports() {
  std::vector<WatchEvent> events;
  for (const QString& code : program_.desk.watched) {
    for (const ReportKind kind : {ReportKind::Metar, ReportKind::Taf}) {
      const auto* known = program_.knownReports.find(StationCode(code), kind);
      Told& told = told_[{code, kind}];
      if (!known || known->number == told.number)
        continue;
      told.number = known->number;
      WatchEvent event{.time = now(), .code = code};
      addReport(event, kind);
      if (std::exchange(told.report, event.report) == event.report)
        continue;
      nameReport(event);
      events.push_back(std::move(event));
    }
  }
  return events;
}

void Watch::takeAlarms() {
  for (const AlarmEvent& alarm : std::exchange(program_.desk.untold, {})) {
    WatchEvent event{.time = alarm.time,
                     .event = nameOf(alarm.kind).toString(),
                     .code = alarm.code,
                     .text = eventText(alarm),
                     .alarm = alarm};
    if (alarm.kind <= AlarmEventKind::Back)
      addReport(event, alarm.report);
    tell(event);
  }
}

/// What is known of the airport's newest report of a kind.
void Watch::addReport(WatchEvent& event, ReportKind kind) const {
  const auto* known = program_.knownReports.find(StationCode(event.code), kind);
  if (!known)
    return;
  event.report = onOneLine(known);
  event.source = known->source;
  event.kind = u"TAF"_s;
  if (kind == ReportKind::Metar)
    event.kind = metarKind(known->time, known->isSpecial);
}

void Watch::lookAtAges() {
  for (const BoardRow& row : boardRows(program_, program_.desk.watched)) {
    const QString& code = row.code.text();
    const Freshness before = std::exchange(ages_[code], row.freshness);
    const auto tellState = [&](const QString& name, ReportKind kind) {
      const QString report = kind == ReportKind::Taf ? u"TAF"_s : cellOf(row, BoardColumn::Report, now());
      WatchEvent event{
          .time = now(), .event = name, .code = code, .text = code + u' ' + name + u' ' + report};
      addReport(event, kind);
      tell(event);
    };
    if (row.freshness == Freshness::Overdue && before != Freshness::Overdue)
      tellState(u"OVERDUE"_s, ReportKind::Metar);
    if (row.freshness == Freshness::Current && before == Freshness::Overdue)
      tellState(u"CURRENT"_s, ReportKind::Metar);
    const bool isExpired = row.taf == TafState::Expired;
    if (isExpired && !std::exchange(expired_[code], isExpired))
      tellState(u"EXPIRED"_s, ReportKind::Taf);
    expired_[code] = isExpired;
  }
}

void Watch::lookAtNetwork() {
  const auto tellChange = [this](const QString& name, const QString& text, const QString& source = {}) {
    tell({.time = now(), .event = name, .text = text, .source = source});
  };
  const bool connected = program_.networkAvailable;
  if (connected_ && *connected_ != connected)
    tellChange(connected ? u"NETWORK BACK"_s : u"NETWORK LOST"_s, {});
  connected_ = connected;
  // Behind the words for a network stands the source that is away.
  const QString panel = connected ? program_.connectedText() : panel1_;
  if (panel != panel1_ && !panel1_.isEmpty())
    tellChange(panel == panelConnected ? u"SOURCE BACK"_s : u"SOURCE AWAY"_s, panel,
               program_.services.endpoints.reportSources().front().name);
  panel1_ = panel;
}

void Watch::tell(const WatchEvent& event) {
  const QByteArray json = jsonOf(event);
  const bool written = options_.json ? output_.writeAll(json + '\n') : output_.tell(lineOf(event) + u'\n');
  hooks_.give(json);
  if (written)
    return;
  // Nobody reads what is told.
  lost_ = true;
  view_.terminal().close();
}

} // namespace soran
