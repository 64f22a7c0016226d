// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/widgets/fit_to_screen.h"

#include <QLayout>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

namespace soran {

void fitToScreen(QDialog& dialog) {
  constexpr QSize frame(8, 40); // of the window manager
  QLayout* content = dialog.layout();
  if (!content)
    return;
  const QSize room = dialog.screen()->availableSize() - frame;
  const QSize least = content->totalMinimumSize();
  if (least.boundedTo(room) == least)
    return;
  content->setSizeConstraint(QLayout::SetDefaultConstraint);
  auto* inner = new QWidget;
  inner->setLayout(content);
  auto* area = new QScrollArea;
  area->setWidget(inner);
  area->setWidgetResizable(true);
  area->setFrameShape(QFrame::NoFrame);
  auto* outer = new QVBoxLayout(&dialog);
  outer->setContentsMargins(0, 0, 0, 0);
  outer->addWidget(area);
  dialog.setMinimumSize(0, 0);
  dialog.setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
  const int bar = area->verticalScrollBar()->sizeHint().width();
  dialog.resize((least + QSize(bar, bar)).boundedTo(room));
}

} // namespace soran
