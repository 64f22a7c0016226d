// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "screen/console.h"

#include "base/text.h"
#include "reports/colouring.h"

namespace soran {

using namespace Qt::StringLiterals;

void Console::setInput(const QString& text) {
  inputlbl_ = text;
  setPad(text);
}

void Console::setPad(const QString& text) {
  padlbl_ = text;
  emit inputChanged();
}

void Console::setPanel(int panel, const QString& text) {
  if (panel == 1)
    status_.setPanel1(text);
  else
    status_.setPanel2(text);
}

void Console::showReady() {
  appendScreen(crlf + u"READY / PRESS ESC TO EXIT" + (promptGap_ ? crlf : QStringView()));
  caretToEnd();
  promptGap_ = false;
  setBusy(false);
  if (sequencePending_ && !screen_.text().contains(u"LOADING"))
    setPanel(2, status_.panelSavedText());
}

void Console::repaint() {
  screen_.setRuns(colourRuns(screen_.text(), settings_.record(), recentCodes, groupName, screen_.runs()));
}

void Console::colourScreenText() {
  repaint();
  inputlbl_.clear();
  caretToEnd();
  setPad(QString());
}

void Console::applyDisplaySettings() {
  screen_.setBase(settings_[key::表示文字の色].value_or(white), settings_[key::表示文字のボールド] == true);
  caretToEnd();
  emit displaySettingsApplied();
}

void Console::setBusy(bool busy) {
  if (busy_ == busy)
    return;
  busy_ = busy;
  emit busyChanged();
}

void Console::setOverlay(bool visible) {
  if (overlay_ == visible)
    return;
  overlay_ = visible;
  emit overlayChanged();
}

} // namespace soran
