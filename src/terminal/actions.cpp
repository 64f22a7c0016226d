// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
// What several entries share: the typed commands, the toolbar and the menus.

#include "base/text.h"
#include "interpret/explain_selection.h"
#include "pipeline/cycle_files.h"
#include "terminal/picture_lookup.h"
#include "terminal/view.h"

namespace soran {

using namespace Qt::StringLiterals;

void View::startAutomaticDecode(Start start) {
  Console& console = program_.console;
  Settings& settings = program_.settings();
  console.setPromptGap(start == Start::ByButton);
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
    console.setPromptGap(start == Start::ByButton);
  }
  cycle_.startAutomatic();
}

void View::setMinimised(bool minimised) {
  if (program_.minimised == minimised)
    return;
  Forms& forms = program_.services.forms;
  program_.minimised = minimised;
  for (const QString& form : openForms_)
    minimised ? forms.hide(form) : forms.show(form);
  if (minimised)
    forms.show(u"taskicon"_s);
  else
    cycle_.startTrayTimer();
}

void View::showForm(const QString& name) {
  static const QStringList withWindow = {u"chart"_s, u"camera"_s, u"log"_s, u"command"_s};
  if (withWindow.contains(name) && !openForms_.contains(name))
    openForms_.append(name);
  program_.services.forms.show(name);
}

void View::showFormModal(const QString& name) {
  program_.watchTicks = 0;
  program_.services.forms.showModal(name);
  program_.services.shutdown.check();
  emit menus_.changed();
}

void View::editDictionary(DictionaryMode mode) {
  dictionaryMode_ = mode;
  showFormModal(u"weather"_s);
  dictionaryMode_ = DictionaryMode::Abbreviations;
}

void View::editSettings() {
  settingsClosed_.reset();
  cycle_.readBufferLevel();
  showFormModal(u"opton"_s);
  cycle_.readBufferLevel();
  program_.console.applyDisplaySettings();
  if (!settingsClosed_)
    return;
  program_.console.repaint();
  if (*settingsClosed_) {
    program_.services.inet2.cancel();
    refreshCycleFiles(program_);
  }
}

bool View::showAdobeNotice() {
  leftForDownload_ = false;
  showFormModal(u"adobeinfo"_s);
  return !leftForDownload_;
}

void View::answerAdobeNotice(AdobeNoticeAnswer answer) {
  const AdobeNoticeOutcome outcome = adobeNoticeOutcome(answer);
  if (outcome.storeSetting)
    program_.settings().store(key::アドビインフォメーション, true);
  leftForDownload_ = !outcome.showChart;
  if (outcome.openDownload)
    program_.services.pages.openExternally(adobe_notice::downloadPage.toString());
}

QString View::homePage() const {
  const QString& home = program_.services.endpoints.home;
  // A server knows its start page; a folder does not.
  return home + (home.startsWith(u"http") ? u"/"_s : u"/index.html"_s);
}

QString View::helpPage() const {
  return program_.services.endpoints.home + u"/help/help.html";
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
