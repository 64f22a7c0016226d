// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStyledItemDelegate>

namespace soran {

/// Draws rows in the colours of their model, the chosen one too, as the worst airport is chosen first.
class ColouredRows final : public QStyledItemDelegate {
  Q_OBJECT
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    if (const QVariant colour = index.data(Qt::ForegroundRole); colour.isValid())
      option->palette.setColor(QPalette::HighlightedText, colour.value<QColor>());
  }
};

} // namespace soran
