// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
// soran-cli under load: large lists, large texts, a long log, a week of watching, many jobs. Prints a
// Markdown table. Its status is 1 where something came out wrong.

#include "common/cli_session.h"
#include "load/reports.h"
#include "support/child_process.h"
#include "support/own_folder.h"

#include <QCoreApplication>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QMap>
#include <QTimer>
#include <cstdio>
#include <fcntl.h>
#include <optional>
#include <sys/resource.h>
#include <unistd.h>

using namespace soran;
using namespace soran::bench;
using namespace Qt::StringLiterals;

namespace {

int failures = 0;

void printRow(const char* what, const CliSession::Figures& figures, bool right, const QString& found) {
  failures += right ? 0 : 1;
  std::printf("| %s | %.2f s | %.2f s | %.1f MB | %+.1f MB | %lld | %s%s |\n", what, figures.wall,
              figures.process.cpuSeconds, figures.process.peak, figures.growth,
              static_cast<long long>(figures.requests), right ? "" : "WRONG: ", found.toUtf8().constData());
  std::fflush(stdout);
}

QDateTime instant(const char* text) {
  return QDateTime::fromString(QString::fromLatin1(text), Qt::ISODate).toUTC();
}

/// The words of a state line.
QString screenOf(const QJsonObject& state) {
  return state.value(u"screen").toString();
}

void listOf300() {
  const QStringList codes = stationCodes(300);
  Reports reports(codes, instant("2026-11-24T05:00:00Z"), 1);
  Loopback endpoint(true);
  reports.serveOn(endpoint.server);
  CliSession session(endpoint, u"2026-11-24T14:05:00+09:00"_s);
  session.setAutomaticList(codes);
  session.mark();
  const QJsonObject state = session.send({{u"type"_s, u"ATO"_s}});
  const qsizetype shown = screenOf(state).count(u"  METAR "_s);
  printRow("A list of 300 stations", session.figures(), shown == 300 && session.figures().requests == 600,
           QString::number(shown) + u" stations shown");

  // Every one of them is logged at each loading, in two lines.
  session.mark();
  qsizetype rows = 0;
  for (int i = 0; i < 10; ++i)
    rows = session.send({{u"type"_s, u"ATO"_s}}).value(u"log").toArray().size();
  printRow("The same ten times, log full", session.figures(), rows == 1000,
           QString::number(rows) + u" rows of the log"_s);
}

void largeScreen() {
  const QStringList codes = stationCodes(300);
  Reports reports(codes, instant("2026-11-24T05:00:00Z"), 1);
  Loopback endpoint(true);
  reports.serveOn(endpoint.server);
  CliSession session(endpoint, u"2026-11-24T14:05:00+09:00"_s, {{u"前画面クリアー"_s, false}});
  session.setAutomaticList(codes);
  session.mark();
  // Without clearing, each run adds its text to that of the ones before.
  constexpr qsizetype wanted = 5'000'000;
  QJsonObject state = session.send({{u"type"_s, u"ATO"_s}});
  int runs = 1;
  while (screenOf(state).size() < wanted) {
    state = session.send({{u"type"_s, u"ATO"_s}});
    ++runs;
  }
  printRow("A screen grown to 5 MB", session.figures(), screenOf(state).size() >= wanted,
           QString::number(runs) + u" runs of 300 stations"_s);
  const qsizetype size = screenOf(state).size();
  session.mark();
  for (int i = 0; i < 10; ++i)
    state = session.send({{u"type"_s, u"RJAA"_s}});
  printRow("Ten stations typed on it", session.figures(), screenOf(state).size() > size,
           QString::number(screenOf(state).size() / 1000) + u" kB on the screen"_s);
  session.mark();
  for (int i = 0; i < 10; ++i)
    state = session.send({{u"select"_s, QJsonArray{size - 200, 4}}});
  state = session.send({{u"type"_s, u"CLS"_s}});
  printRow("Ten selections on it, then CLS", session.figures(), screenOf(state).size() < 1000,
           QString::number(screenOf(state).size()) + u" characters left"_s);
}

/// What the log gained since it was `before`, oldest first.
QStringList gained(const QStringList& before, const QStringList& now) {
  qsizetype fresh = 0;
  for (; fresh < now.size(); ++fresh) {
    const qsizetype same = std::min(now.size() - fresh, before.size());
    if (std::equal(before.begin(), before.begin() + same, now.begin() + fresh))
      break;
  }
  QStringList lines = now.first(fresh);
  std::reverse(lines.begin(), lines.end());
  return lines;
}

QStringList logOf(const QJsonObject& state) {
  QStringList rows;
  const QJsonArray log = state.value(u"log").toArray();
  for (const auto& row : log)
    rows.append(row.toString());
  return rows;
}

void watching(int days) {
  const QStringList codes = stationCodes(60);
  const QDateTime begin = instant("2026-11-24T05:03:00Z");
  Reports reports(codes, begin, days);
  Loopback endpoint(true);
  reports.serveOn(endpoint.server);
  // A pass a minute, a comparison in five.
  CliSession session(endpoint, u"2026-11-24T14:03:00+09:00"_s, {{u"バッファ"_s, 6}});
  session.setAutomaticList(codes);
  QStringList log = logOf(session.send({{u"type"_s, u"ATO"_s}}));
  session.mark();
  const double before = session.figures().process.memory;
  QMap<QString, QStringList> told;
  for (int minute = 0; minute < days * 24 * 60; ++minute) {
    reports.now = begin.addSecs(qint64(minute) * 60);
    const QStringList rows = logOf(session.send({{u"tick"_s, 60}}));
    for (const QString& line : gained(log, rows)) {
      if (line.endsWith(u"CHANGED") || line.endsWith(u"RECEIVED"))
        told[line.left(4)].append(line);
    }
    log = rows;
  }
  // All that was issued ten minutes before the end has had its turn, what came later perhaps.
  const QDateTime end = begin.addSecs((qint64(days) * 24 * 60 - 10) * 60);
  qsizetype expected = 0;
  qsizetype announced = 0;
  int wrong = 0;
  for (const QString& code : codes) {
    const QStringList due = reports.announcements(code, begin, end);
    const QStringList last = reports.announcements(code, begin, end.addSecs(600));
    expected += due.size();
    announced += told[code].size();
    wrong += told[code] == due || told[code] == last ? 0 : 1;
  }
  const CliSession::Figures figures = session.figures();
  const QByteArray name = QByteArray::number(days) + " days of watching 60 stations";
  printRow(name.constData(), figures, wrong == 0 && announced >= expected,
           u"announced %1, issued %2; memory %3 MB, then %4 MB"_s.arg(announced)
               .arg(expected)
               .arg(before, 0, 'f', 1)
               .arg(figures.process.memory, 0, 'f', 1));
}

/// Jobs made of the recorded reports, of every kind that reads them.
QByteArray jobs(int count) {
  QFile file(QStringView(SORAN_SOURCE_DIR u"/delivered/demo/day.tsv").toString());
  QList<QByteArray> reports;
  if (file.open(QIODevice::ReadOnly)) {
    for (const QByteArray& line : file.readAll().split('\n')) {
      const QByteArray text = line.split('\t').value(3);
      if (text.startsWith("METAR ") || text.startsWith("SPECI "))
        reports.append(text.mid(6));
    }
  }
  QByteArray lines;
  for (int i = 0; i < count && !reports.isEmpty(); ++i) {
    const QString report = QString::fromLatin1(reports[i / 4 % reports.size()]);
    QJsonObject job{{u"id"_s, i}};
    switch (i % 4) {
    case 0:
      job.insert(u"op"_s, u"translate"_s);
      job.insert(u"code"_s, report.left(4));
      job.insert(u"time"_s, report.mid(7, 5));
      job.insert(u"body"_s, report.mid(13));
      break;
    case 1:
      job.insert(u"op"_s, u"explain"_s);
      job.insert(u"text"_s, report);
      job.insert(u"selStart"_s, 13);
      job.insert(u"selLength"_s, report.indexOf(u' ', 13) - 13);
      job.insert(u"today"_s, u"2026-11-24"_s);
      break;
    case 2:
      job.insert(u"op"_s, u"layout"_s);
      job.insert(u"kind"_s, u"METAR"_s);
      job.insert(u"response"_s, QString(u"2026/11/24 05:00\n"_s + report + u'\n'));
      break;
    default:
      job.insert(u"op"_s, u"colour"_s);
      job.insert(u"text"_s, report);
    }
    lines += QJsonDocument(job).toJson(QJsonDocument::Compact) + '\n';
  }
  return lines;
}

void manyJobs(int count) {
  OwnFolder folder;
  const QByteArray input = folder.filePath(u"jobs"_s).toLocal8Bit();
  const QByteArray output = folder.filePath(u"answers"_s).toLocal8Bit();
  QFile file(QString::fromLocal8Bit(input));
  if (!file.open(QIODevice::WriteOnly) || file.write(jobs(count)) < 0)
    return;
  file.close();
  QElapsedTimer timer;
  timer.start();
  const QByteArray program = QStringView(SORAN_CLI).toLocal8Bit();
  ChildProcess process([&] {
    dup2(::open(input.constData(), O_RDONLY | O_CLOEXEC), STDIN_FILENO);
    dup2(::open(output.constData(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600), STDOUT_FILENO);
    execl(program.constData(), program.constData(), "batch", nullptr);
    _exit(127);
  });
  rusage used{};
  const std::optional<int> status = process.wait(&used);
  CliSession::Figures figures;
  figures.wall = double(timer.nsecsElapsed()) / 1e9;
  const auto seconds = [](const timeval& time) { return double(time.tv_sec) + double(time.tv_usec) / 1e6; };
  figures.process.cpuSeconds = seconds(used.ru_utime) + seconds(used.ru_stime);
  figures.process.peak = double(used.ru_maxrss) / 1024;
  QFile answers(QString::fromLocal8Bit(output));
  const QByteArray bytes = answers.open(QIODevice::ReadOnly) ? answers.readAll() : QByteArray();
  const qsizetype results = bytes.count("\"result\":");
  printRow("100,000 batch jobs", figures, status == 0 && results == count && bytes.count('\n') == count,
           QString::number(results) + u" results"_s);
}

} // namespace

int main(int argc, char** argv) {
  QCoreApplication app(argc, argv);
  const QStringList arguments = QCoreApplication::arguments();
  const int days = arguments.value(1).isEmpty() ? 7 : arguments[1].toInt();
  if (days < 1) {
    std::fputs("usage: soran-load [DAYS OF WATCHING]\n", stderr);
    return 2;
  }
  std::puts("| Case | Time | Processor | Peak memory | Growth | Requests | Outcome |\n"
            "|---|--:|--:|--:|--:|--:|---|");
  listOf300();
  largeScreen();
  watching(days);
  manyJobs(100'000);
  return failures == 0 ? 0 : 1;
}
