// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/data_exchange.h"

#include "base/files.h"
#include "forms/exchange.h"
#include "store/json_fields.h"
#include "terminal/view.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

void tell(View& view, const QString& text) {
  view.program().services.dialogs.message(u" 情報"_s, text);
  view.program().services.shutdown.check();
}

bool agreed(View& view, const QString& question) {
  const bool yes = view.program().services.dialogs.question(u" 確認"_s, question);
  view.program().services.shutdown.check();
  return yes;
}

QString absolute(View& view, const QString& path) {
  return QDir(view.program().services.directory).absoluteFilePath(path);
}

} // namespace

void exportUserData(View& view) {
  Program& program = view.program();
  program.console.addLogEntry(u"DATA EXPORT COMMAND"_s);
  const std::optional<QString> choice =
      program.services.dialogs.saveFile(u"データの書き出し"_s, u"SORAN.json"_s);
  program.services.shutdown.check();
  if (!choice || choice->isEmpty())
    return;
  const QString path = absolute(view, *choice);
  if (fileExists(path) &&
      !agreed(view, QFileInfo(path).fileName() + u" はすでに存在します  \r\r上書きしますか？　　"))
    return;
  if (!writeWhole(path, exportedData(program.tables), true)) {
    tell(view, u"ファイルに書き出すことができませんでした　　"_s);
    return;
  }
  program.console.addLogEntry(u"DATA EXPORT COMPLETED"_s);
  tell(view, u"データを書き出しました　　"_s);
}

void importUserData(View& view) {
  Program& program = view.program();
  program.console.addLogEntry(u"DATA IMPORT COMMAND"_s);
  const std::optional<QString> choice = program.services.dialogs.openFile(u"データの読み込み"_s);
  program.services.shutdown.check();
  if (!choice || choice->isEmpty())
    return;
  QFile file(absolute(view, *choice));
  if (!file.open(QIODevice::ReadOnly)) {
    tell(view, u"ファイルを開くことができませんでした　　"_s);
    return;
  }
  if (!agreed(view, u"現在のリストと設定を置き換えますか？　　"_s))
    return;
  try {
    importData(program.tables, file.readAll());
  } catch (const std::runtime_error& e) {
    program.console.addLogEntry(u"CANCEL DATA IMPORT COMMAND"_s);
    tell(view, u"読み込むことができないファイルです　　\r\n\r\n" + QString::fromUtf8(e.what()));
    return;
  }
  program.console.addLogEntry(u"DATA IMPORT COMPLETED"_s);
  view.cycle().readBufferLevel();
  program.console.applyDisplaySettings();
  program.console.colourScreenText();
  tell(view, u"データを読み込みました　　"_s);
}

} // namespace soran
