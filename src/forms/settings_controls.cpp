// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/settings_controls.h"

#include "base/text.h"

namespace soran {

namespace {

// clang-format off
constexpr SettingsCheckBox checkBoxes[] = {
    {2, 0, u" 自動デコードを有効にする", SettingIndex::自動デコード有効},
    {9, 0, u" シーケンス検索、グループ検索およびコマンドライン入力時は自動デコードを停止する", SettingIndex::マニュアル入力時停止},
    {13, 0, u" 起動時にバージョンアップを確認する", SettingIndex::起動時にバージョン確認},
    {29, 0, u" プログラム更新時に確認メッセージを表示する", SettingIndex::更新確認メッセージ},
    {14, 0, u" 通信エラーが発生した場合にメッセージを表示する", SettingIndex::切断時メッセージ},
    {16, 0, u" 通信エラーが発生した場合にアラームを鳴らす", SettingIndex::切断時アラーム},
    {20, 0, u" データ更新終了時にメッセージを表示する", SettingIndex::更新終了時メッセージ},
    {17, 0, u" データ更新終了時にサウンドを鳴らす", SettingIndex::更新終了時アラーム},
    {31, 0, u" 気象状態が設定値を下回ったとき、悪化または回復したときにアラームを鳴らす", SettingIndex::条件アラーム},
    {27, 0, u" ヘルプの閲覧に SORAN ブラウザーを使用する", SettingIndex::ブラウザー},
    {3, 1, u" 特定の気象状態を着色して表示する", SettingIndex::計器気象状態を強調},
    {18, 1, u" CB / TCU を強調表示する", SettingIndex::CBTCUを強調},
    {6, 1, u" 設定-1", SettingIndex::条件1有効},
    {7, 1, u" 設定-2", SettingIndex::条件2有効},
    {8, 1, u" 設定-3", SettingIndex::条件3有効},
    {10, 1, u" 鉛直視程を含める", SettingIndex::鉛直視程1有効},
    {11, 1, u" 鉛直視程を含める", SettingIndex::鉛直視程2有効},
    {12, 1, u" 鉛直視程を含める", SettingIndex::鉛直視程3有効},
    {0, 2, u" 表示文字をボールド（太字）にする", SettingIndex::表示文字のボールド},
    {5, 2, u" 表示領域にスクロールバーを表示する", SettingIndex::スクロールバーを表示},
    {4, 2, u" データ更新時に前画面をクリアーする", SettingIndex::前画面クリアー},
    {24, 2, u" データ更新時に先頭行を表示する", SettingIndex::先頭行},
    {19, 2, u" ポップアップ メニューを表示する", SettingIndex::ポップアップ},
    {21, 2, u" 特別通報を着色表示する", SettingIndex::SPECI着色},
    {22, 2, u" 天気略語を着色表示する", SettingIndex::天気略語着色},
    {23, 2, u" LOCAL TIME を使用する", SettingIndex::LOCAL使用},
    {26, 2, u" スクラッチパッドを表示する", SettingIndex::PAD表示},
    {28, 2, u" METAR シーケンスを取得する", SettingIndex::シーケンス表示},
    {30, 2, u" 日本語翻訳に規約読みを使用する", SettingIndex::規約読み},
    {1, 3, u" 印刷文字をボールド（太字）にする", SettingIndex::印刷文字のボールド},
    {15, 3, u" データ更新の都度プリンターに自動出力する", SettingIndex::印刷更新時印刷},
    {25, 3, u" 印刷の都度プリンター選択ダイアログを表示する", SettingIndex::印刷時ダイアログ},
};

constexpr SettingsTextBox textBoxes[] = {
    {0, SettingIndex::雲高1}, {1, SettingIndex::視程1},
    {2, SettingIndex::雲高2}, {3, SettingIndex::視程2}, {4, SettingIndex::RVR2},
    {5, SettingIndex::雲高3}, {6, SettingIndex::視程3}, {7, SettingIndex::RVR3},
};

constexpr SettingsCombo combos[] = {
    {0, 2, SettingIndex::表示文字のフォント, false}, {1, 2, SettingIndex::表示文字のサイズ, true},
    {4, 2, SettingIndex::時差, false},               {9, 2, SettingIndex::シーケンス時間, true},
    {2, 3, SettingIndex::印刷文字のフォント, false}, {3, 3, SettingIndex::印刷文字のサイズ, true},
    {5, 3, SettingIndex::印刷開始時, false},         {6, 3, SettingIndex::印刷開始分, false},
    {7, 3, SettingIndex::印刷終了時, false},         {8, 3, SettingIndex::印刷終了分, false},
    {10, 0, SettingIndex::アラーム間隔, true},       {11, 0, SettingIndex::静音開始時, false},
    {12, 0, SettingIndex::静音終了時, false},
};

constexpr SettingsSwatch swatches[] = {
    {0, SettingIndex::表示領域の色}, {1, SettingIndex::表示文字の色},
    {2, SettingIndex::雲高1の色},    {19, SettingIndex::視程1の色},
    {25, SettingIndex::雲高2の色},   {13, SettingIndex::視程2の色},
    {29, SettingIndex::雲高3の色},   {28, SettingIndex::視程3の色},
    {48, SettingIndex::SPECIの色},   {49, SettingIndex::天気略語の色},
};
// clang-format on

QStringList numbers(int first, int last, QString (*text)(int)) {
  QStringList list;
  for (int number = first; number <= last; ++number)
    list.append(text(number));
  return list;
}

QString plain(int number) {
  return QString::number(number);
}

QString signedHours(int hours) {
  return hours > 0 ? u'+' + plain(hours) : plain(hours);
}

} // namespace

std::span<const SettingsCheckBox> settingsCheckBoxes() noexcept {
  return checkBoxes;
}
std::span<const SettingsTextBox> settingsTextBoxes() noexcept {
  return textBoxes;
}
std::span<const SettingsCombo> settingsCombos() noexcept {
  return combos;
}
std::span<const SettingsSwatch> settingsSwatches() noexcept {
  return swatches;
}

QStringList settingsComboItems(int index) {
  switch (index) {
  case 1:
  case 3:
    return numbers(1, 20, plain);
  case 4:
    return numbers(-12, 12, signedHours);
  case 5:
  case 7:
  case 11:
  case 12:
    return numbers(0, 23, twoDigits);
  case 6:
  case 8:
    return numbers(0, 59, twoDigits);
  case 9:
    return numbers(1, 23, plain);
  case 10:
    return numbers(0, 30, plain);
  default:
    return {};
  }
}

} // namespace soran
