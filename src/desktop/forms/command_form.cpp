// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/forms/command_form.h"

#include "ui_command_form.h"

#include <QLabel>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

struct CommandRow {
  QStringView command;
  QStringView meaning;
};

constexpr CommandRow rows[] = {
    {u"ATO", u"自動デコードを開始"},
    {u"R___", u"ICAOコードを入力して METAR/TAF を取得"},
    {u"RL", u"最後に取得したデータを更新"},
    {u"PRINT または /P", u"画面を印刷"},
    {u"CLS", u"画面を消去"},
    {u"AP", u"飛行場リストを表示"},
    {u"DE", u"自動デコードリストを表示"},
    {u"GP", u"グループリストを表示"},
    {u"WX", u"天気図を表示"},
    {u"CAM", u"ウェブカメラを表示"},
    {u"AIS", u"AIS JAPAN を表示"},
    {u"SQ R____", u"METAR シーケンスを表示"},
    {u"SS R____", u"常用日出没時刻を計算"},
    {u"JP R____", u"METAR を日本語に翻訳"},
    {u"LOG", u"通信ログを表示"},
    {u"HELP", u"オンライン ヘルプを表示"},
    {u"RESET", u"データベースを初期化"},
    {u"EXIT", u"SORAN を終了"},
    {u"[ESC]キー", u"SORAN を終了"},
    {u"BOARD", u"監視ボードを表示"},
    {u"MAP", u"地図を表示"},
    {u"GRAPH R___", u"気象グラフを表示"},
    {u"LIMITS", u"空港別の制限値を表示"},
    {u"ETA R___ 1430", u"その時刻の予報を表示"},
    {u"LAST R___", u"最後に分かっている通報を表示"},
    {u"SIGMET", u"シグメットを一覧表示"},
    {u"ACK R___", u"アラームを確認"},
    {u"MUTE R___ 60", u"アラームを60分消音"},
    {u"SHIFT", u"当直記録を表示"},
};

} // namespace

CommandForm::CommandForm(QWidget* parent)
    : PanelForm(parent, false), ui_(std::make_unique<Ui::CommandForm>()) {
  ui_->setupUi(this);
  int index = 0;
  for (const CommandRow& row : rows) {
    int column = 0;
    for (const QStringView text : {row.command, row.meaning}) {
      auto* label = new QLabel(text.toString(), this);
      label->setTextFormat(Qt::PlainText);
      label->setObjectName(u"lbl%1_%2"_s.arg(index).arg(column));
      ui_->layout->addWidget(label, index, column++);
    }
    ++index;
  }
}

CommandForm::~CommandForm() = default;

} // namespace soran
