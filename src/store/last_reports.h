// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/report_rules.h"
#include "store/database.h"

#include <QDateTime>
#include <QString>
#include <optional>
#include <span>

namespace soran {

/// A report as it was served.
struct LastReport {
  QString code;
  ReportKind kind;
  QString text;    ///< the station file
  QDateTime time;  ///< of writing, UTC
  QDateTime asked; ///< UTC
  QString source;  ///< name of the source
};

/// The last known report of each station and kind, kept over runs in a file of its own beside the database,
/// encrypted as that is. What it holds can be fetched again, so a file that is damaged is made anew.
/// Operations throw StoreError where the file cannot be used.
class LastReports {
 public:
  explicit LastReports(QString path) : path_(std::move(path)) {}

  void keep(std::span<const LastReport> reports);
  std::optional<LastReport> find(const QString& code, ReportKind kind);

 private:
  void open();
  void openFile();

  QString path_;
  Database database_;
};

} // namespace soran
