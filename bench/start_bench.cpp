// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
// soran-cli as a process: on a terminal from its start to the first prompt, and as one call from its start to
// its end.

#include "base/files.h"
#include "common/budget.h"
#include "common/cli_session.h"
#include "common/loopback.h"
#include "support/child_process.h"
#include "support/own_folder.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QJsonArray>
#include <QSocketNotifier>
#include <QTimer>
#include <fcntl.h>
#include <optional>
#include <pty.h>
#include <unistd.h>

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

/// A process on a terminal of its own; this thread's event loop serves its requests meanwhile.
class OnTerminal {
 public:
  explicit OnTerminal(const QStringList& arguments) {
    std::vector<QByteArray> words{QStringView(SORAN_CLI).toLocal8Bit()};
    words.reserve(size_t(arguments.size()) + 1);
    for (const QString& argument : arguments)
      words.push_back(argument.toLocal8Bit());
    std::vector<char*> argv;
    argv.reserve(words.size() + 1);
    for (QByteArray& word : words)
      argv.push_back(word.data());
    argv.push_back(nullptr);
    const auto run = [&argv] {
      setenv("TERM", "xterm", 1);
      execv(argv[0], argv.data());
      _exit(127);
    };
    process_.emplace(run, terminal_, winsize{});
  }
  ~OnTerminal() { ::close(terminal_); }
  OnTerminal(const OnTerminal&) = delete;
  OnTerminal& operator=(const OnTerminal&) = delete;

