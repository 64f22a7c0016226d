// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/forms/sun_table_model.h"

#include <QColor>

namespace soran {

namespace {

constexpr QRgb gapColour = 0xFF39424A;
constexpr QRgb todayLine = 0xFF16303D;
constexpr QRgb todayMark = 0xFF1F4E66;
constexpr QRgb sunriseInk = 0xFFFFB4A0;
constexpr QRgb sunsetInk = 0xFF9CCBFF;

bool isGap(int column) {
  return column % 3 == 0;
}

} // namespace

void SunTableModel::renew() {
  beginResetModel();
  endResetModel();
}

QModelIndex SunTableModel::today() const {
  const SunTimeModel::Cell cell = model_.todayCell();
  return index(cell.row - 1, cell.column - 1);
}

int SunTableModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : sunGridRows - 1;
}

int SunTableModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : sunGridColumns - 1;
}

QVariant SunTableModel::data(const QModelIndex& index, int role) const {
  const int row = index.row() + 1;
  const int column = index.column() + 1;
  if (role == Qt::DisplayRole)
    return sunGridText(model_.table(), row, column);
  if (role == Qt::TextAlignmentRole)
    return static_cast<int>(Qt::AlignCenter);
  if (role == Qt::ForegroundRole)
    return QColor(column % 3 == 1 ? sunriseInk : sunsetInk);
  if (role != Qt::BackgroundRole)
    return {};
  if (isGap(column))
    return QColor(gapColour);
  const SunTimeModel::Cell today = model_.todayCell();
  if (!model_.todayLineShown() || row != today.row)
    return {};
  return QColor(column == today.column || column == today.column + 1 ? todayMark : todayLine);
}

QVariant SunTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role == Qt::TextAlignmentRole)
    return static_cast<int>(orientation == Qt::Horizontal ? Qt::AlignLeft | Qt::AlignVCenter
                                                          : Qt::AlignCenter);
  if (role != Qt::DisplayRole)
    return {};
  return orientation == Qt::Horizontal ? sunGridText(model_.table(), 0, section + 1)
                                       : sunGridText(model_.table(), section + 1, 0);
}

} // namespace soran
