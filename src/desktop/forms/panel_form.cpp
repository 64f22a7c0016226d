// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/forms/panel_form.h"

#include <QApplication>
#include <QMouseEvent>

namespace soran {

void PanelForm::mousePressEvent(QMouseEvent* event) {
  dragged_ = false;
  grip_ = event->globalPosition().toPoint() - pos();
}

void PanelForm::mouseMoveEvent(QMouseEvent* event) {
  if (!movable_ || !(event->buttons() & Qt::LeftButton))
    return;
  const QPoint target = event->globalPosition().toPoint() - grip_;
  if (dragged_ || (target - pos()).manhattanLength() >= QApplication::startDragDistance()) {
    dragged_ = true;
    move(target);
  }
}

void PanelForm::mouseReleaseEvent(QMouseEvent*) {
  if (!dragged_)
    close();
}

} // namespace soran
