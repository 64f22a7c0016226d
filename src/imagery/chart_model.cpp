// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "imagery/chart_model.h"

#include <utility>

namespace soran {

ChartModel::ChartModel(TwipSize mainWindow, QString timeOffset)
    : mainWindow_(mainWindow), timeOffset_(std::move(timeOffset)), view_(mainWindow) {}

ChartShow ChartModel::open(const QDateTime& now) {
  return choose(u"menu_chart_today", firstChartIndex(now), now).value_or(ChartShow{});
}

std::optional<ChartShow> ChartModel::choose(QStringView menu, std::optional<int> index,
                                            const QDateTime& now) {
  const std::optional<ChartItem> item = findChartItem(menu, index);
  if (!item)
    return std::nullopt;
  seconds_ = 0;
  const ChartView view = chartView(*item, now, timeOffset_);
  ChartShow show;
  show.item = *item;
  show.title = view.title;
  show.maximised = view.maximised;
  show.printable = !view.address.endsWith(u"pdf");

  constexpr int pdfMargin = 700;
  if (!show.printable)
    view_ = {mainWindow_.width - pdfMargin, mainWindow_.height - pdfMargin};
  else if (!view.maximised)
    view_ = {view.width, view.height};
  constexpr TwipSize frame{115, 695};
  show.view = view_;
  show.window = {view_.width + frame.width, view_.height + frame.height};
  return show;
}

bool ChartModel::tick() {
  constexpr int refreshSeconds = 300;
  if (++seconds_ < refreshSeconds)
    return false;
  seconds_ = 0;
  return true;
}

} // namespace soran
