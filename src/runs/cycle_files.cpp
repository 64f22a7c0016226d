// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runs/cycle_files.h"

#include "base/files.h"
#include "base/skip.h"
#include "base/text.h"
#include "base/utc.h"

namespace soran {

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcCycles, "soran.pipeline")

/// The hour's latest beginning, as a date and time.
QDateTime latestBeginning(const Program& program, UtcHour hour) {
  const QDateTime now = program.services.clock.now().toUTC();
  const QDateTime today = inUtc(now.date(), QTime(hour.value, 0));
  return today <= now ? today : today.addDays(-1);
}

void download(Program& program, UtcHour hour) {
  const QUrl url(program.services.endpoints.cycles + twoDigits(hour.value) + u"Z.TXT");
  const Reply reply = program.services.inet2.open(url);
  // A transfer that failed must not leave another hour's text under this one's name.
  if (!reply.ok) {
    qCWarning(lcCycles) << "passed over: cycle file" << hour.value;
    return;
  }
  if (!writeWhole(cycleFilePath(program.services, hour), reply.body + "\r\n"))
    qCWarning(lcCycles) << "passed over: writing cycle file" << hour.value;
  else
    program.cycleFileHours[hour] = latestBeginning(program, hour);
}

} // namespace

QString cycleFilePath(const Services& services, UtcHour hour) {
  return services.path(u"data/") + twoDigits(hour.value) + u".dat";
}

bool cycleFileIsThere(const Program& program, UtcHour hour) {
  const auto fetched = program.cycleFileHours.find(hour);
  return fileExists(cycleFilePath(program.services, hour)) &&
         (fetched == program.cycleFileHours.end() || fetched->second == latestBeginning(program, hour));
}

std::optional<CycleFile> readCycleFile(const Program& program, UtcHour hour,
                                       const std::vector<StationCode>& codes) {
  constexpr qint64 largestFile = 64LL << 20;
  if (!cycleFileIsThere(program, hour))
    return std::nullopt;
  FileBytes file = readPlainFile(cycleFilePath(program.services, hour), largestFile);
  return file.ok() ? std::optional(CycleFile(std::move(file.bytes), codes)) : std::nullopt;
}

void refreshCycleFiles(Program& program) {
  if (program.settings()[key::シーケンス表示] != true)
    return;
  const QTime now = program.services.clock.now().time();
  if (now.minute() / 10 == program.cycleDecade)
    return;
  program.cycleDecade = now.minute() / 10;
  const std::vector<UtcHour> hours = sequenceHours(now, program.record(), program.systemZoneOffset);
  for (const UtcHour hour : hours) {
    if (!cycleFileIsThere(program, hour))
      download(program, hour);
  }
  download(program, hours.back());
}

std::vector<UtcHour> latestHours(Program& program) {
  SettingsRecord inUtcHours = program.record();
  inUtcHours.set(key::LOCAL使用, false);
  return sequenceHours(program.services.clock.now().toUTC().time(), inUtcHours, ZoneOffset{0});
}

void completeCycleFiles(Program& program) {
  if (program.settings()[key::シーケンス表示] != true)
    return;
  for (const UtcHour hour : latestHours(program)) {
    if (!cycleFileIsThere(program, hour))
      download(program, hour);
  }
}

} // namespace soran
