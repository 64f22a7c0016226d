// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/colour.h"

#include <QFrame>

class QLabel;

namespace soran {

/// The banner `Frame1` with its text `Label1`, which stands over the middle of the window at start.
class StartBanner : public QFrame {
  Q_OBJECT
 public:
  explicit StartBanner(QWidget* parent);

  /// Shows the text, whose lines end with CR, and under it `mark` where that is not empty.
  void setContent(const QString& text, const QString& mark);
  void setColours(Colour ground, Colour text);

  /// Stands over the middle of its parent.
  void centre();

 private:
  QLabel* label_;
  QLabel* mark_;
};

} // namespace soran
