// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "reports/element_values.h"

#include <QDateTime>
#include <QStringView>
#include <optional>
#include <vector>

/// Forecasts as slices of time: a TAF (WMO No. 306, FM 51) and the trend of a METAR (ICAO Annex 3, appendix
/// 5). Pure functions of the text; the words of what they give are stretches of it.
namespace soran {

enum class SliceKind {
  Prevailing, ///< the conditions that the forecast begins with, or that a BECMG has led to
  From,       ///< those behind an FM, which owe nothing to what was before
  Becoming,   ///< within the time of a BECMG: its conditions may hold already, those before it as well
  Tempo,
  Prob,
  ProbTempo,
};

/// What a forecast tells of a time, from `from` on and before `to` (UTC). At one time several may stand side
/// by side; one of them is Prevailing or From.
struct ForecastSlice {
  SliceKind kind = SliceKind::Prevailing;
  int probability = 0; ///< per cent, 0 where none is told
  QDateTime from = {};
  QDateTime to = {};
  /// All elements in force; of Tempo, Prob and ProbTempo those alone that it names.
  ElementValues values = {};
  Words words = {}; ///< the part of the forecast that begins it, "BECMG 2212/2215 04006KT"

  bool isTemporary() const { return kind >= SliceKind::Tempo; }
};

struct Taf {
  enum class State { InForce, Cancelled, Missing };

  State state = State::InForce; ///< Cancelled by CNL, Missing by NIL
  std::optional<Words> station = {};
  bool isAmended = false;   ///< AMD
  bool isCorrected = false; ///< COR
  QDateTime issued = {};    ///< UTC
  QDateTime from = {};      ///< of the validity, UTC; invalid where it is missing
  QDateTime to = {};
  std::vector<ForecastSlice> slices = {}; ///< by their beginning; none is empty
  /// Parts of which the time or every element is unreadable, or the time is not that of this forecast. What
  /// they say stands in no slice.
  std::vector<Words> unread = {};
};

/// Reads a TAF, or the file of a station with one. The month of its time of issue is the one that brings it
/// nearest to the file's time of writing, without one nearest to `now` (UTC), but not an hour or more behind
/// that; those of its days lie nearest to the time of issue. Nothing where the text has no time of issue or
/// no validity.
std::optional<Taf> readTaf(QStringView text, const QDateTime& now);

struct MetarReading {
  std::optional<Words> station = {};
  QDateTime observed = {};            ///< UTC
  std::optional<bool> isSpecial = {}; ///< the text says SPECI, or METAR; nothing where it says neither
  ElementValues values = {};
  bool hasTrend = false; ///< NOSIG or a change is told
  /// The two hours of the trend, as those of a TAF. Without a trend there are none.
  std::vector<ForecastSlice> slices = {};
  std::vector<Words> unread = {};
};

/// Reads a METAR or SPECI, or the file of a station with one; the date as readTaf. Nothing where the text has
/// no time of observation.
std::optional<MetarReading> readMetar(QStringView text, const QDateTime& now);

} // namespace soran
