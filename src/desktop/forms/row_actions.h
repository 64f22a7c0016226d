// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAction>

class QAbstractItemView;
class QToolButton;

namespace soran {

/// The entries of the popup menu of a grid whose cells are edited: a new row, editing, deletion. Each has a
/// key while the grid has the focus.
class RowActions : public QObject {
  Q_OBJECT
 public:
  /// `grid` opens the menu and outlives the actions.
  explicit RowActions(QAbstractItemView& grid);

  /// Has three buttons stand for the entries.
  void showOn(QToolButton& addition, QToolButton& edit, QToolButton& removal);

  QAction& addition() { return addition_; }
  QAction& edit() { return edit_; }
  QAction& removal() { return removal_; }

 private:
  void make(QAction& action, const QString& name, const QString& text, const QKeySequence& key);

  QAbstractItemView& grid_;
  QAction addition_;
  QAction edit_;
  QAction removal_;
};

} // namespace soran
