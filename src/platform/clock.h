// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/zone_offset.h"

#include <QDateTime>
#include <QString>

namespace soran {

/// The only source of the time of day.
class Clock {
 public:
  virtual ~Clock() = default;

  /// The local date and time, with the offset of the local time zone.
  virtual QDateTime now() const = 0;

  /// The name of the local time zone in its daylight form; may be empty.
  virtual QString zoneName() const = 0;

  /// The offset of the local time zone from UTC, cut towards zero.
  ZoneOffset offset() const { return {now().offsetFromUtc() / 3600}; }
};

/// The clock of the machine.
class SystemClock final : public Clock {
 public:
  QDateTime now() const override;
  QString zoneName() const override;
};

/// A clock that stands still and is moved by hand. Its time zone is the offset of the time that it was given.
class SetClock final : public Clock {
 public:
  explicit SetClock(QDateTime start) : now_(std::move(start)) {}
  QDateTime now() const override { return now_; }
  QString zoneName() const override;
  void advance(int seconds) { now_ = now_.addSecs(seconds); }

 private:
  QDateTime now_;
};

/// An offset from UTC as text: "+9", "-5", "±0".
QString offsetText(ZoneOffset offset);

/// The local date as yyyy/MM/dd.
QString dateText(const Clock& clock);

/// The local time of day as HH:mm:ss.
QString timeText(const Clock& clock);

} // namespace soran
