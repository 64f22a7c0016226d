// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/widgets/terminal_style.h"

#include <QPainter>
#include <QStyleOption>

namespace soran {

void TerminalStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                  const QWidget* widget) const {
  QProxyStyle::drawPrimitive(element, option, painter, widget);
  const bool box = element == PE_IndicatorCheckBox || element == PE_IndicatorItemViewItemCheck;
  if (!box && element != PE_IndicatorRadioButton)
    return;
  const auto group = option->state & State_Enabled ? QPalette::Active : QPalette::Disabled;
  const QRectF frame = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing, !box);
  painter->setPen(option->palette.color(group, QPalette::PlaceholderText));
  painter->setBrush(Qt::NoBrush);
  if (box)
    painter->drawRect(frame);
  else
    painter->drawEllipse(frame);
  painter->restore();
}

void TerminalStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                                const QWidget* widget) const {
  const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
  if (element != CE_MenuItem || !item || item->menuItemType != QStyleOptionMenuItem::Separator)
    return QProxyStyle::drawControl(element, option, painter, widget);
  painter->fillRect(item->rect, item->palette.window());
  const int y = item->rect.center().y();
  painter->setPen(item->palette.color(QPalette::Disabled, QPalette::WindowText));
  painter->drawLine(item->rect.left() + 4, y, item->rect.right() - 4, y);
}

QSize TerminalStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                                      const QWidget* widget) const {
  constexpr QSize air(14, 2);
  const QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
  return type == CT_PushButton ? size + air : size;
}

int TerminalStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                             QStyleHintReturn* more) const {
  // A long menu scrolls; columns beside one another would leave the screen.
  if (hint == SH_Menu_Scrollable)
    return 1;
  return hint == SH_EtchDisabledText ? 0 : QProxyStyle::styleHint(hint, option, widget, more);
}

} // namespace soran
