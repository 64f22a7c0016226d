// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/report_rules.h"

#include <QString>

namespace soran {

/// When a station file was written, as its first line "2026/11/24 05:00" tells: the time of day in UTC. It is
/// not validated; two files are the same where their stamps are.
class Stamp {
 public:
  /// The stamp of a station file that was never seen.
  Stamp() = default;
  /// That of a station file: its characters 12 to 16 (from 1), trimmed of blanks.
  static Stamp of(QStringView response);

  const QString& text() const { return text_; }
  MinuteOfHour minute() const;
  bool operator==(const Stamp&) const = default;

 private:
  QString text_;
};

} // namespace soran
