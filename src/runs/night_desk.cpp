// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runs/night_desk.h"

#include "base/files.h"
#include "base/text.h"
#include "desk/verdict.h"
#include "runs/desk_record.h"

#include <algorithm>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

bool ringsByCondition(Program& program) {
  return program.desk.tellsCrossings || program.settings()[key::条件アラーム] == true;
}

QDateTime utcNow(const Program& program) {
  return program.services.clock.now().toUTC();
}

QTime hourOf(const std::optional<QString>& setting) {
  bool isNumber = false;
  const int hour = setting.value_or(QString()).toInt(&isNumber);
  return isNumber ? QTime(hour, 0) : QTime();
}

RingRules ringRules(Program& program) {
  const Settings& settings = program.settings();
  return {.repeatMinutes = settings[key::アラーム間隔].value_or(0),
          .quietFrom = hourOf(settings[key::静音開始時]),
          .quietTo = hourOf(settings[key::静音終了時])};
}

QStringList watchedCodes(Program& program) {
  QStringList codes = program.desk.watched;
  if (!codes.isEmpty())
    return codes;
  for (const Airport& airport : program.tables.autoRows())
    codes.append(asciiUpper(airport.code));
  return codes;
}

BoardRow rowOf(Program& program, const QString& text) {
  const StationCode code(text);
  const auto* metar = program.knownReports.find(code, ReportKind::Metar);
  const auto* taf = program.knownReports.find(code, ReportKind::Taf);
  BoardReports reports{.watchedSince = program.desk.watchedSince};
  if (metar) {
    reports.metar = metar->text;
    reports.before = metar->before;
    reports.time = metar->time;
    reports.isSpecial = metar->isSpecial;
    reports.times = metar->times;
  }
  if (taf)
    reports.taf = taf->text;
  BoardRow row = boardRow(code, reports, program.limitsOf(code), utcNow(program));
  row.name = program.dictionaries().stationName(text).value_or(QString());
  row.source = metar ? metar->source : QString();
  row.sigmets = sigmetsOver(program, text);
  row.alarm = bookOf(program).alarmOf(code);
  return row;
}

QString countText(size_t count) {
  return QString::number(count) + (count == 1 ? u" ALARM"_s : u" ALARMS"_s);
}

/// With what is wrong with the files behind it.
QString withNote(const Program& program, const QString& text) {
  const QString note = recordNote(program);
  return note.isEmpty() ? text : text + crlf + note;
}

/// The words without doubled blanks.
QStringList wordsOf(const QString& words) {
  return words.split(u' ', Qt::SkipEmptyParts);
}

} // namespace

void noteWatch(Program& program) {
  constexpr qint64 longestGapSeconds = 1800;
  NightDeskState& desk = program.desk;
  const QDateTime now = utcNow(program);
  const bool gap = !desk.lastPass.isValid() || std::abs(desk.lastPass.secsTo(now)) > longestGapSeconds;
  if (gap || !desk.watchedSince.isValid())
    desk.watchedSince = now;
  desk.lastPass = now;
}

void observeReports(Program& program) {
  if (!ringsByCondition(program))
    return;
  const QStringList watched = watchedCodes(program);
  const QDateTime now = utcNow(program);
  std::vector<AlarmEvent> events;
  const auto take = [&](const QString& code, ReportKind kind, const Verdict& verdict) {
    std::ranges::copy(bookOf(program).take(StationCode(code), kind, verdict.findings, verdict.told, now),
                      std::back_inserter(events));
  };
  for (const LastReport& report : program.knownReports.takenSince(program.desk.taken)) {
    const Limits limits = program.limitsOf(StationCode(report.code));
    if (report.kind == ReportKind::Metar && watched.contains(report.code))
      take(report.code, report.kind, metarVerdict(report.text, now, limits));
  }
  program.desk.taken = program.knownReports.count();
  // What a TAF tells of the hours ahead changes with the time.
  for (const QString& code : watched) {
    if (const auto* taf = program.knownReports.find(StationCode(code), ReportKind::Taf))
      take(code, ReportKind::Taf, tafVerdict(taf->text, now, program.limitsOf(StationCode(code))));
  }
  record(program, events);
}

