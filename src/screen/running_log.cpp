// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "screen/running_log.h"

#include "base/report_rules.h"

namespace soran {

using namespace Qt::StringLiterals;

namespace {
constexpr size_t mostRows = 1000;
}

void RunningLog::load() {
  if (loaded_)
    return;
  loaded_ = true;
  for (const QString& message :
       {u"SYSTEM  CONNECTED  KSD  DATABASE"_s, u"SYSTEM  LOGIN"_s, u"SYSTEM  LOAD"_s})
    rows_.push_back({dateText(clock_), timeText(clock_), message});
  emit changed();
}

void RunningLog::add(const QString& message) {
  load();
  rows_.push_front({dateText(clock_), timeText(clock_), message});
  while (rows_.size() > mostRows)
    rows_.pop_back();
  emit changed();
}

Colour RunningLog::colourOf(const LogRow& row, Colour speciColour) {
  const auto holds = [&row](QStringView word) { return row.message.contains(word); };
  if (!amendmentIn(row.message).isEmpty() || holds(u"SPECI"))
    return speciColour;
  if ((holds(u"TAF") || holds(u"METAR")) && !holds(u"HOMEPAGE"))
    return black;
  return grey;
}

} // namespace soran
