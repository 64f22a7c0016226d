// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "reports/taf_slices.h"

namespace soran {

/// A part of a forecast as it is written. Internal to this folder.
struct ForecastPart {
  SliceKind kind = SliceKind::Prevailing;
  int probability = 0;
  QDateTime from = {}; ///< invalid where it cannot be read
  QDateTime to = {};   ///< that of a From is not asked for
  Words words = {};    ///< all of it
  Words content = {};  ///< behind kind and time
};

/// Puts the parts of a forecast, in their order, together to slices.
class SliceBuilder {
 public:
  /// The forecast begins with `values`, which hold to its end where nothing changes them.
  SliceBuilder(QStringView text, const QDateTime& from, const QDateTime& to, ElementValues values,
               const Words& words);

  void add(const ForecastPart& part);

  std::vector<ForecastSlice> takeSlices();
  std::vector<Words> takeUnread() { return std::move(unread_); }

 private:
  bool isInTime(const ForecastPart& part) const;
  void change(const ForecastPart& part, const ElementValues& values);
  void beginAnew(const ForecastPart& part, ElementValues values);
  ForecastSlice& prevailing() { return slices_[prevailing_]; }

  QStringView text_;
  QDateTime from_;
  QDateTime to_;
  QDateTime changed_; ///< when the last change begins
  std::vector<ForecastSlice> slices_;
  size_t prevailing_ = 0; ///< the last slice that is no Becoming and not temporary
  std::vector<Words> unread_;
};

/// The station's code and the time DDHHMMZ of a report, and what stands behind the time; nothing where it has
/// none.
struct ReportHeading {
  std::optional<Words> station = {};
  QDateTime time = {};
  Words behind = {};
  bool isAmended = false;
  bool isCorrected = false;
  std::optional<bool> isSpecial = {}; ///< SPECI or METAR stands ahead of the code
};
std::optional<ReportHeading> readHeading(QStringView text, const QDateTime& now);

} // namespace soran
