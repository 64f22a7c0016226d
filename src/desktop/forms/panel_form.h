// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/services/platform_abilities.h"

#include <QDialog>

namespace soran {

/// A small window without buttons: a click anywhere closes it, and a drag with the left button moves it where
/// it may be moved and the platform lets it.
class PanelForm : public QDialog {
  Q_OBJECT
 public:
  PanelForm(QWidget* parent, bool movable)
      : QDialog(parent), movable_(movable && platformLetsPlaceWindows()) {}

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  bool movable_;
  bool dragged_ = false;
  QPoint grip_;
};

} // namespace soran
