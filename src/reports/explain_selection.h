// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "reports/dictionaries.h"
#include "store/settings_record.h"

#include <QDate>
#include <optional>

namespace soran {

/// What the hint window tells of a group.
struct Explanation {
  QString text;
  QString picture; ///< the 名称 under which a picture of the group may be stored

  bool operator==(const Explanation&) const = default;
};

/// Explains the group that is selected on the screen: a station, a word of the dictionaries, or the meaning
/// of a METAR, TAF or remark group (ICAO Annex 3, FMH-1). Nothing where the group has no explanation.
///
/// `start` (from 0) and `length` count UTF-16 units; a selection past the end is cut. `today` gives the month
/// whose length counts where the time zone moves a time to another day. Of the settings LOCAL使用 and 時差
/// are read. The cost is that of the selection, whatever the size of the screen.
std::optional<Explanation> ExplainSelection(QStringView screen, qsizetype start, qsizetype length,
                                            QDate today, const SettingsRecord& settings,
                                            const Dictionaries& dictionaries);

} // namespace soran
