// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/files.h"
#include "base/text.h"
#include "interpret/translate_report.h"
#include "pipeline/cycle_files.h"
#include "pipeline/decode_run.h"
#include "pipeline/sequence.h"
#include "pipeline/sequence_record.h"

#include <QFile>
#include <map>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

std::optional<QByteArray> wholeFile(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly))
    return std::nullopt;
  return file.readAll();
}

} // namespace

void DecodeRun::sequenceRun() {
  const QString list = program_.currentInput;
  if (program_.settings()[key::シーケンス表示] == true)
    sequenceFromCycles(list);
  else
    sequenceFromRecord(list);
}

void DecodeRun::sequenceFromCycles(const QString& list) {
  Console& console = program_.console;
  console.setBusy(true);
  console.setPanel(2, u"データ シーケンス取得中"_s);
  bool latestShown = false;
  const std::vector<int> hours =
      sequenceHours(program_.services.clock.now().time(), program_.record(), program_.systemZoneOffset);
  StationFiles stations(program_.services, codesOf(list), false);
  const std::vector<QString>& codes = stations.codes();

  // A file is read once for all stations; one that is missing is looked for again, as it may come meanwhile.
  std::map<int, CycleFile> read;
  const CycleFiles files = [&](int hour) -> const CycleFile* {
    if (const auto known = read.find(hour); known != read.end())
      return &known->second;
    std::optional<QByteArray> text = wholeFile(cycleFilePath(program_.services, hour));
    if (!text)
      return nullptr;
    return &read.emplace(hour, CycleFile(*std::move(text), codes)).first->second;
  };

  for (size_t i = 0; i < codes.size(); ++i) {
    emit console.progress(int(i), int(codes.size()));
    rememberWord(console.recentCodes, codes[i]);
    console.staging += (i > 0 ? crlf.toString() : QString()) + u"*** " + codes[i] +
                       u" - SEQUENCE WEATHER OBSERVATION ***" + crlf;
    const std::optional<QString> latest = stations.take(i, ReportKind::Metar);
    const SequenceBlock block =
        sequenceBlock(codes[i], i, latest, hours, files, program_.record(), latestShown);
    if (block.missingFile)
      onMissingCycleFile();
    console.staging += block.text;
  }
  emit console.progress(int(codes.size()), int(codes.size()));
  console.addLogEntry(u"CALL SEQUENCE " + list);
  program_.currentInput = u"SQ " + list;
}

void DecodeRun::sequenceFromRecord(const QString& list) {
  Console& console = program_.console;
  const std::optional<QByteArray> bytes = wholeFile(program_.services.path(u"data/sequence.dat"));
  if (!bytes) {
    console.staging = console.screen().text() + crlf + u"NO SEQUENCE DATA" + crlf;
    return;
  }
  const QString text = textOfBytes(*bytes);
  const std::vector<QString> codes = codesOf(list);
  for (size_t i = 0; i < codes.size(); ++i) {
    rememberWord(console.recentCodes, codes[i]);
    console.staging += (i > 0 ? crlf.toString() : QString()) + u"*** " + codes[i] +
                       u" - SEQUENCE WEATHER OBSERVATION ***" + crlf;
    QString block = sequenceRecordBlock(text, codes[i]);
    if (block.isEmpty())
      block = crlf + codes[i] + u"  NO SEQUENCE DATA" + crlf;
    console.staging += block;
  }
  console.addLogEntry(u"CALL SEQUENCE " + list);
  program_.currentInput = u"SQ " + list;
}

void DecodeRun::japaneseRun() {
  constexpr qsizetype reportStart = 18;
  constexpr qsizetype behindTimeGroup = 14;
  Console& console = program_.console;
  console.setBusy(true);
  console.setPanel(2, u"日本語デコード中"_s);
  const QString list = program_.currentInput;
  StationFiles files(program_.services, codesOf(list), false);
  const std::vector<QString>& codes = files.codes();
  for (size_t i = 0; i < codes.size(); ++i) {
    emit console.progress(int(i), int(codes.size()));
    const QString& code = codes[i];
    rememberWord(console.recentCodes, code);
    console.staging += (i > 0 ? crlf.toString() : QString()) + u"*** " + code +
                       u" - JAPANESE TRANSLATION WEATHER OBSERVATION ***" + crlf;
    const std::optional<QString> response = files.take(i, ReportKind::Metar);
    if (!response) {
      console.staging += crlf + code + u"  NOT FOUND" + crlf;
      continue;
    }
    const QStringView report = mid1(*response, reportStart);
    const LineHeading heading = lineHeading(code, report, program_.record());
    console.staging += heading.text;
    if (report.size() >= behindTimeGroup)
      console.staging += crlf + TranslateReport(code, heading.time, mid1(report, behindTimeGroup),
                                                program_.record(), program_.dictionaries());
  }
  emit console.progress(int(codes.size()), int(codes.size()));
  console.addLogEntry(u"CALL JAPANESE DECODE " + list);
  console.setPanel(2, console.status().panelSavedText());
  program_.currentInput = u"JP " + list;
}

} // namespace soran