  /// Runs the event loop until `text` was written. False after ten seconds, or where the process ended.
  bool waitFor(const QByteArray& text) {
    QEventLoop loop;
    bool seen = false;
    QSocketNotifier ready(terminal_, QSocketNotifier::Read);
    QObject::connect(&ready, &QSocketNotifier::activated, &loop, [&] {
      char buffer[65536];
      const ssize_t got = ::read(terminal_, buffer, sizeof buffer);
      if (got > 0)
        written_.append(buffer, got);
      seen = written_.contains(text);
      if (seen || got <= 0)
        loop.quit();
    });
    QTimer::singleShot(10'000, &loop, &QEventLoop::quit);
    loop.exec();
    return seen;
  }
  void type(const QByteArray& line) const {
    if (::write(terminal_, line.constData(), size_t(line.size())) < 0)
      qWarning("the terminal is gone");
  }
  pid_t pid() const { return process_->id(); }

 private:
  int terminal_ = -1;
  std::optional<ChildProcess> process_;
  QByteArray written_;
};

/// `fresh` for the very first start, which fetches the database; else a directory of an earlier run.
void startCli(benchmark::State& state, bool fresh) {
  bench::Loopback endpoint;
  OwnFolder folder;
  const QString ini = folder.filePath(u"endpoints.ini"_s);
  endpoint.writeEndpoints(ini);
  int run = 0;
  const auto start = [&](double* seconds, double* memory) {
    const QString home = folder.filePath(u"home"_s + (fresh ? QString::number(++run) : QString()));
    QElapsedTimer timer;
    timer.start();
    OnTerminal cli({u"--home"_s, home, u"--endpoints"_s, ini});
    if (!cli.waitFor("> "))
      return false;
    *seconds = double(timer.nsecsElapsed()) / 1e9;
    *memory = bench::figuresOf(cli.pid()).peak;
    cli.type("EXIT\n");
    cli.waitFor("no such text");
    return true;
  };
  double seconds = 0;
  double memory = 0;
  double most = 0;
  if (!start(&seconds, &memory)) {
    state.SkipWithError("no prompt");
    return;
  }
  for (auto _ : state) {
    if (!start(&seconds, &memory)) {
      state.SkipWithError("no prompt");
      break;
    }
    state.SetIterationTime(seconds);
    most = std::max(most, memory);
  }
  bench::holdTo(state, 150);
  bench::holdMemory(state, most, 40);
}
BENCHMARK_CAPTURE(startCli, first_start, true)->UseManualTime()->Iterations(1)->Repetitions(9);
BENCHMARK_CAPTURE(startCli, later_start, false)->UseManualTime()->Iterations(1)->Repetitions(9);

/// A call of soran-cli from its start to its end, whose output is dropped. False where its status is not 0.
bool callCli(const QList<QByteArray>& arguments) {
  QByteArray program = QStringView(SORAN_CLI).toLocal8Bit();
  QList<QByteArray> words = arguments;
  std::vector<char*> argv{program.data()};
  for (QByteArray& word : words)
    argv.push_back(word.data());
  argv.push_back(nullptr);
  ChildProcess process([&argv] {
    const int nothing = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
    ::dup2(nothing, STDOUT_FILENO);
    ::dup2(nothing, STDERR_FILENO);
    execv(argv[0], argv.data());
    _exit(127);
  });
  return process.wait() == 0;
}

/// Calls it again and again; time on the clock counts.
void callAgain(benchmark::State& state, const QList<QByteArray>& arguments, double budget) {
  for (auto _ : state) {
    QElapsedTimer timer;
    timer.start();
    if (!callCli(arguments)) {
      state.SkipWithError("the call failed");
      return;
    }
    state.SetIterationTime(double(timer.nsecsElapsed()) / 1e9);
  }
  bench::holdTo(state, budget);
}

void version(benchmark::State& state) {
  callAgain(state, {"--version"}, 5);
}
BENCHMARK(version)->Name("call/version")->UseManualTime()->Iterations(20)->Repetitions(9);

/// One station out of files, in a directory that an earlier run has set up.
void runStation(benchmark::State& state) {
  OwnFolder folder;
  const QString files = u"file://"_s + folder.filePath(u"reports/"_s);
  QDir().mkpath(folder.filePath(u"reports"_s));
  writeWhole(folder.filePath(u"reports/RJTT.TXT"_s),
             "2026/11/24 05:00\nRJTT 240500Z 34012KT 9999 FEW030 12/03 Q1018\n");
  const QString ini = folder.filePath(u"endpoints.ini"_s);
  writeWhole(ini,
             QString(u"[endpoints]\nmetar="_s + files + u"\ntaf=" + files + u"none/\nprobe=\n").toUtf8());
  const QList<QByteArray> arguments = {
      "--home", folder.filePath(u"home"_s).toLocal8Bit(), "--endpoints", ini.toLocal8Bit(), "run", "RJTT"};
  callCli(arguments);
  callAgain(state, arguments, 12);
}
BENCHMARK(runStation)->Name("call/run")->UseManualTime()->Iterations(20)->Repetitions(9);

/// Reports of sixty stations with this weather; their codes.
QStringList serveSixty(bench::Loopback& endpoint, const QByteArray& weather) {
  QStringList codes;
  for (int i = 0; i < 60; ++i) {
    codes += u"RX"_s + QChar(u'A' + i / 26) + QChar(u'A' + i % 26);
    const QByteArray code = codes.last().toLatin1();
    endpoint.server.setFile(bench::metarFolder + codes.last() + u".TXT",
                            "2026/11/24 05:00\n" + code + " 240500Z " + weather + '\n');
    endpoint.server.setFile(bench::tafFolder + codes.last() + u".TXT",
                            "2026/11/24 05:05\nTAF " + code + " 240505Z 2406/2512 33010KT 9999 FEW030\n");
  }
  return codes;
}

/// A session that has shown a list of sixty stations.
void listSession(benchmark::State& state) {
  bench::Loopback endpoint(true);
  const QStringList codes = serveSixty(endpoint, "34012KT 9999 FEW030 12/03 Q1018");
  double most = 0;
  for (auto _ : state) {
    bench::CliSession session(endpoint, u"2026-11-24T14:05:00+09:00"_s);
    session.setAutomaticList(codes);
    session.mark();
    const QJsonObject shown = session.send({{u"type"_s, u"ATO"_s}});
    if (shown.value(u"screen"_s).toString().count(u"  METAR "_s) != codes.size()) {
      state.SkipWithError("not all stations were shown");
      break;
    }
    most = std::max(most, session.figures().process.peak);
  }
  bench::holdMemory(state, most, 20);
}
BENCHMARK(listSession)->Name("session/60")->Iterations(1);

/// A watch of sixty airports, all in fog, from its start to the last alarm.
void watchCli(benchmark::State& state) {
  bench::Loopback endpoint;
  OwnFolder folder;
  const QString ini = folder.filePath(u"endpoints.ini"_s);
  endpoint.writeEndpoints(ini);
  const QStringList codes = serveSixty(endpoint, "00000KT 0300 FG VV001 02/02 Q1018");
  double most = 0;
  for (auto _ : state) {
    OnTerminal cli({u"--home"_s, folder.filePath(u"home"_s), u"--endpoints"_s, ini, u"watch"_s, u"--list"_s,
                    codes.join(u' ')});
    if (!cli.waitFor("RANG  " + codes.last().toLatin1())) {
      state.SkipWithError("no alarm");
      break;
    }
    most = std::max(most, bench::figuresOf(cli.pid()).peak);
  }
  bench::holdMemory(state, most, 30);
}
BENCHMARK(watchCli)->Name("watch/60")->Iterations(1);

} // namespace
