// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/widgets/cell_delegate.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>

namespace soran {

using namespace Qt::StringLiterals;

QWidget* CellDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex&) const {
  auto* field = new QLineEdit(parent);
  field->setObjectName(u"txt"_s);
  field->setAccessibleName(u"編集欄"_s);
  field->setToolTip(tip);
  field->setFrame(false);
  connect(field, &QLineEdit::textEdited, field, [this, field](const QString& typed) {
    const QString text = held(typed);
    if (text == typed)
      return;
    const int place = field->cursorPosition();
    field->setText(text);
    field->setCursorPosition(place);
  });
  return field;
}

bool CellDelegate::eventFilter(QObject* watched, QEvent* event) {
  auto* field = qobject_cast<QLineEdit*>(watched);
  if (!field)
    return QStyledItemDelegate::eventFilter(watched, event);
  if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    const bool isTab = key == Qt::Key_Tab || key == Qt::Key_Backtab;
    if (key == Qt::Key_Return || key == Qt::Key_Enter || (isTab && commitsTab)) {
      enter(field);
      return true;
    }
    if (isTab || key == Qt::Key_Escape) {
      emit closeEditor(field, NoHint);
      abandon();
      return true;
    }
    return false;
  }
  // The message that refuses a text takes the focus as well.
  if (event->type() != QEvent::FocusOut || asking_)
    return asking_ ? false : QStyledItemDelegate::eventFilter(watched, event);
  const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
  if (reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason)
    return false;
  emit closeEditor(field, NoHint);
  abandon();
  return false;
}

void CellDelegate::enter(QWidget* widget) {
  const QPointer<QLineEdit> field = qobject_cast<QLineEdit*>(widget);
  asking_ = true;
  const bool done = commit(field->text());
  asking_ = false;
  if (!field)
    return;
  if (done) {
    emit closeEditor(field, NoHint);
  } else {
    field->setFocus();
    field->selectAll();
  }
}

} // namespace soran
