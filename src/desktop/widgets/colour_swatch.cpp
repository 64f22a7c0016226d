// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/widgets/colour_swatch.h"

#include "desktop/widgets/look.h"

#include <QPainter>

namespace soran {

ColourSwatch::ColourSwatch(QWidget* parent) : QAbstractButton(parent) {
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
  setCursor(Qt::PointingHandCursor);
}

void ColourSwatch::setColour(Colour colour) {
  colour_ = colour;
  setAccessibleDescription(toQColor(colour).name());
  update();
}

QSize ColourSwatch::sizeHint() const {
  const QFontMetrics metrics = fontMetrics();
  return {metrics.horizontalAdvance(u'0') * 6, metrics.height() * 3 / 2};
}

void ColourSwatch::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QRect frame = rect().adjusted(0, 0, -1, -1);
  painter.fillRect(frame, toQColor(colour_));
  painter.setPen(palette().color(hasFocus() ? QPalette::Link : QPalette::Light));
  painter.drawRect(frame);
  if (hasFocus())
    painter.drawRect(frame.adjusted(1, 1, -1, -1));
}

} // namespace soran
