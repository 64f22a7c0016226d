// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runs/printing.h"

#include "base/files.h"
#include "base/text.h"

#include <QDir>
#include <QFileInfo>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

int minutesOf(const std::optional<QString>& hour, const std::optional<QString>& minute) {
  return leadingInteger(hour.value_or(QString())) * 60 + leadingInteger(minute.value_or(QString()));
}

} // namespace

QString Printing::printScreen(Cause cause) {
  Console& console = program_.console;
  console.addLogEntry(u"PRINT COMMAND"_s);
  const QString kept = console.status().panel2();
  const bool automatic = cause == Cause::Cycle;
  const auto noted = [&](const QString& what) -> QString {
    return crlf + what + u' ' + timeText(program_.services.clock) + crlf;
  };
  const auto end = qScopeGuard([&] {
    if (!program_.services.shutdown.requested())
      console.setPanel(2, kept);
  });

  if (cause == Cause::User && program_.settings()[key::印刷時ダイアログ] == true && !approveByDialog()) {
    console.appendScreen(crlf + u"CANCEL PRINT");
    console.addLogEntry(u"CANCEL PRINT COMMAND"_s);
    return {};
  }
  const QString stored = program_.settings()[key::プリンター].value_or(QString());
  if (automatic) {
    if (const QString why = refusalOfAutomatic(); !why.isEmpty()) {
      console.addLogEntry(why);
      return noted(why);
    }
    console.setPanel(2, u"プリンター自動出力中"_s);
    program_.currentPrinter = stored;
  } else {
    console.addLogEntry(u"AUTO PRINT DATA SPOOL INTO " + stored);
    console.setPanel(2, u"プリンター出力中"_s);
  }
  const QString printer = chosenPrinter();
  if (printer.isEmpty() || !print(printer)) {
    console.addLogEntry(u"CANCEL PRINT COMMAND"_s);
    return {};
  }
  if (automatic) {
    console.addLogEntry(u"AUTO PRINT COMPLETED TO " + stored);
    return noted(u"AUTO PRINT COMPLETED"_s);
  }
  console.appendScreen(crlf + u"PRINT COMPLETED");
  console.addLogEntry(u"PRINT COMPLETED"_s);
  return {};
}

QString Printing::chosenPrinter() const {
  const QStringList installed = program_.services.printers.installed();
  if (installed.contains(program_.currentPrinter))
    return program_.currentPrinter;
  return installed.value(0);
}

bool Printing::approveByDialog() {
  const QStringList installed = program_.services.printers.installed();
  const QString stored = program_.settings()[key::プリンター].value_or(QString());
  const std::optional<QString> choice =
      program_.services.dialogs.choosePrinter(installed, stored == u"*" ? chosenPrinter() : stored);
  program_.services.shutdown.check();
  if (!choice || !installed.contains(*choice))
    return false;
  program_.currentPrinter = *choice;
  return true;
}

bool Printing::withinSchedule() const {
  const Settings& settings = program_.settings();
  if (settings[key::印刷時刻指定] != true)
    return true;
  const QTime now = program_.services.clock.now().time();
  const int present = now.hour() * 60 + now.minute();
  return present >= minutesOf(settings[key::印刷開始時], settings[key::印刷開始分]) &&
         present <= minutesOf(settings[key::印刷終了時], settings[key::印刷終了分]);
}

QString Printing::refusalOfAutomatic() const {
  if (!withinSchedule())
    return u"AUTO PRINT DISABLED / OUT OF PRINT SCHEDULE"_s;
  const QString stored = program_.settings()[key::プリンター].value_or(QString());
  if (!program_.services.printers.installed().contains(stored))
    return u"AUTO PRINT DISABLED / NOT FOUND PRINTER"_s;
  return {};
}

bool Printing::print(const QString& printer) {
  const Settings& settings = program_.settings();
  const Clock& clock = program_.services.clock;
  PrintJob job;
  job.printer = printer;
  job.font = settings[key::印刷文字のフォント].value_or(QString());
  job.size = settings[key::印刷文字のサイズ].value_or(job.size);
  job.bold = settings[key::印刷文字のボールド] == true;
  job.text = u"*** WEATHER OBSERVATION AND FORECASTS ***   SORAN "_s +
             settings.record().value(SettingIndex::SORANバージョン).toString() + u"   " + dateText(clock) +
             u"   " + timeText(clock) + crlf + program_.console.screen().text();
  return program_.services.printers.print(job);
}

void Printing::saveScreen() {
  Console& console = program_.console;
  console.addLogEntry(u"FILE SAVE COMMAND"_s);
  std::optional<QString> path = program_.services.dialogs.saveFile(u"テキスト形式で保存"_s, u"SORAN.txt"_s);
  program_.services.shutdown.check();
  if (!path || path->isEmpty())
    return cancelSave();
  // The name of a folder stays what it is, and is refused.
  if (!QFileInfo(*path).fileName().isEmpty() && QFileInfo(*path).suffix().isEmpty())
    *path += u".txt";
  const QString file = QDir(program_.services.directory).absoluteFilePath(*path);
  const bool isMeant = mayWriteOver(program_.services.dialogs, file);
  program_.services.shutdown.check();
  if (!isMeant)
    return cancelSave();
  const Clock& clock = program_.services.clock;
  const QString text = console.screen().text() + crlf + dateText(clock) + u' ' + timeText(clock) + crlf;
  if (const FileFault fault = replaceWhole(file, text.toUtf8(), false, Links::Followed);
      fault != FileFault::None) {
    program_.services.dialogs.message(u" 確認"_s, u"ファイルに書き出すことができませんでした　　\r\n\r\n" +
                                                      file + u"\r\n" + faultText(fault));
    program_.services.shutdown.check();
    return cancelSave();
  }
  console.appendScreen(crlf + u"FILE SAVE COMPLETED");
  console.addLogEntry(u"FILE SAVE COMPLETED"_s);
  console.setPromptGap(true);
  console.showReady();
  console.colourScreenText();
}

void Printing::cancelSave() {
  Console& console = program_.console;
  console.appendScreen(crlf + u"CANCEL FILE SAVE");
  console.setPromptGap(true);
  console.showReady();
  console.colourScreenText();
  console.addLogEntry(u"CANCEL FILE SAVE COMMAND"_s);
}

} // namespace soran
