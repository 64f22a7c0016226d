// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runs/watch_cycle.h"

#include "base/files.h"
#include "base/text.h"
#include "runs/change_detector.h"
#include "runs/cycle_files.h"
#include "runs/night_desk.h"

namespace soran {

using namespace Qt::StringLiterals;

namespace {

constexpr int minutesOfDay = 24 * 60;

} // namespace

// The order is that in which they tick where several fall due.
WatchCycle::WatchCycle(Program& program, DecodeRun& decode, Printing& printing)
    : program_(program), decode_(decode), printing_(printing), timer_(makeTimer(&WatchCycle::onWatchTick)),
      timer2_(makeTimer(&WatchCycle::onOverlayTick)), timer4_(makeTimer(&WatchCycle::onSequenceRetry)),
      timer1_(makeTimer(&WatchCycle::onTrayTick)), alarmTimer_(makeTimer(&WatchCycle::onAlarmTick)) {}

std::unique_ptr<Timer> WatchCycle::makeTimer(void (WatchCycle::*tick)()) {
  const Services& services = program_.services;
  return services.timers.make([this, tick, &services] { services.shutdown.guard([&] { (this->*tick)(); }); });
}

void WatchCycle::start() {
  readBufferLevel();
  program_.watchTicks = 0;
  timer_->setInterval(1000);
  timer_->setEnabled(true);
  timer1_->setInterval(1000);
  timer2_->setInterval(1000);
  timer2_->setEnabled(true);
  timer4_->setInterval(3000);
  alarmTimer_->setInterval(1000);
  alarmTimer_->setEnabled(true);
}

void WatchCycle::stop() {
  for (Timer* timer : {timer_.get(), timer2_.get(), timer4_.get(), timer1_.get(), alarmTimer_.get()})
    timer->setEnabled(false);
}

void WatchCycle::onTrayTick() {
  timer1_->setEnabled(false);
  program_.services.forms.hide(form::TaskIcon{});
}

void WatchCycle::onAlarmTick() {
  // A sound is waited for, which would hold a run.
  if (!decode_.running())
    ringAlarms(program_);
}

void WatchCycle::readBufferLevel() {
  program_.bufferLevel = 11 - program_.settings()[key::バッファ].value_or(10);
}

void WatchCycle::stopAutoOnManual() {
  if (program_.settings()[key::マニュアル入力時停止] != true)
    return;
  timer_->setEnabled(false);
  program_.showAutoDecodeStopped();
  program_.console.addLogEntry(u"AUTO DECODE SEQUENCE TERMINATED"_s);
}

void WatchCycle::startAutomatic() {
  Console& console = program_.console;
  console.appendScreen(crlf.toString());
  console.addLogEntry(u"AUTO DECODE SEQUENCE START"_s);
  console.setSequencePending(false);
  program_.runMemory.japanesePending = false;
  QStringList codes;
  for (const Airport& airport : program_.tables.autoRows())
    codes.append(airport.code);
  run({.kind = RunKind::Automatic, .codes = codes.join(u' '), .origin = RunOrigin::Button, .fullLoad = true});
  program_.watchTicks = 0;
  timer_->setEnabled(true);
}

void WatchCycle::run(const RunRequest& request) {
  // What is asked for now is no sequence that waits for its files.
  if (request.kind != RunKind::Sequence)
    timer4_->setEnabled(false);
  decode_.remember(request);
  runAgain(request.origin);
}

void WatchCycle::runAgain(RunOrigin origin) {
  show(decode_.gather(decode_.repeated(origin)));
}

void WatchCycle::show(const GatheredRun& run, const QString& behind) {
  decode_.show(run, behind);
  if (run.missingCycleFile)
    timer4_->setEnabled(true);
}

void WatchCycle::onWatchTick() {
  // A pass begins by cancelling what is open. In the middle of a run that would turn a station that is there
  // into one that is not found, so the pass waits for the run's end.
  if (++program_.watchTicks >= watchLimit_ && !decode_.running())
    pass();
}

void WatchCycle::pass() {
  program_.watchTicks = 0;
  timer_->setEnabled(false);
  const int slowness = (program_.bufferLevel - 1) * 10;
  watchLimit_ = slowness + 20;
  Inet& inet = program_.services.inet;
  inet.cancel();
  inet.setRequestTimeout(slowness + 60);
  if (!probe()) {
    networkFailed();
    return;
  }
  program_.console.setPanel(1, program_.connectedText());
  program_.lastProbeGood = true;
  if (!program_.networkAvailable)
    networkReturned();
  else
    cycle();
}

bool WatchCycle::probe() {
  const QString configured = program_.services.endpoints.probe;
  const QString address = configured.isEmpty() ? program_.baseUrl + u"/data/version.dat" : configured;
  if (answers(QUrl(address)))
    return true;
  // Where one source of reports is away, another may serve.
  const std::vector<ReportSource> sources = program_.services.endpoints.reportSources();
  const std::array known = {StationCode(u"RJTT"_s)};
  return sources.size() > 1 && std::ranges::any_of(sources, [&](const ReportSource& source) {
           const QUrl report = source.address(ReportKind::Metar, known);
           return report != QUrl(address) && answers(report);
         });
}

bool WatchCycle::answers(const QUrl& address) {
  // A server that wants to be left alone is there.
  constexpr int tooMany = 429;
  const Reply reply = program_.services.inet.open(address);
  return reply.isAnswer() || reply.status == tooMany;
}

void WatchCycle::networkFailed() {
  Console& console = program_.console;
  program_.networkAvailable = false;
  program_.desk.watchedSince = {};
  console.setPanel(1, u"ネットワーク未接続"_s);
  if (program_.lastProbeGood) {
    console.appendScreen(crlf + u"DISCONNECT NETWORK" + crlf);
    console.caretToEnd();
    console.colourScreenText();
    if (program_.minimised)
      renewTaskIcon();
    else if (program_.settings()[key::切断時メッセージ] == true)
      alert();
  }
  console.addLogEntry(u"NETWORK DISCONNECTED"_s);
  console.addLogEntry(u"STANDBY DATA RELOAD"_s);
  console.setPanel(2, u"再受信待機"_s);
  program_.lastProbeGood = false;
  timer_->setEnabled(true);
}

void WatchCycle::alert() {
  program_.services.forms.show(form::Alert{});
  const QString alarm = program_.services.path(u"sound/error.wav");
  if (program_.settings()[key::切断時アラーム] == true && fileExists(alarm))
    program_.services.sounds.play(alarm);
}

void WatchCycle::networkReturned() {
  Console& console = program_.console;
  program_.networkAvailable = true;
  console.appendScreen(crlf + u"RECONNECT NETWORK" + crlf);
  console.caretToEnd();
  console.colourScreenText();
  if (program_.minimised)
    renewTaskIcon();
  console.addLogEntry(u"RECONNECT NETWORK"_s);
  program_.services.forms.hide(form::Alert{});
  program_.watchTicks = 0;
  timer_->setEnabled(true);
}

void WatchCycle::renewTaskIcon() {
  program_.services.forms.hide(form::TaskIcon{});
  program_.services.forms.show(form::TaskIcon{program_.networkAvailable});
}

bool WatchCycle::cycleIsDue() const {
  int hour = leadingInteger(mid1(program_.lastCycleTime, 1, 2));
  int minute = leadingInteger(mid1(program_.lastCycleTime, 4, 2)) + program_.bufferLevel;
  if (minute >= 60) {
    minute -= 60;
    ++hour;
  }
  int due = hour * 60 + minute;
  if (due >= minutesOfDay)
    due -= minutesOfDay;
  const QTime now = program_.services.clock.now().time();
  return now.hour() * 60 + now.minute() >= due || due == 0;
}

void WatchCycle::cycle() {
  Console& console = program_.console;
  if (!cycleIsDue()) {
    timer_->setEnabled(true);
    refreshCycleFiles(program_);
    return;
  }
  if (program_.runMemory.automatic && (program_.settings()[key::自動デコード有効] == false ||
                                       program_.tables.autoList().recordCount() == 0)) {
    program_.showAutoDecodeStopped();
    refreshCycleFiles(program_);
    return;
  }
  if (program_.runMemory.loadPending) {
    console.setPromptGap(true);
    if (program_.runMemory.automatic) {
      console.addLogEntry(u"AUTO DECODE SEQUENCE START"_s);
      runAgain(RunOrigin::Start);
    }
  } else {
    const int acts = program_.userActs;
    checkForChanges(program_);
    if (program_.cycleChanged)
      runChanged(acts);
    if (program_.desk.showsBoard)
      refreshSigmets(program_);
  }
  timer_->setEnabled(true);
  program_.lastCycleTime = timeText(program_.services.clock).left(5);
  refreshCycleFiles(program_);
}

/// Shows the list once more, told of as new where the user did nothing since `acts` were counted.
void WatchCycle::runChanged(int acts) {
  program_.console.setPromptGap(true);
  const GatheredRun run = decode_.gather(decode_.repeated(RunOrigin::Cycle));
  const bool announces = run.request.kind != RunKind::Japanese && run.request.kind != RunKind::Sequence &&
                         program_.cycleAnnounces && acts == program_.userActs;
  show(run, announces ? announceChanges(acts) : QString());
}

QString WatchCycle::announceChanges(int acts) {
  Console& console = program_.console;
  const QString ring = program_.services.path(u"sound/ring.wav");
  if (fileExists(ring) && program_.settings()[key::更新終了時アラーム] == true) {
    console.addLogEntry(u"RING ARARM"_s);
    program_.services.sounds.play(ring);
  }
  if (program_.settings()[key::更新終了時メッセージ] == true) {
    console.addLogEntry(u"DISPLAY DATA CHANGED MESSAGE"_s);
    // A minimised window has no place for it.
    if (!program_.minimised)
      program_.services.forms.show(form::NewReports{});
  }
  if (program_.settings()[key::印刷更新時印刷] == true) {
    // A key during the sound takes the print out of its window.
    QString behind = printing_.printScreen(acts == program_.userActs ? Printing::Cause::Cycle
                                                                     : Printing::Cause::DisturbedCycle);
    console.appendScreen(crlf.toString());
    return behind;
  }
  return {};
}

void WatchCycle::onOverlayTick() {
  const bool firstRunEndsIt =
      program_.settings()[key::自動デコード有効] == true && program_.tables.autoList().recordCount() > 0;
  if (!firstRunEndsIt && ++overlayTicks_ < 5)
    return;
  timer2_->setEnabled(false);
  if (!firstRunEndsIt)
    program_.console.setOverlay(false);
}

void WatchCycle::onSequenceRetry() {
  constexpr int retriesBeforeRefresh = 10;
  timer4_->setEnabled(false);
  program_.watchTicks = 0;
  program_.console.setPromptGap(true);
  program_.console.setSequencePending(true);
  runAgain(RunOrigin::Button);
  if (!timer4_->enabled()) {
    retries_ = 0;
  } else if (++retries_ == retriesBeforeRefresh) {
    retries_ = 0;
    fetchCycleFiles();
  }
}

/// With the cycle stopped nobody else brings the files.
void WatchCycle::fetchCycleFiles() {
  program_.cycleDecade = 25;
  refreshCycleFiles(program_);
}

void WatchCycle::askForUnknown(const QStringList& codes) {
  QStringList unknown;
  for (const QString& code : codes) {
    const StationCode station(code);
    if (!program_.knownReports.find(station, ReportKind::Metar) &&
        !program_.knownReports.find(station, ReportKind::Taf))
      unknown.append(code);
  }
  if (!unknown.isEmpty())
    decode_.gather(
        {.kind = RunKind::List, .codes = unknown.join(u' '), .origin = RunOrigin::Typed, .fullLoad = true});
}

void WatchCycle::completeSequence() {
  if (!timer4_->enabled())
    return;
  fetchCycleFiles();
  onSequenceRetry();
}

} // namespace soran
