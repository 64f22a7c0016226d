// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
// What several entries share: the typed commands, the toolbar and the menus.

#include "base/text.h"
#include "imagery/adobe_notice.h"
#include "reports/explain_selection.h"
#include "runs/cycle_files.h"
#include "terminal/picture_lookup.h"
#include "terminal/view.h"

#include <algorithm>

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
  for (const Form& form : openForms_)
    minimised ? forms.hide(form) : forms.show(form);
  if (minimised) {
    // A window that was back for less than the second would have no way back without its icon.
    cycle_.stopTrayTimer();
    forms.show(form::TaskIcon{program_.networkAvailable});
  } else {
    cycle_.startTrayTimer();
  }
}

void View::showForm(const Form& form) {
  const bool goesWithWindow =
      std::holds_alternative<form::Charts>(form) || std::holds_alternative<form::Cameras>(form) ||
      std::holds_alternative<form::Log>(form) || std::holds_alternative<form::Commands>(form);
  if (goesWithWindow && !isOpen(form))
    openForms_.push_back(form);
  program_.services.forms.show(form);
}

bool View::isOpen(const Form& form) const {
  return std::ranges::count(openForms_, form.index(), &Form::index) > 0;
}

void View::formClosed(const Form& form) {
  std::erase_if(openForms_, [&form](const Form& open) { return open.index() == form.index(); });
}

ModalOutcome View::showModal(const ModalForm& form) {
  program_.watchTicks = 0;
  const ModalOutcome outcome = program_.services.forms.showModal(form);
  program_.services.shutdown.check();
  emit menus_.changed();
  return outcome;
}

void View::editDictionary(DictionaryMode mode) {
  showModal(form::EditDictionary{mode});
}

void View::editSettings() {
  cycle_.readBufferLevel();
  const ModalOutcome outcome = showModal(form::EditSettings{});
  cycle_.readBufferLevel();
  program_.console.applyDisplaySettings();
  const auto* closed = std::get_if<form::EditSettings::Outcome>(&outcome);
  if (!closed)
    return;
  program_.console.repaint();
  if (closed->hoursChanged) {
    program_.services.inet2.cancel();
    refreshCycleFiles(program_);
  }
}

bool View::showAdobeNotice() {
  const ModalOutcome outcome = showModal(form::PdfNotice{});
  const auto* answer = std::get_if<form::PdfNotice::Outcome>(&outcome);
  if (!answer)
    return true;
  if (answer->dontShowAgain)
    program_.settings().store(key::アドビインフォメーション, true);
  if (answer->banner)
    program_.services.pages.openExternally(adobe_notice::downloadPage.toString());
  return !answer->banner;
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

QString View::explainSelection(qsizetype start, qsizetype length) {
  const std::optional<Explanation> tip =
      ExplainSelection(program_.console.screen().text(), start, length, program_.services.clock.now().date(),
                       program_.record(), program_.dictionaries());
  if (!tip || tip->text.isEmpty())
    return {};
  program_.services.forms.show(form::Tip{tip->text});
  showPictureOf(program_, tip->picture);
  return tip->text;
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