void ringAlarms(Program& program) {
  if (!ringsByCondition(program)) {
    if (program.desk.shared)
      tendRecords(program);
    return;
  }
  tendRecords(program);
  const QDateTime now = utcNow(program);
  const QTime local = now.addSecs(qint64(program.record().zoneOffset().hours) * 3600).time();
  const std::vector<AlarmEvent> events = bookOf(program).ring(ringRules(program), now, local);
  record(program, events);
  const auto rang = [](const AlarmEvent& event) { return event.kind == AlarmEventKind::Rang; };
  const QString sound = program.services.path(u"sound/ring.wav");
  if (std::ranges::any_of(events, rang) && fileExists(sound))
    program.services.sounds.play(sound);
}

std::vector<BoardRow> boardRows(Program& program, const QStringList& codes) {
  std::vector<BoardRow> rows;
  for (const QString& code : codes)
    rows.push_back(rowOf(program, code));
  return rows;
}

std::optional<QStringList> boardCodes(Program& program, const QString& group) {
  if (group.isEmpty())
    return watchedCodes(program);
  for (const Group& row : program.tables.groupRows()) {
    if (row.id != group)
      continue;
    QStringList codes;
    for (const StationCode& code : codesOf(row.route))
      codes.append(asciiUpper(code.text()));
    return codes;
  }
  return std::nullopt;
}

QString boardScreenText(Program& program, const QStringList& codes, int columns) {
  program.desk.showsBoard = true;
  refreshSigmets(program);
  std::vector<BoardRow> rows = boardRows(program, codes);
  sortWorstFirst(rows);
  const QDateTime now = utcNow(program);
  const size_t ringing = bookOf(program).ringing().size();
  tendRecords(program);
  const QString note = recordNote(program);
  return u"*** BOARD " + now.toString(u"HH:mm"_s) + u"Z - " + countText(ringing) + u" ***" + crlf +
         (note.isEmpty() ? QString() : note + crlf) + crlf +
         (rows.empty() ? u"NO AIRPORT IN THE LIST"_s : boardText(rows, columns, now)) + crlf;
}

void acknowledge(Program& program, const StationCode& code) {
  recordAct(program, bookOf(program).acknowledge(code, utcNow(program)));
}

std::optional<QString> acknowledgeText(Program& program, const QString& words) {
  const QStringList codes = wordsOf(words);
  if (codes.isEmpty())
    return std::nullopt;
  AlarmBook& book = bookOf(program);
  std::vector<AlarmEvent> events;
  if (codes == QStringList{u"ALL"_s}) {
    events = book.acknowledgeAll(utcNow(program));
  } else {
    for (const QString& code : codes)
      std::ranges::copy(book.acknowledge(StationCode(code), utcNow(program)), std::back_inserter(events));
  }
  recordAct(program, events);
  if (events.empty())
    return u"NO ALARM TO ACKNOWLEDGE"_s;
  QStringList done;
  for (const AlarmEvent& event : events)
    done.append(event.code);
  return withNote(program, u"ACKNOWLEDGED " + done.join(u' '));
}

std::optional<QString> muteText(Program& program, const QString& words) {
  constexpr int usualMinutes = 60;
  constexpr int longestMinutes = 24 * 60;
  const QStringList parts = wordsOf(words);
  if (parts.isEmpty() || parts.size() > 2 || !isCodeList(parts[0]))
    return std::nullopt;
  const StationCode code(parts[0]);
  const QDateTime now = utcNow(program);
  if (parts.size() == 2 && parts[1] == u"OFF") {
    const std::vector<AlarmEvent> events = bookOf(program).unmute(code, now);
    recordAct(program, events);
    return withNote(program, code.text() + (events.empty() ? u" IS NOT MUTED"_s : u" SOUNDS AGAIN"_s));
  }
  bool isNumber = parts.size() == 1;
  const int minutes = isNumber ? usualMinutes : parts[1].toInt(&isNumber);
  if (!isNumber || minutes < 1 || minutes > longestMinutes)
    return std::nullopt;
  const AlarmEvent event = bookOf(program).mute(code, now.addSecs(qint64(minutes) * 60), now);
  recordAct(program, {event});
  return withNote(program, eventText(event));
}

} // namespace soran
