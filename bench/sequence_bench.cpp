// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/budget.h"
#include "reports/layout.h"
#include "reports/sequence.h"
#include "reports/sequence_record.h"

#include <array>

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

/// Four letters of a number, the first one of `first`.
QString codeOf(QChar first, int number) {
  return QString(first) + QChar(u'A' + number / 676 % 26) + QChar(u'A' + number / 26 % 26) +
         QChar(u'A' + number % 26);
}

/// The world's reports of one UTC hour, as a cycle file holds them: `size` bytes at least. Every fiftieth
/// station is one of the `codes`.
QByteArray cycleText(int hour, qsizetype size, const std::vector<StationCode>& codes) {
  QByteArray text;
  text.reserve(size + 200);
  const QByteArray time = "24" + QByteArray::number(hour + 100).sliced(1);
  for (int i = 0; text.size() < size; ++i) {
    const QString code = i % 50 == 0 ? codes[size_t(i / 50) % codes.size()].text() : codeOf(u'E', i);
    text += "2026/11/24 05:00\n" + code.toLatin1() + ' ' + time +
            QByteArray::number(i / 1000 % 60 + 100).sliced(1) +
            "Z 34010KT 9999 FEW030 SCT045 BKN090 18/12 Q1013 NOSIG RMK 1CU030 3SC045 6AC090 A2992\n\n";
  }
  return text;
}

const SettingsRecord& settings(int hours) {
  static SettingsRecord record = SettingsRecord::standard(u"+9"_s);
  record.setValue(SettingIndex::シーケンス時間, hours);
  return record;
}

/// The sequence of twenty stations over the files of so many hours, each of so many bytes, files taken in as
/// they come from the disk.
void sequence(benchmark::State& state) {
  const int fileCount = static_cast<int>(state.range(0));
  const qsizetype size = state.range(1);
  std::vector<StationCode> codes;
  codes.reserve(20);
  for (int i = 0; i < 20; ++i)
    codes.emplace_back(codeOf(u'R', i * 37));
  std::vector<QByteArray> texts;
  texts.reserve(size_t(fileCount));
  for (int hour = 0; hour < fileCount; ++hour)
    texts.push_back(cycleText(hour, size, codes));
  const SettingsRecord& record = settings(fileCount - 1);
  const std::vector<UtcHour> hours = sequenceHours(QTime(8, 20), record, {9});
  const QString latest = u"2026/11/24 23:00\n"_s;
  for (auto _ : state) {
    std::vector<CycleFile> files;
    files.reserve(texts.size());
    for (const QByteArray& text : texts)
      files.emplace_back(text, codes);
    bool latestShown = false;
    for (size_t i = 0; i < codes.size(); ++i) {
      benchmark::DoNotOptimize(sequenceBlock(
          codes[i], i, latest, hours, [&](UtcHour hour) { return &files[size_t(hour.value) % files.size()]; },
          record, latestShown));
    }
  }
  if (fileCount == 24 && size == 1'000'000)
    bench::holdTo(state, 100);
  bench::growsInLine(state, static_cast<double>(size) * fileCount);
}
BENCHMARK(sequence)->Args({24, 250'000})->Args({24, 1'000'000});

/// A file in which nothing but one code stands, without an end of line.
void cycleWithoutLines(benchmark::State& state) {
  const QByteArray text = QByteArray("RJTT").repeated(state.range(0) / 4);
  const std::vector codes = {StationCode(u"RJTT"_s), StationCode(u"TTRJ"_s)};
  for (auto _ : state)
    benchmark::DoNotOptimize(CycleFile(text, codes));
  bench::growsInLine(state, static_cast<double>(text.size()));
}
BENCHMARK(cycleWithoutLines)->Arg(250'000)->Arg(1'000'000);

/// A file that holds one station only, a report a line.
void cycleOfOneStation(benchmark::State& state) {
  QByteArray text;
  for (int i = 0; i < state.range(0); ++i)
    text += "RJTT " + QByteArray::number(i + 1'000'000).sliced(1) + "Z 34010KT 9999 18/12 Q1013\n";
  const std::vector codes = {StationCode(u"RJTT"_s)};
  const SettingsRecord& record = settings(0);
  for (auto _ : state) {
    const CycleFile file(text, codes);
    bool latestShown = false;
    benchmark::DoNotOptimize(sequenceBlock(
        codes[0], 0, u"2026/11/24 23:00\n"_s, {{0}}, [&](UtcHour) { return &file; }, record, latestShown));
  }
  bench::growsInLine(state, static_cast<double>(text.size()));
}
BENCHMARK(cycleOfOneStation)->Arg(2500)->Arg(10'000);

/// The sequence from the program's own record: the observations of sixty stations, half an hour apart.
void sequenceOfRecord(benchmark::State& state) {
  QString text;
  for (int i = 0; i < state.range(0); ++i) {
    const QString time = QString::number(10'000 + i / 120 % 24 * 100 + i / 60 % 2 * 30).sliced(1);
    text += codeOf(u'R', i % 60 * 37) + u"  METAR " + time + u"I\r\n      240" + time +
            u"Z 34010KT 9999 FEW030 18/12 Q1013\r\n\r\n";
  }
  for (auto _ : state)
    benchmark::DoNotOptimize(sequenceRecordBlock(text, StationCode(codeOf(u'R', 37))));
  bench::growsInLine(state, static_cast<double>(text.size()));
}
BENCHMARK(sequenceOfRecord)->Arg(20'000)->Arg(80'000);

void layout(benchmark::State& state) {
  const QString line =
      u"2026/11/24 05:05\nTAF RJTT 240505Z 2406/2512 16008KT 9999 FEW030\n"
      "     BECMG 2410/2412 4000 -RA BR BKN008\n       TEMPO 2414/2420 1500 +SHRA BKN004\n"_s;
  const QString response = line.repeated(state.range(0) / line.size() + 1);
  const SettingsRecord record = SettingsRecord::standard(u"+9"_s);
  for (auto _ : state)
    benchmark::DoNotOptimize(layoutReport(response, ReportKind::Taf, record));
  bench::growsInLine(state, static_cast<double>(response.size()));
}
BENCHMARK(layout)->Arg(200)->Arg(50'000)->Arg(200'000);

} // namespace
