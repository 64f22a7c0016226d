// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desk/shared_log.h"

#include "base/file_lock.h"
#include "base/text.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype rememberedBytes = 64;

/// A name as this program makes them, which cannot mislead on a screen.
bool isDeskName(const QString& name) {
  constexpr qsizetype longest = 80;
  const auto isPlain = [](QChar c) { return isAsciiLetter(c) || isAsciiDigit(c) || c == u'-' || c == u'.'; };
  return !name.isEmpty() && name.size() <= longest && std::ranges::all_of(name, isPlain);
}

bool isShared(const AlarmEvent& event) {
  return event.kind == AlarmEventKind::Acknowledged || event.kind == AlarmEventKind::Muted ||
         event.kind == AlarmEventKind::Unmuted;
}

/// What a desk may have done by now, clocks that differ a little allowed for.
bool isPlausible(const AlarmEvent& event, const QDateTime& now) {
  constexpr qint64 secondsOfClocks = 300;
  constexpr qint64 secondsOfDay = qint64(24) * 3600;
  const bool endsSoon = event.until.isValid() && event.until <= event.time.addSecs(secondsOfDay);
  return event.time <= now.addSecs(secondsOfClocks) && (event.kind != AlarmEventKind::Muted || endsSoon);
}

} // namespace

SharedLog::SharedLog(const QString& folder, QString desk)
    : folder_(folder), path_(folder + u"/soran-shift.jsonl"), desk_(std::move(desk)) {}

std::optional<FileFault> SharedLog::add(std::span<const AlarmEvent> events) const {
  constexpr int longestWait = 200; // milliseconds
  FileLock lock(path_ + u".lock", FileLock::For::Group);
  switch (lock.take(longestWait)) {
  case FileLock::Result::Held:
    return std::nullopt;
  case FileLock::Result::Foreign:
    return FileFault::NotPlain;
  case FileLock::Result::Impossible:
    return QFileInfo::exists(folder_) ? FileFault::NoPermission : FileFault::Missing;
  case FileLock::Result::Taken:
    break;
  }
  std::vector<AlarmEvent> own(events.begin(), events.end());
  for (AlarmEvent& event : own)
    event.desk = desk_;
  const bool isNew = !QFileInfo::exists(path_);
  const FileFault fault = ShiftLog(path_).add(own);
  constexpr auto forGroup = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::WriteGroup;
  if (isNew && fault == FileFault::None)
    QFile::setPermissions(path_, forGroup);
  return fault;
}

SharedLog::News SharedLog::readNew(const QDateTime& now) {
  if (!QFileInfo::exists(folder_))
    return {.fault = FileFault::Missing};
  const QFileInfo state(path_);
  if (changed_.isValid() && state.size() == read_ && state.lastModified() == changed_)
    return {};
  changed_ = state.lastModified();
  const FileBytes file = readPlainFile(path_, largestListFile);
  if (!file.ok())
    return {.fault = file.fault == FileFault::Missing ? FileFault::None : file.fault};
  const QByteArrayView all(file.bytes);
  if (all.size() < read_ || all.first(read_).last(lastRead_.size()) != lastRead_)
    read_ = 0;
  const QByteArrayView fresh = all.sliced(read_, std::max<qsizetype>(0, all.lastIndexOf('\n') + 1 - read_));
  read_ += fresh.size();
  lastRead_ = all.first(read_).last(std::min<qsizetype>(rememberedBytes, read_)).toByteArray();
  News news;
  for (const QByteArray& line : fresh.toByteArray().split('\n')) {
    const std::optional<AlarmEvent> event = eventOfLine(line);
    if (event && isShared(*event) && isPlausible(*event, now) && isDeskName(event->desk) &&
        event->desk != desk_ && event->code.size() == 4 && isCodeList(event->code))
      news.events.push_back(*event);
  }
  return news;
}

} // namespace soran
