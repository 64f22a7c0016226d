// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "sun/sun_graph.h"
#include "sun/sun_grid.h"
#include "sun/sun_table.h"

#include <QDate>
#include <QList>
#include <QString>
#include <QStringList>

namespace soran {

/// The form suntime without its window: two lists, the table on one tab, the graph on the other, printing.
class SunTimeModel {
 public:
  enum class Tab { Table, Graph };

  /// What a selection came to.
  enum class Outcome {
    Shown,      ///< table, graph and labels are filled
    Cleared,    ///< the separator was chosen: everything is empty
    NoPosition, ///< everything is empty, and the message `notFoundText` is due
  };

  /// A cell of the grid, row and column counted from 0 with the headers.
  struct Cell {
    int row = 0;
    int column = 0;
    bool operator==(const Cell&) const = default;
  };

  static constexpr QStringView caption = u" 空港別 日出没時刻";
  static constexpr QStringView notFoundTitle = u" 確認";
  static constexpr QStringView notFoundText = u"飛行場の座標情報が見つかりません　　";

  /// `airports` are the rows of 飛行場情報 in table order, `today` the computer's date.
  SunTimeModel(QList<Airport> airports, QDate today);

  const QStringList& fields() const { return fields_; }
  const QList<int>& years() const { return years_; }

  /// Either list has changed: computes table and graph anew.
  Outcome select(const QString& field, int year);

  const SunTable& table() const { return table_; }
  const SunGraph& graph() const { return graph_; }
  bool printEnabled() const { return table_.valid; }

  /// The line on the table that marks today is shown for the current year only.
  bool todayLineShown() const { return table_.valid && table_.year == today_.year(); }

  /// The cell that the table tab brings into view: sunrise of today's day and month.
  Cell todayCell() const { return {today_.day(), (today_.month() - 1) * 3 + 1}; }

  /// Brings a tab to the front; true where the graph is to be drawn anew.
  bool showTab(Tab tab);

  /// The frames around the months belong to the table.
  bool monthFramesShown() const { return tab_ == Tab::Table; }

  /// The table's printed page.
  QList<SunPrintText> printPage() const { return sunPrintPage(table_, field_); }

 private:
  QList<Airport> airports_;
  QDate today_;
  QStringList fields_;
  QList<int> years_;
  QString field_;
  SunTable table_;
  SunGraph graph_;
  Tab tab_ = Tab::Table;
  bool graphStale_ = false;
};

} // namespace soran
