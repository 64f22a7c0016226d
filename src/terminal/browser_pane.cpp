// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/browser_pane.h"

namespace soran {

using namespace Qt::StringLiterals;

void BrowserPane::openPage(const QString& address, MenuRule menus) {
  if (program_.settings()[key::ブラウザー] != true) {
    program_.services.pages.openExternally(address);
    return;
  }
  StatusBar& status = program_.console.status();
  if (!visible_)
    status.setPanel2(status.panel2());
  visible_ = true;
  menusTaken_ = menusTaken_ || menus == MenuRule::MakeWay;
  status.setPaneVisible(true);
  program_.services.pages.openInPane(address);
  listener_.onPaneChanged();
}

void BrowserPane::close() {
  if (!visible_)
    return;
  visible_ = false;
  menusTaken_ = false;
  program_.services.pages.closePane();
  StatusBar& status = program_.console.status();
  status.setPaneVisible(false);
  status.setPaneText(status.statusText());
  listener_.onPaneChanged();
}

void BrowserPane::pageState(Loading state) {
  if (!visible_)
    return;
  const QString texts[] = {u"取得中"_s, u"ページが表示されました"_s, u"ページを表示できません"_s};
  StatusBar& status = program_.console.status();
  const QString& text = texts[static_cast<int>(state)];
  if (status.panel2() != text)
    status.setPaneText(text);
}

QString BrowserPane::expandedAddress(const QString& before, const QString& typed) {
  const bool shortened = before.size() == typed.size() + 1 && before.startsWith(typed);
  return typed == u"h" && !shortened ? u"https://www."_s : typed;
}

} // namespace soran
