// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/station_code.h"
#include "reports/limits.h"
#include "reports/taf_slices.h"
#include "store/settings_record.h"

#include <QString>
#include <QStringList>
#include <vector>

/// The weather of a station on one axis of time: what was observed, what is forecast, and the sun. Pure.
namespace soran {

/// A METAR and the time of its observation (UTC).
struct Observed {
  QDateTime time = {};
  QString text = {}; ///< the report, or its station file
  ElementValues values = {};
};

/// From sunset to sunrise, UTC.
struct Night {
  QDateTime from;
  QDateTime to;

  bool operator==(const Night&) const = default;
};

struct Meteogram {
  StationCode code = {};
  QString name = {};
  QDateTime now = {};                  ///< UTC, as all times here
  QDateTime from = {};                 ///< a full hour
  QDateTime to = {};                   ///< a full hour
  std::vector<Observed> observed = {}; ///< by time, the last report of each
  QString tafText = {};                ///< empty where there is none in force
  bool isDemonstration = false;        ///< nothing of it is weather
  QString tafNote = {}; ///< why there is none: "NO TAF", "TAF NIL" ...; "TAF UNREAD" for a part
  std::vector<ForecastSlice> taf = {}; ///< those from now on
  std::vector<Night> nights = {};      ///< in that time; none where the sun times are not known
  bool knowsNights = false;            ///< those of Japanese fields are known
  bool isSouthern = false;             ///< the station lies in the southern hemisphere
  Limits limits = {};

  bool isEmpty() const { return observed.empty() && taf.empty(); }
};

/// Puts the reports of a station together, whatever their order: METARs (reports or station files) of the 24
/// hours before `now`, and the TAF for at most the 30 hours behind it. What cannot be read is left out.
Meteogram meteogramOf(const StationCode& code, const QStringList& metars, const QString& taf,
                      const QDateTime& now, const Limits& limits);

/// The nights between two times at the field of that code (of Japan, AIP AD 2).
std::vector<Night> nightsBetween(const QString& code, const QDateTime& from, const QDateTime& to);

/// A row of the same as a table.
struct MeteogramRow {
  QString time = {};      ///< in the zone of the settings, "27 1530I", or that of a span
  QString kind = {};      ///< "METAR", "TAF", "FM", "BECMG", "TEMPO", "PROB30", "PROB40 TEMPO"
  QStringList words = {}; ///< wind, visibility, weather, ceiling, temperatures, QNH, as they are reported
};

inline constexpr std::array<QStringView, 8> meteogramHeadings = {u"TIME", u"KIND", u"WIND", u"VIS",
                                                                 u"WX",   u"CIG",  u"T/TD", u"QNH"};

/// What was observed, then what is forecast, each by its time.
std::vector<MeteogramRow> meteogramRows(const Meteogram& meteogram, const SettingsRecord& settings);

/// The same as lines of text, with a heading, or "NO REPORT"; lines end with CR LF.
QString meteogramText(const Meteogram& meteogram, const SettingsRecord& settings);

/// What the reports say of a time (UTC): the observation nearest to it where that is past and less than an
/// hour away, else the parts of the forecast that hold then, a line each. Empty where nothing is told.
QString noteAt(const Meteogram& meteogram, const QDateTime& time);

/// The name of a kind of slice as TAFs have it.
QString kindOf(const ForecastSlice& slice);

} // namespace soran
