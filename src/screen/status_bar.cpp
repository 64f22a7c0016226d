// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "screen/status_bar.h"

namespace soran {

void StatusBar::setPanel1(const QString& text) {
  panel1_ = text;
  emit changed();
}

void StatusBar::setPanel2(const QString& text) {
  statusText_ = text;
  if (!paneVisible_)
    setPaneText(text);
}

void StatusBar::setPaneText(const QString& text) {
  panel2_ = text;
  emit changed();
}

} // namespace soran
