// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/budget.h"
#include "reports/explain_selection.h"
#include "reports/translate_report.h"

#include <QFile>
#include <QTextStream>

using namespace soran;

namespace {

const Dictionaries& tables() {
  static const Dictionaries loaded = [] {
    QList<DictionaryEntry> abbreviations;
    for (const QStringView pair : {u"MI", u"BC", u"PR", u"DR", u"BL", u"SH", u"TS", u"FZ", u"VC", u"DZ",
                                   u"RA", u"SN", u"SG", u"PL", u"GR", u"GS", u"BR", u"FG", u"FU", u"VA",
                                   u"DU", u"SA", u"HZ", u"PO", u"SQ", u"FC", u"SS", u"DS", u"UP"})
      abbreviations.append({pair.toString(), QStringLiteral("天気(weather)")});
    QList<DictionaryEntry> phrases;
    for (const QStringView group : {u"NSC", u"NCD", u"NSW", u"CLR", u"SKC", u"CAVOK", u"//"})
      phrases.append({group.toString(), QStringLiteral("なし")});
    return Dictionaries({{QStringLiteral("RJTT"), QStringLiteral("東京国際")}}, abbreviations, phrases);
  }();
  return loaded;
}

const SettingsRecord& settings() {
  static const SettingsRecord standard = SettingsRecord::standard(QStringLiteral("+9"));
  return standard;
}

struct Report {
  QString time;
  QString body;
};

/// The METAR and SPECI of a table with a text in its fourth column: the file that SORAN_REPORTS names, else
/// the recorded day. Empty where there is no such file.
QList<Report> recordedReports() {
  QFile file(qEnvironmentVariable("SORAN_REPORTS",
                                  QStringView(SORAN_SOURCE_DIR u"/delivered/demo/day.tsv").toString()));
  QList<Report> reports;
  if (!file.open(QIODevice::ReadOnly))
    return reports;
  QTextStream stream(&file);
  stream.readLine();
  while (!stream.atEnd()) {
    const QString text = stream.readLine().section(u'\t', 3);
    if (!text.startsWith(u"METAR ") && !text.startsWith(u"SPECI "))
      continue;
    reports.append({text.section(u' ', 2, 2).sliced(2), text.section(u' ', 3)});
  }
  return reports;
}

constexpr QStringView bodies[] = {
    u"34010KT 9999 FEW030 18/12 Q1013 NOSIG RMK 1CU030 A2992",
    u"13010KT 5000 R34L/P2000N R22/P2000N -SHRA BR SCT010 BKN015 27/26 Q1013 TEMPO 3000 TSRA BR",
    u"18012KT 10SM FEW030 FEW250 33/24 A2988 RMK AO2 SLP118 TCU DSNT NE T03280239 10328 20289 58008 $",
    u"25013KT 200V300 9999 FEW030 SCT/// 13/06 Q1008 BECMG TL1200 23020KT RMK 1CU030 3SC060 A2978",
};

void translateReports(benchmark::State& state) {
  size_t next = 0;
  for (auto _ : state)
    benchmark::DoNotOptimize(TranslateReport(StationCode(QStringLiteral("RJTT")), u"0630Z",
                                             bodies[next++ % std::size(bodies)], settings(), tables()));
  bench::holdTo(state, 0.01);
}
BENCHMARK(translateReports);

/// A report with a remark of so many groups.
void translateLongReport(benchmark::State& state) {
  const QString body = QStringLiteral("34010KT 9999 FEW030 18/12 Q1013 RMK ") +
                       QStringLiteral("1CU030 A2992 CB 20KM E MOV NE ").repeated(state.range(0));
  for (auto _ : state)
    benchmark::DoNotOptimize(
        TranslateReport(StationCode(QStringLiteral("RJTT")), u"0630Z", body, settings(), tables()));
  bench::growsInLine(state, static_cast<double>(body.size()));
}
BENCHMARK(translateLongReport)->Arg(1000)->Arg(4000);

void refuseReportWithoutTemperature(benchmark::State& state) {
  const QString body =
      QStringLiteral("34010KT 9999 ") + QStringLiteral("FEW030 BR ").repeated(state.range(0));
  for (auto _ : state)
    benchmark::DoNotOptimize(
        TranslateReport(StationCode(QStringLiteral("RJTT")), u"0630Z", body, settings(), tables()));
  bench::growsInLine(state, static_cast<double>(body.size()));
}
BENCHMARK(refuseReportWithoutTemperature)->Arg(8192)->Arg(32768);

void explainGroups(benchmark::State& state) {
  const QString line =
      QStringLiteral("RJTT 220630Z 34010G25KT 9999 R34L/P2000N -SHRA FEW030 18/12 Q1013\r\n");
  const QString screen = line.repeated(state.range(0) / line.size() + 1);
  QList<std::pair<qsizetype, qsizetype>> groups;
  for (qsizetype start = 0; start < line.size();) {
    const qsizetype blank = line.indexOf(u' ', start);
    const qsizetype end = blank < 0 ? line.size() - 2 : blank;
    groups.append({screen.size() - line.size() + start, end - start});
    start = blank < 0 ? line.size() : blank + 1;
  }
  qsizetype next = 0;
  for (auto _ : state) {
    const auto [start, length] = groups[next++ % groups.size()];
    benchmark::DoNotOptimize(
        ExplainSelection(screen, start, length, QDate(2026, 11, 24), settings(), tables()));
  }
  bench::growsInLine(state, static_cast<double>(screen.size()));
}
BENCHMARK(explainGroups)->Arg(50'000)->Arg(200'000);

/// One selection over so much text.
void explainLongSelection(benchmark::State& state) {
  const QString screen = QStringLiteral("BKN020CB ").repeated(state.range(0) / 9);
  for (auto _ : state)
    benchmark::DoNotOptimize(
        ExplainSelection(screen, 0, screen.size(), QDate(2026, 11, 24), settings(), tables()));
  bench::growsInLine(state, static_cast<double>(screen.size()));
}
BENCHMARK(explainLongSelection)->Arg(50'000)->Arg(200'000);

/// How many groups of recorded reports end as unknown, and how many reports fail.
void unknownShare(benchmark::State& state) {
  const QList<Report> reports = recordedReports();
  if (reports.isEmpty()) {
    state.SkipWithError("no recorded reports");
    return;
  }
  qsizetype groups = 0;
  qsizetype unknown = 0;
  qsizetype failed = 0;
  for (auto _ : state) {
    groups = unknown = failed = 0;
    for (const Report& report : reports) {
      const QString text = TranslateReport(StationCode(QStringLiteral("RJTT")), report.time, report.body,
                                           settings(), tables());
      groups += report.body.count(u' ') + 1;
      failed += text == untranslatable ? 1 : 0;
      for (const QString& line : text.split(QStringLiteral("\r\n")))
        unknown += line.contains(u"解析不能") || line.contains(u"記号該当なし") ? 1 : 0;
    }
  }
  state.counters["groups"] = static_cast<double>(groups);
  state.counters["unknown_percent"] = 100.0 * static_cast<double>(unknown) / static_cast<double>(groups);
  state.counters["failed_reports"] = static_cast<double>(failed);
}
BENCHMARK(unknownShare);

} // namespace
