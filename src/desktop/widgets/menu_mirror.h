// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "terminal/menus.h"

#include <QMenu>
#include <QMenuBar>
#include <map>
#include <utility>

namespace soran {

/// Shows the terminal's menus on a menu bar, and its popup menu in a menu.
class MenuMirror : public QObject {
  Q_OBJECT
 public:
  MenuMirror(QMenuBar& bar, QMenu& popup) : bar_(bar), popup_(popup) {}

  /// Shows the entries as they are told.
  void showItems(const QList<MenuItem>& items);

 signals:
  /// The user chose an entry; `index` counts entries made from rows from 1 and is 0 for an entry alone.
  void chosen(const QString& name, int index);

 private:
  using Key = std::pair<QString, int>;

  bool isSameStructure(const QList<MenuItem>& items) const;
  void build(const QList<MenuItem>& items);
  QAction* add(const MenuItem& item);
  QAction* addMenu(const MenuItem& item);
  static QString captionOf(const MenuItem& item);

  QMenuBar& bar_;
  QMenu& popup_;
  std::map<Key, QAction*> actions_;
  std::map<QString, QMenu*> menus_;
};

} // namespace soran
