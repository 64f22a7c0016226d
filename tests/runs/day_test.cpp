// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
// A day on a dispatcher's desk: the reports of twenty stations, two losses of the network and a restart of
// the endpoint.

#include "platform/demo_data.h"
#include "reports/layout.h"
#include "runs/run_bench.h"

#include <QMap>
#include <QSet>

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

const QStringList stations =
    u"RJTT RJAA RJBB RJOO RJGG RJCC RJFF ROAH RJSS RJOA RJFU RJFM RJFK RJFT RJOT RJOM RJNK RJSN RJCH RJEC"_s
        .split(u' ');

/// What a file holds: kind, station and its stamp line.
QString identity(const QString& kind, const QString& code, const std::optional<QByteArray>& file) {
  return file ? kind + code + u' ' + QString::fromLatin1(file->left(16)) : QString();
}

} // namespace

TEST(Day, AnnouncesEveryNewReportOnce) {
  World world;
  // The first hours are still evening in UTC, so both midnights lie in the day.
  world.clock = SetClock(QDateTime::fromString(u"2026-11-24T06:00:00+09:00"_s, Qt::ISODate));
  const DemoData day(delivered::file(u"demo/day.tsv"_s), world.clock);
  day.serveOn(world.server);
  world.prepare([](Tables& tables) {
    setAutoList(tables, stations.join(u' '));
    tables.settings().store(key::シーケンス表示, false);
    tables.settings().store(key::バッファ, 6); // a pass a minute, a comparison in five
  });
  RunBench run(world);
  ASSERT_TRUE(run.begin());

  QSet<QString> announced;    // every report that was, by its identity
  QMap<QString, int> inForce; // looks, five minutes apart, at which a report could have been fetched
  QStringList faults;
  int sounds = 0;
  qsizetype alarms = 0;
  const auto now = [&] { return world.clock.now().toString(u"HH:mm"); };
  const auto look = [&] {
    for (const QString& code : stations) {
      for (const QString& report :
           {identity(u"M "_s, code, day.metarFile(code)), identity(u"T "_s, code, day.tafFile(code))})
        inForce[report] += 1;
    }
  };
  /// Compares the table with what it was before: what changed must be what was told, once each.
  std::vector<Station> before;
  const auto check = [&] {
    QStringList changed;
    const std::vector<Station>& rows = run.program.stationTable.rows();
    for (size_t i = 0; i < rows.size(); ++i) {
      const QString& code = rows[i].stationCode.text();
      const bool metar = i >= before.size() || rows[i].metarStamp != before[i].metarStamp;
      const bool taf = i >= before.size() || rows[i].tafStamp != before[i].tafStamp;
      if (metar || taf)
        changed.append(code);
      for (const auto& [isNew, report] : {std::pair{metar, identity(u"M "_s, code, day.metarFile(code))},
                                          std::pair{taf, identity(u"T "_s, code, day.tafFile(code))}}) {
        if (isNew && announced.contains(report))
          faults.append(now() + u" twice: " + report);
        if (isNew)
          announced.insert(report);
      }
    }
    const bool first = before.empty();
    before = rows;
    QStringList told;
    for (const QString& line : run.logged()) {
      if (line.endsWith(u"CHANGED") || line.endsWith(u"RECEIVED"))
        told.append(line.left(4));
    }
    if (!first && told != changed)
      faults.append(now() + u" told " + told.join(u' ') + u" of " + changed.join(u' '));
    if (!first && !changed.isEmpty()) {
      ++sounds;
      for (const QString& code : changed) {
        const auto file = day.metarFile(code);
        const QString text = QString::fromLatin1(file.value_or(QByteArray()));
        if (file && !run.screen().contains(layoutReport(text, ReportKind::Metar, run.program.record()).body))
          faults.append(now() + u" not shown: " + code);
      }
    }
    // An outage that begins sounds its own alarm.
    const QStringList heard = run.desk.takeSeen().sounds;
    EXPECT_EQ(heard.count(u"ring.wav"_s), !first && !changed.isEmpty() ? 1 : 0);
    alarms += heard.count(u"error.wav"_s);
  };

  for (int minute = 0; minute < 24 * 60; ++minute) {
    const bool restart = minute == 700;
    const bool down = (minute >= 200 && minute < 260) || (minute >= 1100 && minute < 1125);
    if (minute == 200)
      world.server.stop();
    if (minute == 1100)
      world.server.setDelivery(u"/"_s, {.cutAt = 3});
    if (restart)
      world.server.stop();
    if (minute == 260 || restart) {
      ASSERT_TRUE(world.server.start());
    }
    if (minute == 1125)
      world.server.setDelivery(u"/"_s, {});
    if (down)
      inForce.clear(); // what stands now may be gone when the network is back
    else if (minute % 5 == 0)
      look();
    if (minute == 199 || minute == 1099) {
      EXPECT_TRUE(run.program.networkAvailable);
    }
    run.tick(60);
    check();
    for (auto report = inForce.begin(); report != inForce.end();) {
      // Two looks more than the cycle needs, so that its five minutes and a pass have gone by.
      const bool overdue = *report >= 3 && !announced.contains(report.key());
      if (overdue)
        faults.append(now() + u" missed: " + report.key());
      report = overdue ? inForce.erase(report) : std::next(report);
    }
    if (down && minute % 60 == 30) {
      EXPECT_FALSE(run.program.networkAvailable);
    }
  }
  EXPECT_EQ(faults, QStringList());
  EXPECT_GT(announced.size(), 400);
  EXPECT_GT(sounds, 50);
  EXPECT_EQ(alarms, 2);
}
