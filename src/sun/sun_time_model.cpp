// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "sun/sun_time_model.h"

#include <utility>

namespace soran {

SunTimeModel::SunTimeModel(QList<Airport> airports, QDate today)
    : m_airports(std::move(airports)), m_today(today), m_fields(sunFieldList(m_airports)),
      m_years(sunYearList(today.year())) {}

SunTimeModel::Outcome SunTimeModel::select(const QString& field, int year) {
  m_field = field;
  m_table = sunTable(field, year, m_airports);
  m_graph = sunGraph(m_table);
  m_graphStale = true;
  if (m_table.valid)
    return Outcome::Shown;
  return field == sunListSeparator ? Outcome::Cleared : Outcome::NoPosition;
}

bool SunTimeModel::showTab(Tab tab) {
  m_tab = tab;
  if (tab == Tab::Table) {
    m_graphStale = true;
    return false;
  }
  return std::exchange(m_graphStale, false);
}

} // namespace soran
