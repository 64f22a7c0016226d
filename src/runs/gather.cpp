// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runs/gather.h"

#include "base/files.h"
#include "base/text.h"
#include "reports/layout.h"
#include "reports/sequence.h"
#include "reports/sequence_record.h"
#include "reports/translate_report.h"
#include "runs/cycle_files.h"
#include "runs/last_known.h"
#include "runs/night_desk.h"
#include "runs/report_intake.h"
#include "runs/station_files.h"

#include <QFile>
#include <map>
#include <optional>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

/// Bytes of the largest sequence record that is read.
constexpr qint64 largestRecord = 64LL << 20;

/// Asks for every station in turn.
template <class Take>
void forEachStation(GatheredRun& run, const std::vector<StationCode>& codes, RunProgress& progress,
                    Take take) {
  for (size_t i = 0; i < codes.size(); ++i) {
    progress.asks(run.request, codes[i], int(i), int(codes.size()));
    run.stations.push_back({.code = codes[i]});
    take(i, run.stations.back());
  }
  progress.ends(run.request, int(codes.size()));
}

StationFiles::Use useOf(const Program& program, const RunRequest& request, bool forecasts) {
  return {forecasts, program.services.endpoints.ahead, request.origin == RunOrigin::Cycle};
}

/// What a run shows of what came: one that the watch started keeps to the latest report known, one that the
/// user started shows what there is.
const QString& shownOf(const Arrival& arrival, const RunRequest& request) {
  const bool keepsLatest = request.origin == RunOrigin::Cycle && arrival.standing == Arrival::Standing::Older;
  return keepsLatest ? arrival.known : arrival.text;
}

void noteSource(Program& program, const StationCode& code, ReportKind kind, const QString& source) {
  ServedBy& served = program.servedBy[code.text()];
  served.names[size_t(kind)] = source;
  served.asked[size_t(kind)] = program.services.clock.now().toUTC();
}

/// The METAR that a translation or a sequence tells of; nothing where there is none.
std::optional<QString> takeMetar(Program& program, const RunRequest& request, StationFiles& files,
                                 size_t place) {
  const Arrival arrival = files.take(place, ReportKind::Metar);
  noteSource(program, files.codes()[place], ReportKind::Metar, arrival.source);
  return arrival.isReport() ? std::optional(shownOf(arrival, request)) : std::nullopt;
}

void gatherReports(Program& program, GatheredRun& run, RunProgress& progress) {
  StationFiles files(program, codesOf(run.request.codes), useOf(program, run.request, true));
  const auto fetch = [&](size_t place, ReportKind kind) -> LaidOutReport {
    const StationCode& code = files.codes()[place];
    const Arrival arrival = files.take(place, kind);
    noteSource(program, code, kind, arrival.source);
    if (!arrival.isReport())
      return {false, QString(),
              kind == ReportKind::Metar ? u"      NO OBSERVATION"_s : u"      NO FORECAST"_s};
    const bool older = arrival.standing == Arrival::Standing::Older;
    if (run.request.fullLoad) {
      if (Station* station = program.stationTable.find(code))
        (kind == ReportKind::Metar ? station->metarStamp : station->tafStamp) =
            Stamp::of(older ? arrival.known : arrival.text);
    }
    StationReport report = layoutReport(shownOf(arrival, run.request), kind, program.record());
    return {true, std::move(report.obsTime), std::move(report.body), older};
  };
  forEachStation(run, files.codes(), progress, [&](size_t place, StationResult& station) {
    station.metar = fetch(place, ReportKind::Metar);
    progress.tookMetar(run.request, station);
    if (!station.metar.found)
      return;
    station.taf = fetch(place, ReportKind::Taf);
    progress.tookTaf(run.request, station);
  });
}

void gatherTranslations(Program& program, GatheredRun& run, RunProgress& progress) {
  constexpr Position1 reportStart = 18;
  constexpr Position1 behindTimeGroup = 14;
  StationFiles files(program, codesOf(run.request.codes), useOf(program, run.request, false));
  forEachStation(run, files.codes(), progress, [&](size_t place, StationResult& station) {
    const std::optional<QString> response = takeMetar(program, run.request, files, place);
    if (!response) {
      station.block = crlf + station.code.text() + u"  NOT FOUND" + crlf;
      return;
    }
    const QStringView report = mid1(*response, reportStart);
    const LineHeading heading = lineHeading(station.code, report, program.record());
    station.block = heading.text;
    if (report.size() >= behindTimeGroup.from1())
      station.block += crlf + TranslateReport(station.code, heading.time, mid1(report, behindTimeGroup),
                                              program.record(), program.dictionaries());
  });
}

void gatherCycles(Program& program, GatheredRun& run, RunProgress& progress) {
  const std::vector<UtcHour> hours =
      sequenceHours(program.services.clock.now().time(), program.record(), program.systemZoneOffset);
  StationFiles stations(program, codesOf(run.request.codes), useOf(program, run.request, false));
  const std::vector<StationCode>& codes = stations.codes();

  // A file is read once for all stations; one that is missing is looked for again, as it may come meanwhile.
  std::map<UtcHour, CycleFile> read;
  const CycleFiles files = [&](UtcHour hour) -> const CycleFile* {
    if (const auto known = read.find(hour); known != read.end())
      return &known->second;
    std::optional<CycleFile> file = readCycleFile(program, hour, codes);
    return file ? &read.emplace(hour, *std::move(file)).first->second : nullptr;
  };

  bool latestShown = false;
  forEachStation(run, codes, progress, [&](size_t place, StationResult& station) {
    const std::optional<QString> latest = takeMetar(program, run.request, stations, place);
    SequenceBlock block =
        sequenceBlock(station.code, place, latest, hours, files, program.record(), latestShown);
    run.missingCycleFile = run.missingCycleFile || block.missingFile;
    station.block = std::move(block.text);
  });
}

void gatherRecord(const Program& program, GatheredRun& run, RunProgress& progress) {
  const FileBytes file = readPlainFile(program.services.path(u"data/sequence.dat"), largestRecord);
  if (!file.ok()) {
    run.noRecord = true;
    return;
  }
  const QString text = textOfBytes(file.bytes);
  forEachStation(run, codesOf(run.request.codes), progress, [&](size_t, StationResult& station) {
    station.block = sequenceRecordBlock(text, station.code);
    if (station.block.isEmpty())
      station.block = crlf + station.code.text() + u"  NO SEQUENCE DATA" + crlf;
  });
}

} // namespace

GatheredRun gather(Program& program, RunRequest request, RunProgress& progress) {
  GatheredRun run{.request = std::move(request)};
  program.servedBy.clear();
  progress.begins(run.request);
  if (run.request.kind == RunKind::Japanese)
    gatherTranslations(program, run, progress);
  else if (run.request.kind != RunKind::Sequence)
    gatherReports(program, run, progress);
  else if (program.settings()[key::シーケンス表示] == true)
    gatherCycles(program, run, progress);
  else
    gatherRecord(program, run, progress);
  keepLastReports(program);
  observeReports(program);
  // A panel that tells of no network is left to the watch.
  if (program.console.status().panel1().startsWith(panelConnected))
    program.console.setPanel(1, program.connectedText());
  return run;
}

} // namespace soran
