// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/shared_actions.h"

#include "base/text.h"
#include "imagery/adobe_notice.h"
#include "terminal/view.h"

namespace soran {

using namespace Qt::StringLiterals;

void echoPrompt(View& view) {
  Console& console = view.program().console;
  console.appendScreen(crlf.toString());
  console.showReady();
  console.colourScreenText();
}

void openListEditor(View& view, const QString& logLine, const ModalForm& form) {
  Console& console = view.program().console;
  echoPrompt(view);
  view.cycle().stopAutoOnManual();
  console.addLogEntry(logLine);
  console.setPad(QString());
  view.showModal(form);
}

void openAirportList(View& view) {
  openListEditor(view, u"DISPLAY AIRPORT LIST"_s, form::EditAirports{});
}
void openDecodeList(View& view) {
  openListEditor(view, u"DISPLAY AUTO DECODE LIST"_s, form::EditAutoList{});
}
void openGroupList(View& view) {
  openListEditor(view, u"DISPLAY GROUP LIST"_s, form::EditGroups{});
}

void openCharts(View& view) {
  Program& program = view.program();
  echoPrompt(view);
  if (program.settings()[key::アドビインフォメーション] == false) {
    program.console.addLogEntry(adobe_notice::statusNotice.toString());
    if (!view.showAdobeNotice()) {
      program.console.addLogEntry(adobe_notice::statusUnload.toString());
      view.close();
      return;
    }
  }
  program.console.addLogEntry(adobe_notice::statusChart.toString());
  program.console.setPad(QString());
  view.showForm(form::Charts{});
}

void openCameras(View& view) {
  echoPrompt(view);
  view.program().console.addLogEntry(u"DISPLAY NETWORK CAMERA"_s);
  view.program().console.setPad(QString());
  view.showForm(form::Cameras{});
}

void openRunningLog(View& view) {
  echoPrompt(view);
  view.program().console.addLogEntry(u"DISPLAY RUNNING LOG"_s);
  view.program().console.setPad(QString());
  view.showForm(form::Log{});
}

void openHelp(View& view) {
  echoPrompt(view);
  view.program().console.addLogEntry(u"DISPLAY ONLINE HELP"_s);
  view.pane().openPage(view.helpPage());
  view.program().console.setPad(QString());
}

} // namespace soran
