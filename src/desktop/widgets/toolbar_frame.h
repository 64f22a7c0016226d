// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "terminal/menus.h"

#include <QFrame>
#include <QToolButton>
#include <map>

class QBoxLayout;

namespace soran {

/// The strip `Frame` with the image buttons `img0` to `img17` and `img40`.
class ToolbarFrame : public QFrame {
  Q_OBJECT
 public:
  explicit ToolbarFrame(QWidget* parent = nullptr);

  /// Shows the buttons as they are told.
  void showButtons(const QList<ToolButton>& buttons);

  /// The button, null where there is none.
  QToolButton* button(int index) const;

 signals:
  /// The user pressed and released button `index`.
  void buttonPressed(int index);

 private:
  QToolButton* addButton(int index);
  static void showTip(QToolButton& button, const QString& tip);

  struct Place {
    QToolButton* button = nullptr;
    std::optional<bool> coloured = std::nullopt; // the face shown
  };

  QBoxLayout* strip_;
  std::map<int, QString> pictures_; // by index, without ending
  std::map<int, Place> places_;
  int iconSize_;
};

} // namespace soran
