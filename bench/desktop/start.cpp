// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/start.h"

#include "common/budget.h"
#include "common/loopback.h"
#include "delivered.h"
#include "desktop/desktop.h"
#include "desktop/widgets/screen_view.h"
#include "support/own_folder.h"

#include <QApplication>
#include <QEventLoop>
#include <QProcess>
#include <QTimer>
#include <chrono>
#include <cstdio>
#include <unistd.h>

namespace soran::bench {

using namespace Qt::StringLiterals;

namespace {

qint64 monotonic() {
  return std::chrono::nanoseconds(std::chrono::steady_clock::now().time_since_epoch()).count();
}

/// Notes the first painting of the screen's ground.
class FirstPaint final : public QObject {
 public:
  bool eventFilter(QObject* object, QEvent* event) override {
    if (seen == 0 && event->type() == QEvent::Paint && object->objectName() == u"qt_scrollarea_viewport" &&
        qobject_cast<ScreenView*>(object->parent()))
      seen = monotonic();
    return false;
  }
  qint64 seen = 0;
};

} // namespace

int startWindow(const QString& home) {
  LaunchOptions options;
  options.home = home;
  options.demo = true;
  FirstPaint paint;
  qApp->installEventFilter(&paint);
  LoopTimers timers;
  Launch launch(options, timers, delivered::file);
  Desktop desktop(launch);
  if (!desktop.start())
    return 1;
  const qint64 ready = monotonic();
  while (paint.seen == 0)
    QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  std::printf("%lld %lld %.1f\n", static_cast<long long>(paint.seen), static_cast<long long>(ready),
              figuresOf(getpid()).peak);
  std::fflush(stdout);
  desktop.terminal().close();
  return 0;
}

namespace {

enum class Until { Painted, Ready };

/// In the directory of an earlier run: the very first start stops at a message that the user closes.
void startDemo(benchmark::State& state, Until until) {
  OwnFolder folder;
  const QString home = folder.filePath(u"home"_s);
  QProcess first;
  first.start(QStringView(SORAN_CLI).toString(), {u"--demo"_s, u"--home"_s, home, u"run"_s, u"CLS"_s});
  first.waitForFinished();
  double most = 0;
  const auto start = [&]() -> double {
    QProcess process;
    const qint64 begin = monotonic();
    process.start(QApplication::applicationFilePath(), {startWord, home});
    if (!process.waitForFinished(10'000)) {
      process.kill();
      process.waitForFinished();
    }
    const QList<QByteArray> told = process.readAllStandardOutput().trimmed().split(' ');
    if (told.size() != 3)
      return 0;
    most = std::max(most, told[2].toDouble());
    return double(told[until == Until::Painted ? 0 : 1].toLongLong() - begin) / 1e9;
  };
  for (auto _ : state) {
    const double seconds = start();
    if (seconds <= 0) {
      state.SkipWithError("the window did not come");
      return;
    }
    state.SetIterationTime(seconds);
  }
  if (until == Until::Painted)
    holdTo(state, 400);
  holdMemory(state, most, 60);
}
BENCHMARK_CAPTURE(startDemo, shown, Until::Painted)->UseManualTime()->Iterations(1)->Repetitions(9);
BENCHMARK_CAPTURE(startDemo, list_shown, Until::Ready)->UseManualTime()->Iterations(1)->Repetitions(9);

/// The program itself, from a start that shows the delivered list.
void windowMemory(benchmark::State& state) {
  Loopback endpoint;
  OwnFolder folder;
  const QString ini = folder.filePath(u"endpoints.ini"_s);
  endpoint.writeEndpoints(ini);
  const QStringList options = {u"--home"_s, folder.filePath(u"home"_s), u"--endpoints"_s, ini};
  QEventLoop loop;
  QProcess process;
  QObject::connect(&process, &QProcess::finished, &loop, &QEventLoop::quit);
  // A first start stops at a message.
  process.start(QStringView(SORAN_CLI).toString(), options + QStringList{u"run"_s, u"CLS"_s});
  loop.exec();
  for (auto _ : state) {
    process.start(QStringView(SORAN_WINDOW).toString(), options);
    QTimer::singleShot(3000, &loop, &QEventLoop::quit);
    loop.exec();
    holdMemory(state, figuresOf(process.processId()).peak, 55);
    if (process.state() != QProcess::Running ||
        !endpoint.server.requests().contains(metarFolder + u"RJTT.TXT"))
      state.SkipWithError("the list was not asked for");
    process.kill();
    process.waitForFinished();
  }
}
BENCHMARK(windowMemory)->Name("window")->Iterations(1)->Repetitions(1);

} // namespace

} // namespace soran::bench
