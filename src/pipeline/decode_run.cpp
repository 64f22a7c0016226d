// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "pipeline/decode_run.h"

#include "base/skip.h"
#include "base/text.h"
#include "base/zone_letter.h"
#include "pipeline/group_titles.h"
#include "pipeline/sequence_record.h"

#include <QScopeGuard>

namespace soran {

using namespace Qt::StringLiterals;

Q_LOGGING_CATEGORY(lcPipeline, "soran.pipeline")

void DecodeRun::decodeRun() {
  Console& console = program_.console;
  ++running_;
  const auto ended = qScopeGuard([this] { --running_; });
  if (program_.settings()[key::前画面クリアー] == true)
    console.staging.clear();
  if (program_.currentInput.startsWith(u"SQ ")) {
    program_.currentInput.remove(0, 3);
    console.flags.sequenceRequested = true;
  }
  if (console.flags.sequenceRequested) {
    sequenceRun();
  } else {
    if (program_.currentInput.startsWith(u"JP ")) {
      program_.currentInput.remove(0, 3);
      console.flags.japaneseRequested = true;
    }
    if (console.flags.japaneseRequested)
      japaneseRun();
    else
      normalRun();
  }
  commonEnd();
}

void DecodeRun::commonEnd() {
  Console& console = program_.console;
  console.screen().setText(console.staging);
  console.setOverlay(false);
  console.showReady();
  console.colourScreenText();
  if (program_.settings()[key::先頭行] == true && !console.flags.typedRun)
    console.screen().setCaret(0);
  console.setPad(QString());
  console.flags.fullLoad = false;
  console.flags.sequenceRequested = false;
  console.flags.typedRun = false;
}

void DecodeRun::loadStationTable() {
  RunFlags& flags = program_.console.flags;
  flags.fullLoad = true;
  program_.lastCycleTime.clear();
  flags.sequenceRequested = false;
  flags.japaneseRequested = false;
  if (flags.autoMode) {
    QStringList codes;
    for (const Airport& airport : program_.tables.autoRows())
      codes.append(airport.code);
    if (codes.isEmpty())
      return;
    program_.currentInput = codes.join(u' ');
  }
  if (!program_.currentInput.isEmpty())
    program_.stationTable.rebuild(program_.currentInput);
}

void DecodeRun::normalRun() {
  Console& console = program_.console;
  console.setBusy(true);
  if (console.flags.fullLoad)
    loadStationTable();
  console.setPanel(2, u"受信中"_s);
  const QString list = program_.currentInput;
  if (console.flags.autoMode && console.flags.fullLoad)
    console.appendScreen(crlf + u"AUTO DECODE SEQUENCE START" + crlf + u"LOADING");
  appendTitle(list);
  if (console.flags.groupMode && console.flags.fullLoad)
    appendGroupOpening(list);

  StationFiles files(program_.services, codesOf(list), true);
  const std::vector<QString>& codes = files.codes();
  for (size_t i = 0; i < codes.size(); ++i) {
    emit console.progress(int(i), int(codes.size()));
    program_.currentInput = codes[i];
    decodeStation(files, i);
  }
  emit console.progress(int(codes.size()), int(codes.size()));

  if (program_.settings()[key::マニュアル入力時停止] == true)
    program_.showAutoDecodeStopped();
  else
    console.setPanel(2, u"自動デコード作動　　最終更新  " + clockText());
  if (console.flags.changeRun)
    announceChanges();
  program_.currentInput = list;
}

void DecodeRun::appendTitle(const QString& list) {
  Console& console = program_.console;
  if (!console.staging.isEmpty())
    console.staging += crlf + crlf;
  if (console.flags.groupMode)
    console.staging += groupTitles(console.groupName, list).title;
  else if (console.flags.autoMode)
    console.staging += u"*** AUTO DECODE - WEATHER OBSERVATION AND FORECASTS ***";
  else
    console.staging += u"*** " + list + u" - WEATHER OBSERVATION AND FORECASTS ***";
  console.staging += crlf;
}

void DecodeRun::appendGroupOpening(const QString& list) {
  const GroupTitles titles = groupTitles(program_.console.groupName, list);
  program_.console.appendScreen(crlf + titles.opening + crlf + u"LOADING");
  program_.console.addLogEntry(titles.log);
  program_.console.caretToEnd();
}

void DecodeRun::decodeStation(StationFiles& files, size_t place) {
  Console& console = program_.console;
  const QString& code = files.codes()[place];
  rememberWord(console.recentCodes, code);
  const FetchResult metar = fetchReport(files, place, ReportKind::Metar);
  if (!metar.found) {
    console.addLogEntry(u"NOT FOUND " + code);
    console.staging += crlf + code + u"  NOT FOUND" + crlf;
    return;
  }
  const bool routine = isRoutineMinute(leadingInteger(mid1(metar.obsTime, 3, 2)));
  if (console.flags.fullLoad)
    console.addLogEntry(code + (routine ? u" METAR RECEIVED"_s : u" SPECI RECEIVED"_s));
  const QString record = code + kindWord(routine) + metar.obsTime + crlf + metar.fetchedText;
  console.staging += crlf + record;
  if (!appendSequenceRecord(program_.services.path(u"data/sequence.dat"), record))
    qCWarning(lcPipeline) << "passed over: appending to the sequence record";

  const FetchResult taf = fetchReport(files, place, ReportKind::Taf);
  console.staging += crlf + code + u"  TAF   " + taf.obsTime + crlf + taf.fetchedText + crlf;
  if (console.flags.fullLoad)
    logTaf(code, taf.fetchedText);
}

void DecodeRun::logTaf(const QString& code, const QString& fetchedText) {
  constexpr std::array<std::pair<QStringView, QStringView>, 3> kinds = {
      {{u"AMD", u" TAF(AMD) RECEIVED"}, {u"COR", u" TAF(COR) RECEIVED"}, {u"TRD", u" TAF(TRD) RECEIVED"}}};
  // A body says NO OBSERVATION only where the station itself does; a refused TAF says NO FORECAST and is
  // logged as received.
  if (fetchedText.contains(u"NO OBSERVATION")) {
    program_.console.addLogEntry(u"NOT FOUND " + code);
    return;
  }
  for (const auto& [word, line] : kinds) {
    if (fetchedText.contains(word)) {
      program_.console.addLogEntry(code + line);
      return;
    }
  }
  program_.console.addLogEntry(code + u" TAF   RECEIVED");
}

FetchResult DecodeRun::fetchReport(StationFiles& files, size_t place, ReportKind kind) {
  Console& console = program_.console;
  const QString& code = files.codes()[place];
  if (kind == ReportKind::Metar && console.flags.fullLoad) {
    if (console.flags.autoMode || console.flags.groupMode)
      console.appendScreen(u' ' + code);
    console.caretToEnd();
  }
  const std::optional<QString> response = files.take(place, kind);
  if (!response)
    return {kind == ReportKind::Metar ? u"      NO OBSERVATION"_s : u"      NO FORECAST"_s, QString(), false};
  StationReport report = layoutReport(*response, kind, program_.record());
  if (console.flags.fullLoad) {
    if (Station* station = program_.stationTable.find(code))
      (kind == ReportKind::Metar ? station->metarStamp : station->tafStamp) = report.stamp;
  }
  return {std::move(report.body), std::move(report.obsTime), true};
}

QString DecodeRun::clockText() const {
  const QTime now = program_.services.clock.now().time();
  const SettingsRecord& settings = program_.record();
  // The local clock is taken to be Japan's.
  int hour = now.hour() - 9;
  QString zone = u"Z"_s;
  if (settings[key::LOCAL使用] == true) {
    hour += settings.zoneOffset();
    if (hour >= 24)
      hour -= 24;
    else if (hour < 0)
      hour += 24;
    zone = ZoneLetter(settings.zoneOffset()).toString();
  }
  return twoDigits(std::abs(hour)) + u':' + twoDigits(now.minute()) + u'(' + zone + u')';
}

} // namespace soran
