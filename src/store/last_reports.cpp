// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/last_reports.h"

#include <QFile>

namespace soran {

using namespace Qt::StringLiterals;

void LastReports::keep(std::span<const LastReport> reports) {
  open();
  Transaction transaction(database_);
  for (const LastReport& report : reports)
    database_.execute(
        u"INSERT OR REPLACE INTO last (code, kind, text, time, asked, source) VALUES (?, ?, ?, ?, ?, ?)"_s,
        {report.code, int(report.kind), report.text, report.time.toSecsSinceEpoch(),
         report.asked.toSecsSinceEpoch(), report.source});
  transaction.commit();
}

std::optional<LastReport> LastReports::find(const QString& code, ReportKind kind) {
  if (!database_.isOpen() && !QFile::exists(path_))
    return std::nullopt;
  open();
  const auto rows = database_.query(
      u"SELECT text, time, asked, source FROM last WHERE code = ? AND kind = ?"_s, {code, int(kind)});
  if (rows.empty())
    return std::nullopt;
  const QVariantList& row = rows.front();
  const auto timeAt = [&](int column) {
    return QDateTime::fromSecsSinceEpoch(row[column].toLongLong()).toUTC();
  };
  return LastReport{code, kind, row[0].toString(), timeAt(1), timeAt(2), row[3].toString()};
}

void LastReports::open() {
  if (database_.isOpen())
    return;
  // A read that failed may be told as damage: only what is told twice is so.
  for (int trial = 1;; ++trial) {
    try {
      return openFile();
    } catch (const StoreError& e) {
      database_.close();
      const bool isDamaged =
          e.kind() == StoreError::Kind::Corrupt || e.kind() == StoreError::Kind::NotADatabase;
      if (!isDamaged || trial == 3)
        throw;
      if (trial == 2)
        QFile::remove(path_);
    }
  }
}

void LastReports::openFile() {
  database_.open(path_, Database::Mode::Create);
  // A report is fetched again in a minute: no run waits for the disk on its account.
  database_.query(u"PRAGMA synchronous = OFF"_s);
  database_.execute(
      u"CREATE TABLE IF NOT EXISTS last (code TEXT NOT NULL, kind INTEGER NOT NULL, text TEXT NOT NULL, "
      "time INTEGER NOT NULL, asked INTEGER NOT NULL, source TEXT NOT NULL, PRIMARY KEY (code, kind))"_s);
}

} // namespace soran
