// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProxyStyle>

namespace soran {

/// Fusion with frames that stand out on a dark ground (3 to 1 or better for boxes that are ticked), lines in
/// menus that are seen there, air around the captions of buttons, and without the second, lighter writing
/// below grey ones, which blurs there.
class TerminalStyle : public QProxyStyle {
  Q_OBJECT
 public:
  TerminalStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                         const QWidget* widget) const override;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* more) const override;
};

} // namespace soran
