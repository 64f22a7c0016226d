// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imagery/chart_catalogue.h"

#include <QDateTime>
#include <QString>
#include <QStringView>
#include <optional>

namespace soran {

/// A size in twips.
struct TwipSize {
  int width = 0;
  int height = 0;
  bool operator==(const TwipSize&) const = default;
};

/// What the window chart does to show an item.
struct ChartShow {
  ChartItem item;
  QString title;   ///< the window's title
  TwipSize view;   ///< the size of the view, also in a maximised window
  TwipSize window; ///< the size of the window, centred over the main window, where it is not maximised
  bool maximised = false;
  bool printable = true; ///< a PDF is not printed from here
};

/// The window chart without its window: what it shows, how large, and when it reloads.
class ChartModel {
 public:
  static constexpr QStringView closeCaption = u"閉じる";
  static constexpr QStringView printCaption = u"印刷";
  static constexpr QStringView chartCaption = u"天気図";

  /// `timeOffset` is the setting 時差 ("+9").
  ChartModel(TwipSize mainWindow, QString timeOffset);

  /// The first page, at the window's load at local time `now`.
  ChartShow open(const QDateTime& now);

  /// An item of the menu is chosen; nothing for one that the menu does not have.
  std::optional<ChartShow> choose(QStringView menu, std::optional<int> index, const QDateTime& now);

  /// A second has passed; true where the view is to be reloaded, every five minutes.
  bool tick();

  /// Whether the menu item for printing is enabled for what is shown.
  static bool printEnabled(const ChartShow& shown, bool anyPrinter) { return shown.printable && anyPrinter; }

 private:
  TwipSize mainWindow_;
  QString timeOffset_;
  TwipSize view_; // an item without a size keeps that of the item before
  int seconds_ = 0;
};

} // namespace soran
