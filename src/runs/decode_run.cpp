// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runs/decode_run.h"

#include "runs/gather.h"
#include "runs/run_display.h"

#include <QScopeGuard>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

bool takePrefix(QString& codes, QStringView prefix) {
  if (!codes.startsWith(prefix))
    return false;
  codes.remove(0, prefix.size());
  return true;
}

/// A run as the user sees it in `currentInput`.
QString inputOf(const GatheredRun& run) {
  if (run.request.kind == RunKind::Japanese)
    return u"JP " + run.request.codes;
  if (run.request.kind == RunKind::Sequence && !run.noRecord)
    return u"SQ " + run.request.codes;
  return run.request.codes;
}

} // namespace

void DecodeRun::remember(const RunRequest& request) {
  program_.currentInput = request.codes;
  RunMemory& memory = program_.runMemory;
  memory.automatic = request.kind == RunKind::Automatic;
  memory.group = request.kind == RunKind::Group ? request.group : QString();
  memory.loadPending = request.fullLoad;
  if (request.kind == RunKind::Sequence)
    program_.console.setSequencePending(true);
  else if (request.kind == RunKind::Japanese)
    memory.japanesePending = true;
}

RunRequest DecodeRun::repeated(RunOrigin origin) {
  RunMemory& memory = program_.runMemory;
  Console& console = program_.console;
  RunRequest request{.codes = program_.currentInput,
                     .origin = memory.enterTyped ? RunOrigin::Typed : origin,
                     .group = memory.group,
                     .fullLoad = memory.loadPending};
  if (takePrefix(request.codes, u"SQ "))
    console.setSequencePending(true);
  if (console.sequencePending()) {
    request.kind = RunKind::Sequence;
    return request;
  }
  if (takePrefix(request.codes, u"JP "))
    memory.japanesePending = true;
  if (memory.japanesePending) {
    request.kind = RunKind::Japanese;
    return request;
  }
  if (!request.group.isEmpty())
    request.kind = RunKind::Group;
  else if (memory.automatic)
    request.kind = RunKind::Automatic;
  if (request.fullLoad)
    loadStationTable(request);
  return request;
}

void DecodeRun::loadStationTable(RunRequest& request) {
  program_.lastCycleTime.clear();
  if (request.kind == RunKind::Automatic) {
    QStringList codes;
    for (const Airport& airport : program_.tables.autoRows())
      codes.append(airport.code);
    if (codes.isEmpty())
      return;
    request.codes = codes.join(u' ');
  }
  if (!request.codes.isEmpty())
    program_.stationTable.rebuild(request.codes);
}

GatheredRun DecodeRun::gather(const RunRequest& request) {
  ++running_;
  const auto ended = qScopeGuard([this] { --running_; });
  RunDisplay display(program_);
  return soran::gather(program_, request, display);
}

void DecodeRun::show(const GatheredRun& run, const QString& behind) {
  program_.currentInput = inputOf(run);
  soran::show(program_, run, behind);
  program_.runMemory.loadPending = false;
  program_.runMemory.enterTyped = false;
  program_.console.setSequencePending(false);
}

} // namespace soran
