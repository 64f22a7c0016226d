// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "sun/sun_table.h"

#include <QList>
#include <QString>
#include <QStringView>

/// The grid of the sun form and its printed page: 32 rows by 36 columns, row 0 and column 0 the headers.
/// Month m stands in columns 3m-2 (sunrise) and 3m-1 (sunset), column 3m is a narrow gap; row d is day d.
namespace soran {

inline constexpr int sunGridRows = 32;
inline constexpr int sunGridColumns = 36;

/// The width of a grid column in twips.
int sunGridWidth(int column);

/// The text of a grid cell, empty where nothing stands.
QString sunGridText(const SunTable& table, int row, int column);

/// One text of the printed page.
struct SunPrintText {
  int x = 0; ///< twips from the left
  int y = 0; ///< twips from the top
  QString text;
  int pointSize = 0;
  bool bold = false;
  bool operator==(const SunPrintText&) const = default;
};

inline constexpr QStringView sunPrintFont = u"ＭＳ Ｐゴシック";

/// The printed table, one A4 page in landscape: title, column headers, a rule of hyphens that the page's
/// right edge cuts, and the cells. `entry` is the chosen entry of the list.
QList<SunPrintText> sunPrintPage(const SunTable& table, QStringView entry);

} // namespace soran
