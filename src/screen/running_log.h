// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/colour.h"
#include "platform/clock.h"

#include <QObject>
#include <QString>
#include <deque>

namespace soran {

/// A row of the running log.
struct LogRow {
  QString date; ///< yyyy/MM/dd
  QString time; ///< HH:mm:ss
  QString message;
};

/// The log of the program run, newest row first, at most 1000 rows. It lives in memory only.
class RunningLog : public QObject {
  Q_OBJECT
 public:
  explicit RunningLog(const Clock& clock) : clock_(clock) {}

  /// Writes the three first rows, once.
  void load();

  /// Adds a row on top.
  void add(const QString& message);

  const std::deque<LogRow>& rows() const { return rows_; }

  /// The colour of a row's text: grey; black for reports; `speciColour` for special and amended ones.
  static Colour colourOf(const LogRow& row, Colour speciColour);

 signals:
  void changed();

 private:
  const Clock& clock_;
  std::deque<LogRow> rows_;
  bool loaded_ = false;
};

} // namespace soran
