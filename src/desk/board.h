// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desk/alarm_book.h"
#include "desk/report_age.h"
#include "reports/element_values.h"
#include "reports/runway_wind.h"

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <array>
#include <optional>
#include <vector>

namespace soran {

/// The worst that a TAF tells of the time up to so many hours ahead.
struct Outlook {
  Finding worst;
  QDateTime begins; ///< UTC
};

/// The hours of the outlooks of a board.
inline constexpr std::array<int, 3> outlookHours = {1, 3, 6};

/// What is known of the newest TAF of an airport.
enum class TafState {
  None, ///< there is none
  InForce,
  Expired,
  Cancelled,
  Missing, ///< NIL
  Unread,  ///< it cannot be read, or not all of it
};

/// An airport of the board. Times are UTC.
struct BoardRow {
  StationCode code = {};
  QString name = {};
  QString metar = {};  ///< the newest, as its station file; empty where there is none
  QDateTime time = {}; ///< of the newest METAR
  bool isSpecial = false;
  ElementValues values = {};                 ///< with positions in `metar`
  ElementValues before = {};                 ///< of the report before; the words are none of `metar`
  std::optional<RunwayWind> runwayWind = {}; ///< of `values`, on the runway in use
  Freshness freshness = Freshness::Unknown;
  std::vector<Finding> findings = {}; ///< of the METAR, the worst first
  bool lacksLimited = false;          ///< an element with a limit is not told
  TafState taf = TafState::None;
  std::array<std::optional<Outlook>, outlookHours.size()> outlook = {};
  QStringList sigmets = {}; ///< "M02"
  QString source = {};
  Alarm alarm = {};

  bool hasNoData() const { return !values.tellsVisibility() && !values.tellsCeiling(); }
  /// A TAF that does not tell what is to come.
  bool tafIsSilent() const { return taf > TafState::InForce; }
  /// 0 where nothing is beyond a limit, up to 3.
  int level() const { return findings.empty() ? 0 : findings.front().level; }
  int outlookLevel() const;
};

/// How bad a row is: the worse the greater.
int rankOf(const BoardRow& row);

/// Puts the worst rows first; equal ones stay as they stand.
void sortWorstFirst(std::vector<BoardRow>& rows);

/// One word for the state of the row, never empty: "L3" for a METAR beyond the third limit, "F3" for a TAF of
/// the next six hours, "L1/F3" where that is worse, "OVERDUE", "EXPIRED", "CLOSED"; "NO DATA" where neither
/// visibility nor ceiling is known, "PART" where one of them, another element with a limit, or a group is
/// not, "TAF?" where a TAF tells nothing that could be relied on; "OK" where all is known and within the
/// limits.
QString stateWord(const BoardRow& row);
/// "RING", "ACK", "MUTED", or empty.
QString alarmWord(const Alarm& alarm);

/// The columns of a board, in their order.
enum class BoardColumn {
  State,
  Alarm,
  Code,
  Name,
  Report,
  Age,
  Wind,
  Runway,
  Visibility,
  Weather,
  Ceiling,
  Temperatures,
  Qnh,
  Outlook1,
  Outlook3,
  Outlook6,
  Sigmet,
  Source,
  Changes,
};
inline constexpr int boardColumnCount = int(BoardColumn::Changes) + 1;

/// The heading of a column, and what a row has in it; empty where nothing is known.
QString headingOf(BoardColumn column);
QString cellOf(const BoardRow& row, BoardColumn column, const QDateTime& now);

/// The board as lines of text, each at most `columns` wide, as wide as the terminal shows them: columns that
/// have no room are left out, the least needed first. Lines are joined by CR LF.
QString boardText(const std::vector<BoardRow>& rows, int columns, const QDateTime& now);

} // namespace soran
