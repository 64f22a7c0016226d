// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/widgets/cell_delegate.h"

#include <QKeyEvent>
#include <QPainter>

namespace soran {

using namespace Qt::StringLiterals;

QWidget* CellDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex&) const {
  auto* field = new QLineEdit(parent);
  field_ = field;
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

void CellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
  QStyledItemDelegate::paint(painter, option, index);
  if (!(option.state & QStyle::State_HasFocus) || index.model()->columnCount() < 2)
    return;
  painter->save();
  painter->setPen(QPen(option.palette.color(QPalette::HighlightedText), 2));
  painter->drawRect(option.rect.adjusted(1, 1, -1, -1));
  painter->restore();
}

void CellDelegate::destroyEditor(QWidget* editor, const QModelIndex& index) const {
  if (editor == field_)
    field_ = nullptr;
  QStyledItemDelegate::destroyEditor(editor, index);
}

bool CellDelegate::leave() {
  return !keepsTyped || !field_ || enter(field_);
}

bool CellDelegate::eventFilter(QObject* watched, QEvent* event) {
  auto* field = qobject_cast<QLineEdit*>(watched);
  if (!field)
    return QStyledItemDelegate::eventFilter(watched, event);
  if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    const bool isTab = key == Qt::Key_Tab || key == Qt::Key_Backtab;
    if (key == Qt::Key_Return || key == Qt::Key_Enter || (isTab && keepsTyped)) {
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
  if (keepsTyped) {
    enter(field);
    return false;
  }
  emit closeEditor(field, NoHint);
  abandon();
  return false;
}

bool CellDelegate::enter(const QPointer<QLineEdit>& field) {
  asking_ = true;
  const bool done = commit(field->text());
  asking_ = false;
  if (!field)
    return done;
  if (done) {
    emit closeEditor(field, NoHint);
  } else {
    field->setFocus();
    field->selectAll();
  }
  return done;
}

} // namespace soran
