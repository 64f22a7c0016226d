// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runs/run_display.h"

#include "base/report_rules.h"
#include "base/skip.h"
#include "base/text.h"
#include "reports/group_titles.h"
#include "reports/layout.h"
#include "reports/sequence_record.h"

namespace soran {

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcPipeline, "soran.pipeline")

bool showsReports(RunKind kind) {
  return kind != RunKind::Japanese && kind != RunKind::Sequence;
}

bool isRoutine(const LaidOutReport& metar) {
  return MinuteOfHour::at(metar.obsTime, 3).isRoutine();
}

/// The METAR as it stands on the screen.
QString metarText(const StationResult& station) {
  return station.code.text() + kindWord(isRoutine(station.metar)) + station.metar.obsTime + crlf +
         station.metar.body;
}

QString clockText(QTime now, const SettingsRecord& settings) {
  // The local clock is taken to be Japan's.
  const int hour = displayedHour(now.hour() - 9, settings);
  return twoDigits(std::abs(hour)) + u':' + twoDigits(now.minute()) + u'(' + displayedZone(settings) + u')';
}

/// The log line of a TAF. A body says NO OBSERVATION only where the station itself does; a refused TAF says
/// NO FORECAST and is logged as received.
QString tafLogLine(const StationCode& station, const QString& body) {
  const QString& code = station.text();
  if (body.contains(u"NO OBSERVATION"))
    return u"NOT FOUND " + code;
  const QStringView amendment = amendmentIn(body);
  if (amendment.isEmpty())
    return code + u" TAF   RECEIVED";
  return code + u" TAF(" + amendment + u") RECEIVED";
}

QString titleOf(const RunRequest& request) {
  switch (request.kind) {
  case RunKind::Group:
    return groupTitles(request.group, request.codes).title;
  case RunKind::Automatic:
    return u"*** AUTO DECODE - WEATHER OBSERVATION AND FORECASTS ***"_s;
  default:
    return u"*** " + request.codes + u" - WEATHER OBSERVATION AND FORECASTS ***";
  }
}

QString reportsText(const GatheredRun& run) {
  QString text = titleOf(run.request) + crlf;
  for (const StationResult& station : run.stations) {
    if (!station.metar.found) {
      text += crlf + station.code.text() + u"  NOT FOUND" + crlf;
      continue;
    }
    text += crlf + metarText(station);
    text += crlf + station.code.text() + u"  TAF   " + station.taf.obsTime + crlf + station.taf.body + crlf;
  }
  return text;
}

/// A block with a title for each station.
QString blocksText(const GatheredRun& run) {
  const QStringView title = run.request.kind == RunKind::Japanese
                                ? u" - JAPANESE TRANSLATION WEATHER OBSERVATION ***"
                                : u" - SEQUENCE WEATHER OBSERVATION ***";
  QString text;
  for (const StationResult& station : run.stations) {
    if (&station != &run.stations.front())
      text += crlf;
    text += u"*** " + station.code.text() + title + crlf + station.block;
  }
  return text;
}

void stage(QString& staging, const GatheredRun& run, const QString& screen) {
  if (run.noRecord) {
    staging = screen + crlf + u"NO SEQUENCE DATA" + crlf;
  } else if (showsReports(run.request.kind)) {
    if (!staging.isEmpty())
      staging += crlf + crlf;
    staging += reportsText(run);
  } else {
    staging += blocksText(run);
  }
}

} // namespace

bool RunDisplay::readsOwnRecord(const RunRequest& request) const {
  return request.kind == RunKind::Sequence && program_.record()[key::シーケンス表示] != true;
}

void RunDisplay::begins(const RunRequest& request) {
  if (readsOwnRecord(request))
    return; // there is nothing to wait for
  Console& console = program_.console;
  console.setBusy(true);
  console.setPanel(2, request.kind == RunKind::Sequence   ? u"データ シーケンス取得中"_s
                      : request.kind == RunKind::Japanese ? u"日本語デコード中"_s
                                                          : u"受信中"_s);
  if (!request.fullLoad)
    return;
  if (request.kind == RunKind::Automatic) {
    console.appendScreen(crlf + u"AUTO DECODE SEQUENCE START" + crlf + u"LOADING");
  } else if (request.kind == RunKind::Group) {
    const GroupTitles titles = groupTitles(request.group, request.codes);
    console.appendScreen(crlf + titles.opening + crlf + u"LOADING");
    console.addLogEntry(titles.log);
    console.caretToEnd();
  }
}

void RunDisplay::asks(const RunRequest& request, const StationCode& code, int place, int total) {
  Console& console = program_.console;
  if (!readsOwnRecord(request))
    emit console.progress(place, total);
  rememberWord(console.recentCodes, code.text());
  if (!request.fullLoad || !showsReports(request.kind))
    return;
  if (request.kind != RunKind::List)
    console.appendScreen(u' ' + code.text());
  console.caretToEnd();
}

void RunDisplay::tookMetar(const RunRequest& request, const StationResult& station) {
  Console& console = program_.console;
  if (!station.metar.found) {
    console.addLogEntry(u"NOT FOUND " + station.code.text());
    return;
  }
  if (request.fullLoad)
    console.addLogEntry(station.code.text() +
                        (isRoutine(station.metar) ? u" METAR RECEIVED"_s : u" SPECI RECEIVED"_s));
  if (!station.metar.older &&
      !appendSequenceRecord(program_.services.path(u"data/sequence.dat"), metarText(station)))
    qCWarning(lcPipeline) << "passed over: appending to the sequence record";
}

void RunDisplay::tookTaf(const RunRequest& request, const StationResult& station) {
  if (request.fullLoad)
    program_.console.addLogEntry(tafLogLine(station.code, station.taf.body));
}

void RunDisplay::ends(const RunRequest& request, int total) {
  Console& console = program_.console;
  if (!readsOwnRecord(request))
    emit console.progress(total, total);
  if (request.kind == RunKind::Sequence) {
    console.addLogEntry(u"CALL SEQUENCE " + request.codes);
  } else if (request.kind == RunKind::Japanese) {
    console.addLogEntry(u"CALL JAPANESE DECODE " + request.codes);
    console.setPanel(2, console.status().panelSavedText());
  } else if (program_.settings()[key::マニュアル入力時停止] == true) {
    program_.showAutoDecodeStopped();
  } else {
    console.setPanel(2, u"自動デコード作動　　最終更新  " +
                            clockText(program_.services.clock.now().time(), program_.record()));
  }
}

void show(Program& program, const GatheredRun& run, const QString& behind) {
  Console& console = program.console;
  if (program.settings()[key::前画面クリアー] == true)
    console.staging.clear();
  stage(console.staging, run, console.screen().text());
  console.staging += behind;
  console.screen().setText(console.staging);
  console.setOverlay(false);
  console.showReady();
  console.colourScreenText();
  if (program.settings()[key::先頭行] == true && run.request.origin != RunOrigin::Typed)
    console.screen().setCaret(0);
  console.setPad(QString());
}

} // namespace soran
