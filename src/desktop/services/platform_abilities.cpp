// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/services/platform_abilities.h"

#include <QDialog>
#include <QGuiApplication>

namespace soran {

using namespace Qt::StringLiterals;

bool platformLetsPlaceWindows() {
  return !QGuiApplication::platformName().startsWith("wayland"_L1);
}

void floatAboveWindows(QDialog& form) {
  // Only what pops up from another window has a place of the program's choice under Wayland.
  const Qt::WindowType kind = platformLetsPlaceWindows() ? Qt::Tool : Qt::ToolTip;
  form.setWindowFlags(kind | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
  form.setAttribute(Qt::WA_ShowWithoutActivating);
}

} // namespace soran
