// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "sun/sun_time_model.h"

#include <utility>

namespace soran {

SunTimeModel::SunTimeModel(QList<Airport> airports, QDate today)
    : airports_(std::move(airports)), today_(today), fields_(sunFieldList(airports_)),
      years_(sunYearList(today.year())) {}

SunTimeModel::Outcome SunTimeModel::select(const QString& field, int year) {
  field_ = field;
  table_ = sunTable(field, year, airports_);
  graph_ = sunGraph(table_);
  graphStale_ = true;
  if (table_.valid)
    return Outcome::Shown;
  return field == sunListSeparator ? Outcome::Cleared : Outcome::NoPosition;
}

bool SunTimeModel::showTab(Tab tab) {
  tab_ = tab;
  if (tab == Tab::Table) {
    graphStale_ = true;
    return false;
  }
  return std::exchange(graphStale_, false);
}

} // namespace soran
