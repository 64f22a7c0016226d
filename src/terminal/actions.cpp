// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
// What several entries share: the typed commands, the toolbar and the menus.

#include "base/text.h"
#include "interpret/explain_selection.h"
#include "terminal/picture_lookup.h"
#include "terminal/view.h"

namespace soran {

using namespace Qt::StringLiterals;

void View::startAutomaticDecode() {
  Console& console = program_.console;
  Settings& settings = program_.settings();
  if (program_.tables.autoList().recordCount() == 0) {
    console.appendScreen(crlf + u"NO AIRPORT FOUND IN AUTO DECODE LIST" + crlf);
    console.showReady();
    console.addLogEntry(u"NO AIRPORT FOUND IN AUTO DECODE LIST"_s);
    return;
  }
  if (settings[key::自動デコード有効] == false) {
    console.appendScreen(crlf + u"AUTO DECODE SEQUENCE DISABLED" + crlf);
    console.showReady();
    const bool yes = program_.services.dialogs.question(
        u" 確認"_s, u"自動デコードが無効になっています　　\r\r有効にしますか？"_s);
    program_.services.shutdown.check();
    if (!yes)
      return;
    console.addLogEntry(u"SYSTEM INITIALIZED"_s);
    console.screen().setText(u"SYSTEM INITIALIZED"_s);
    console.caretToEnd();
    console.setPanel(2, u"システム初期化中"_s);
    settings.store(key::自動デコード有効, true);
  }
  cycle_.startAutomatic();
}

void View::setMinimised(bool minimised) {
  program_.minimised = minimised;
  if (minimised)
    program_.services.forms.show(u"taskicon"_s);
  else
    cycle_.startTrayTimer();
}

void View::clearScreen() {
  Console& console = program_.console;
  console.screen().setText(u" "_s);
  console.staging.clear();
  console.showReady();
  console.addLogEntry(u"CLS COMMAND"_s);
}

void View::explainSelection(qsizetype start, qsizetype length) {
  const std::optional<Explanation> tip =
      ExplainSelection(program_.console.screen().text(), start, length, program_.services.clock.now().date(),
                       program_.record(), program_.dictionaries());
  tipText_ = tip ? tip->text : QString();
  if (tipText_.isEmpty())
    return;
  program_.services.forms.show(u"tooltips"_s);
  showPictureOf(program_, tip->picture);
}

void View::showAis() {
  if (!program_.networkAvailable) {
    noInternetAlert();
    program_.console.addLogEntry(u"SYSTEM NO NETWORK CONNECTION"_s);
    return;
  }
  program_.console.addLogEntry(u"DISPLAY AIS-JAPAN"_s);
  pane_.openPage(program_.services.endpoints.others.value(u"ais"_s));
}

} // namespace soran
