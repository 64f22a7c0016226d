// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/forms/row_actions.h"

#include <QAbstractItemView>
#include <QToolButton>

namespace soran {

using namespace Qt::StringLiterals;

RowActions::RowActions(QAbstractItemView& grid) : grid_(grid) {
  make(addition_, u"menu_new"_s, u"追加(&N)"_s, Qt::Key_Insert);
  make(edit_, u"menu_edit"_s, u"編集(&E)"_s, Qt::Key_F2);
  make(removal_, u"menu_del"_s, u"削除(&D)"_s, Qt::Key_Delete);
  grid.setContextMenuPolicy(Qt::ActionsContextMenu);
}

void RowActions::showOn(QToolButton& addition, QToolButton& edit, QToolButton& removal) {
  addition.setDefaultAction(&addition_);
  edit.setDefaultAction(&edit_);
  removal.setDefaultAction(&removal_);
  // Else a reader speaks the tip, which repeats the name.
  for (QToolButton* button : {&addition, &edit, &removal})
    button->setAccessibleDescription(button->defaultAction()->shortcut().toString(QKeySequence::NativeText));
}

void RowActions::make(QAction& action, const QString& name, const QString& text, const QKeySequence& key) {
  action.setObjectName(name);
  action.setText(text);
  // A button shows this, and answers to its letter.
  action.setIconText(text);
  action.setShortcut(key);
  // The field over an open cell has these keys for itself.
  action.setShortcutContext(Qt::WidgetShortcut);
  grid_.addAction(&action);
}

} // namespace soran
