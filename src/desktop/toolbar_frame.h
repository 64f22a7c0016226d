// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFrame>
#include <QToolButton>
#include <map>

class QBoxLayout;

namespace soran {

/// The strip `Frame` with the image buttons `img0` to `img17`. Which there are, their texts and what they
/// do is told by those who fill it.
class ToolbarFrame : public QFrame {
  Q_OBJECT
 public:
  explicit ToolbarFrame(QWidget* parent = nullptr);

  /// Adds button `index` at the end of the strip, with the plain picture and the coloured one (18 above) for
  /// the time under the mouse.
  QToolButton* addButton(int index, const QString& hoverText);

  /// The button, null where there is none.
  QToolButton* button(int index) const;

 signals:
  /// The user pressed and released button `index`.
  void buttonPressed(int index);

 private:
  QBoxLayout* strip_;
  std::map<int, QToolButton*> buttons_;
};

} // namespace soran
