// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runs/desk_record.h"

#include <QRandomGenerator>
#include <QSysInfo>
#include <algorithm>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

constexpr size_t mostUnwritten = 10'000;

QDateTime utcNow(const Program& program) {
  return program.services.clock.now().toUTC();
}

QString reasonOf(FileFault fault) {
  return faultLine(fault, largestListFile).toUpper();
}

/// Tells a fault in the running log once, and its end.
void tellChange(Program& program, QStringView file, FileFault& known, FileFault fault) {
  if (fault == known)
    return;
  known = fault;
  program.console.addLogEntry(file + u": " +
                              (fault == FileFault::None ? u"WRITTEN AGAIN"_s : reasonOf(fault)));
}

void boundTo(std::vector<AlarmEvent>& events, int& lost) {
  if (events.size() <= mostUnwritten)
    return;
  const size_t over = events.size() - mostUnwritten;
  events.erase(events.begin(), events.begin() + qsizetype(over));
  lost += int(over);
}

void writeWaiting(Program& program) {
  NightDeskState& desk = program.desk;
  const FileFault fault = desk.log.add(desk.unwritten);
  tellChange(program, u"SHIFT LOG", desk.logFault, fault);
  if (fault == FileFault::None)
    desk.unwritten.clear();
  boundTo(desk.unwritten, desk.lost);
}

/// A name that no other desk has.
QString newDeskName() {
  QString host;
  for (const QChar c : QSysInfo::machineHostName()) {
    if (c.unicode() < 128 && (c.isLetterOrNumber() || c == u'-'))
      host += c;
  }
  return host.left(60) + u'-' + QString::number(QRandomGenerator::global()->bounded(0x10000), 16);
}

void openShared(Program& program) {
  const QString folder = program.services.endpoints.shared;
  if (!program.desk.shared && !folder.isEmpty())
    program.desk.shared.emplace(folder, newDeskName());
}

void shareWaiting(Program& program) {
  NightDeskState& desk = program.desk;
  if (!desk.shared || desk.unshared.empty())
    return;
  const std::optional<FileFault> fault = desk.shared->add(desk.unshared);
  if (!fault)
    return; // another desk writes right now
  tellChange(program, u"SHARED FOLDER", desk.sharedFault, *fault);
  if (*fault == FileFault::None)
    desk.unshared.clear();
  boundTo(desk.unshared, desk.lost);
}

/// Takes over what other desks did.
void followOthers(Program& program) {
  NightDeskState& desk = program.desk;
  if (!desk.shared)
    return;
  const SharedLog::News news = desk.shared->readNew(utcNow(program));
  if (desk.unshared.empty())
    tellChange(program, u"SHARED FOLDER", desk.sharedFault, news.fault);
  std::vector<AlarmEvent> taken;
  for (const AlarmEvent& event : news.events)
    std::ranges::copy(bookOf(program).follow(event, utcNow(program)), std::back_inserter(taken));
  record(program, taken);
}

} // namespace

AlarmBook& bookOf(Program& program) {
  NightDeskState& desk = program.desk;
  if (!desk.book) {
    openShared(program);
    tellChange(program, u"SHIFT LOG", desk.logFault, desk.log.dropBefore(utcNow(program).addDays(-keptDays)));
    const ShiftLog::Content content = desk.log.read();
    tellChange(program, u"SHIFT LOG", desk.logFault, content.fault);
    desk.book.emplace(content.events);
  }
  return *desk.book;
}

void record(Program& program, const std::vector<AlarmEvent>& events) {
  if (events.empty())
    return;
  NightDeskState& desk = program.desk;
  for (const AlarmEvent& event : events)
    program.console.addLogEntry(eventText(event));
  std::ranges::copy(events, std::back_inserter(desk.unwritten));
  writeWaiting(program);
  if (desk.tellsCrossings)
    std::ranges::copy(events, std::back_inserter(desk.untold));
}

void recordAct(Program& program, const std::vector<AlarmEvent>& events) {
  record(program, events);
  if (program.desk.shared)
    std::ranges::copy(events, std::back_inserter(program.desk.unshared));
  shareWaiting(program);
}

void tendRecords(Program& program) {
  constexpr qint64 pauseSeconds = 5;
  NightDeskState& desk = program.desk;
  const QDateTime now = utcNow(program);
  if (desk.triedFiles.isValid() && std::abs(desk.triedFiles.secsTo(now)) < pauseSeconds)
    return;
  desk.triedFiles = now;
  bookOf(program);
  if (!desk.unwritten.empty())
    writeWaiting(program);
  shareWaiting(program);
  followOthers(program);
}

ShiftLog::Content allEvents(Program& program) {
  ShiftLog::Content content = program.desk.log.read();
  std::ranges::copy(program.desk.unwritten, std::back_inserter(content.events));
  return content;
}

QString recordNote(const Program& program) {
  const NightDeskState& desk = program.desk;
  QStringList notes;
  if (!desk.unwritten.empty())
    notes += u"SHIFT LOG NOT WRITTEN: "_s + reasonOf(desk.logFault);
  if (desk.lost > 0)
    notes += QString::number(desk.lost) + u" EVENTS LOST";
  if (desk.sharedFault != FileFault::None)
    notes += u"SHARED FOLDER NOT REACHED: "_s + reasonOf(desk.sharedFault);
  return notes.join(u" / ");
}

} // namespace soran
