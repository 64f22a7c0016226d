// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imagery/chart_issue.h"

#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringView>
#include <optional>

/// The catalogue of weather charts, maps and satellite images, as the menu of the window chart.
namespace soran {

/// An item of the menu, in menu order. A separator has no path.
struct ChartItem {
  QString menu;    ///< name of the item; items with an index share it
  int index = -1;  ///< as the item counts (from 1, AMeDAS from 0); -1 for an item alone
  QString caption; ///< menu text
  QString submenu; ///< name of the sub-menu that holds the item, empty for 天気図 itself
  QString source;  ///< key of the server
  QString path;    ///< path on the server; for charts with issue times the part ahead of date and time
  int width = 0;   ///< twips of the view; 0 for an item shown maximised
  int height = 0;
  IssueCycle cycle = IssueCycle::None;

  /// The name, with "." and the index where it has one.
  QString key() const { return index < 0 ? menu : menu + QLatin1Char('.') + QString::number(index); }
  bool isSeparator() const { return path.isEmpty(); }
  bool maximised() const { return width == 0; }
};

/// A sub-menu of the menu 天気図.
struct ChartSubmenu {
  QStringView name;
  QStringView caption;
  QStringView parent; ///< name of the sub-menu around it, empty for 天気図 itself
};

/// What the window shows for an item.
struct ChartView {
  QString address; ///< path on the server
  QString title;   ///< the window's title, with its leading blank
  int width = 0;   ///< twips of the view, 0 where maximised
  int height = 0;
  bool maximised = false;
  bool operator==(const ChartView&) const = default;
};

/// All items and separators in menu order.
QList<ChartItem> chartItems();

/// All sub-menus, each after the one around it.
QList<ChartSubmenu> chartSubmenus();

/// The item of a menu name and index, nothing where there is none and for a separator. An item alone is
/// found without an index or with 1.
std::optional<ChartItem> findChartItem(QStringView menu, std::optional<int> index);

/// What an item shows at local time `now`, `timeOffset` being the setting 時差 ("+9").
ChartView chartView(const ChartItem& item, const QDateTime& now, QStringView timeOffset);

/// The same for a menu name and index; nothing where findChartItem finds nothing.
std::optional<ChartView> chartView(QStringView menu, std::optional<int> index, const QDateTime& now,
                                   QStringView timeOffset);

/// The index of menu_chart_today that the window opens with: the day's summary before noon, else the night's.
int firstChartIndex(const QDateTime& now);

} // namespace soran
