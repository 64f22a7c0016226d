// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "imagery/chart_model.h"

#include <utility>

namespace soran {

ChartModel::ChartModel(TwipSize mainWindow, QString timeOffset)
    : m_mainWindow(mainWindow), m_timeOffset(std::move(timeOffset)), m_view(mainWindow) {}

ChartShow ChartModel::open(const QDateTime& now) {
  m_seconds = 0;
  return choose(u"menu_chart_today", firstChartIndex(now), now).value_or(ChartShow{});
}

std::optional<ChartShow> ChartModel::choose(QStringView menu, std::optional<int> index,
                                            const QDateTime& now) {
  const std::optional<ChartItem> item = findChartItem(menu, index);
  if (!item)
    return std::nullopt;
  const ChartView view = chartView(*item, now, m_timeOffset);
  ChartShow show;
  show.source = item->source;
  show.address = view.address;
  show.title = view.title;
  show.maximised = view.maximised;
  show.printable = !view.address.endsWith(u"pdf");

  constexpr int pdfMargin = 700;
  if (!show.printable)
    m_view = {m_mainWindow.width - pdfMargin, m_mainWindow.height - pdfMargin};
  else if (!view.maximised)
    m_view = {view.width, view.height};
  constexpr TwipSize frame{115, 695};
  show.view = m_view;
  show.window = {m_view.width + frame.width, m_view.height + frame.height};
  return show;
}

bool ChartModel::tick() {
  constexpr int refreshSeconds = 300;
  if (++m_seconds < refreshSeconds)
    return false;
  m_seconds = 0;
  return true;
}

} // namespace soran
