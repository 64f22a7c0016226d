// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/colour.h"

#include <QAbstractButton>

namespace soran {

/// A field that shows a colour and asks for another one when it is pressed.
class ColourSwatch : public QAbstractButton {
  Q_OBJECT
 public:
  explicit ColourSwatch(QWidget* parent = nullptr);

  Colour colour() const { return colour_; }
  void setColour(Colour colour);

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Colour colour_ = black;
};

} // namespace soran
