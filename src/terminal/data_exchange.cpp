// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/data_exchange.h"

#include "base/files.h"
#include "base/foreign_text.h"
#include "forms/exchange.h"
#include "store/json_fields.h"
#include "terminal/terminal.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

void tell(Terminal& terminal, const QString& text) {
  terminal.program().services.dialogs.message(u" 情報"_s, text);
  terminal.program().services.shutdown.check();
}

bool agreed(Terminal& terminal, const QString& question) {
  const bool yes = terminal.program().services.dialogs.question(u" 確認"_s, question);
  terminal.program().services.shutdown.check();
  return yes;
}

QString absolute(Terminal& terminal, const QString& path) {
  return QDir(terminal.program().services.directory).absoluteFilePath(path);
}

} // namespace

void exportUserData(Terminal& terminal) {
  Program& program = terminal.program();
  program.console.addLogEntry(u"DATA EXPORT COMMAND"_s);
  const std::optional<QString> choice =
      program.services.dialogs.saveFile(u"データの書き出し"_s, u"SORAN.json"_s);
  program.services.shutdown.check();
  if (!choice || choice->isEmpty())
    return;
  const QString path = absolute(terminal, *choice);
  const bool isMeant = mayWriteOver(program.services.dialogs, path);
  program.services.shutdown.check();
  if (!isMeant)
    return;
  if (const FileFault fault = replaceWhole(path, exportedData(program.tables), true, Links::Followed);
      fault != FileFault::None) {
    tell(terminal,
         u"ファイルに書き出すことができませんでした　　\r\n\r\n" + path + u"\r\n" + faultText(fault));
    return;
  }
  program.console.addLogEntry(u"DATA EXPORT COMPLETED"_s);
  tell(terminal, u"データを書き出しました　　"_s);
}

void importUserData(Terminal& terminal) {
  Program& program = terminal.program();
  program.console.addLogEntry(u"DATA IMPORT COMMAND"_s);
  const std::optional<QString> choice = program.services.dialogs.openFile(u"データの読み込み"_s);
  program.services.shutdown.check();
  if (!choice || choice->isEmpty())
    return;
  const QString path = absolute(terminal, *choice);
  if (const FileFault fault = readPlainFile(path, largestListFile, Links::Followed).fault;
      fault != FileFault::None) {
    tell(terminal, u"ファイルを開くことができませんでした　　\r\n\r\n" + path + u"\r\n" +
                       faultText(fault, largestListFile));
    return;
  }
  if (!agreed(terminal, u"現在のリストと設定を置き換えますか？　　"_s))
    return;
  try {
    importFile(program.tables, path);
  } catch (const std::runtime_error& e) {
    program.console.addLogEntry(u"CANCEL DATA IMPORT COMMAND"_s);
    tell(terminal, u"読み込むことができないファイルです　　\r\n\r\n" + cleaned(QString::fromUtf8(e.what())));
    return;
  }
  program.console.addLogEntry(u"DATA IMPORT COMPLETED"_s);
  terminal.cycle().readBufferLevel();
  program.console.applyDisplaySettings();
  program.console.colourScreenText();
  tell(terminal, u"データを読み込みました　　"_s);
}

} // namespace soran
