// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The first bytes choose settings, clock and zone. The parts behind them end with a form feed: the zone,
// 時差, the codes with blanks between, the station file, then the cycle files of the hours, an empty one
// missing.
#include "reports/sequence.h"

#include "base/foreign_text.h"
#include "base/text.h"
#include "reports/sequence_record.h"
#include "targets.h"

#include <QStringList>
#include <map>

namespace soran::fuzz {

namespace {

/// The lines of a code by plain search, as they are shown.
std::vector<QString> linesBySearch(const QByteArray& text, const StationCode& code) {
  std::vector<QString> lines;
  const QByteArray word = code.text().toUtf8();
  for (qsizetype at = word.isEmpty() ? -1 : text.indexOf(word); at >= 0;) {
    const qsizetype end = text.indexOf('\n', at + word.size());
    lines.push_back(cleaned(textOfBytes(text.mid(at, end < 0 ? -1 : end - at))));
    at = end < 0 ? -1 : text.indexOf(word, end);
  }
  return lines;
}

void checkRecords(QStringView text, const StationCode& code) {
  const QString block = sequenceRecordBlock(text, code);
  const QList<QStringView> lines = QStringView(block).split(crlf);
  for (const QStringView line : lines)
    require(text.contains(line) && !line.startsWith(u' ') && !line.contains(u','),
            "a line of a record is a stretch of the file");
}

} // namespace

void sequence(QByteArrayView input) {
  constexpr qsizetype head = 4;
  if (input.size() < head)
    return;
  const QString whole = textOf(input.sliced(head));
  QStringView text = whole;
  SettingsRecord settings = settingsIn(takeUntil(text, u'\f'), static_cast<uint8_t>(input[0]));
  settings.set(key::シーケンス時間, static_cast<int8_t>(input[1]));
  const QTime now(static_cast<uint8_t>(input[2]) % 24, 20);
  const int zoneByte = static_cast<uint8_t>(input[3]);
  const ZoneOffset systemZone{zoneByte < 128 ? zoneByte : zoneByte - 256};
  const bool onEarth = qAbs(settings.zoneOffset().hours) <= 24 && qAbs(systemZone.hours) <= 24;
  const std::vector<UtcHour> hours = sequenceHours(now, settings, systemZone);
  require(!hours.empty() && hours.size() <= 24, "a sequence covers a day at most");

  const QStringList words = takeUntil(text, u'\f').toString().split(u' ');
  std::vector<StationCode> codes;
  for (const QString& word : words.first(qMin<qsizetype>(words.size(), 4)))
    codes.emplace_back(word);
  const QString latest = takeUntil(text, u'\f').toString();
  std::map<UtcHour, CycleFile> files;
  for (const UtcHour hour : hours) {
    require(!onEarth || (hour.value >= 0 && hour.value < 24), "an hour is one of the day");
    const QByteArray file = takeUntil(text, u'\f').toUtf8();
    if (file.isEmpty() || files.contains(hour))
      continue;
    const CycleFile& found = files.emplace(hour, CycleFile(file, codes)).first->second;
    for (size_t i = 0; i < codes.size(); ++i)
      require(found.lines(i) == linesBySearch(file, codes[i]), "all codes are found in one pass");
  }

  bool latestShown = false;
  for (size_t i = 0; i < codes.size(); ++i) {
    const SequenceBlock block = sequenceBlock(
        codes[i], i, latest, hours,
        [&files](UtcHour hour) {
          const auto file = files.find(hour);
          return file == files.end() ? nullptr : &file->second;
        },
        settings, latestShown);
    require(block.missingFile == (files.size() < hours.size()), "a missing file asks for another try");
    require(block.text.isEmpty() || block.text.startsWith(crlf + codes[i].text() + u"  "),
            "a block begins with its station");
    checkRecords(block.text, codes[i]);
  }
  checkRecords(whole, codes[0]);
}

} // namespace soran::fuzz
