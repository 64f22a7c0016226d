// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "reports/report_walk.h"

#include <vector>

/// The state of a translation that reads by code. Internal to this folder.
namespace soran {

struct CodeWalk {
  explicit CodeWalk(ReportWalk& shared);

  ReportWalk& walk;
  std::vector<QStringView> groups; ///< none of them empty, without the "=" that ends a message
  size_t at = 0;                   ///< of the next group, from 0
  qsizetype observedEnd = 0;       ///< of what the translation tells ahead of the remarks, once these begin
  bool hasAdditiveData = false;    ///< the remarks are those of FMH-1, where figures need no letter

  bool atEnd() const { return at == groups.size(); }
  /// A group that is not yet taken, `ahead` behind the next one; empty behind the end.
  QStringView peek(size_t ahead = 0) const {
    return at + ahead < groups.size() ? groups[at + ahead] : QStringView();
  }
  void take(size_t count = 1) { at += count; }
};

/// Recent weather, wind shear and whatever else stands ahead of the trend.
void tellSupplementByCode(CodeWalk& code);

/// NOSIG and the landing forecasts, up to the remarks.
void tellTrendByCode(CodeWalk& code);

/// The groups behind RMK, and what is looked for in the whole report.
void tellRemarksByCode(CodeWalk& code);

/// A remark that takes at least the next group where it is one of its kind; else false, and nothing is taken.
using RemarkByCode = bool (*)(CodeWalk& code);
bool tellCloudTypeByCode(CodeWalk& code);
bool tellPhenomenonByCode(CodeWalk& code);
bool tellVisibilityByCode(CodeWalk& code);
bool tellWeatherTimesByCode(CodeWalk& code);
bool tellAdditiveDataByCode(CodeWalk& code);

} // namespace soran
