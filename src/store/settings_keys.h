// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/colour.h"

#include <QString>
#include <array>
#include <string_view>
#include <type_traits>

// moc reads ASCII identifiers only.
#ifndef Q_MOC_RUN

namespace soran {

/// The stored form of a column of the table 設定.
enum class SettingType {
  YesNo,   ///< boolean, true stored as -1
  Integer, ///< 16-bit signed
  Rgb,     ///< 0x00BBGGRR
  Text,    ///< string
  Version, ///< decimal version number, stored as text or number
  Date,    ///< date as text, yyyy/MM/dd
};

/// How the operation that restores the standard values treats a key.
enum class Standard {
  Fixed,          ///< written with the value in the list
  ComputerOffset, ///< written with the computer's offset from UTC
  Kept,           ///< not touched
};

// The one list of all settings: type, column name, treatment, standard value. The order is the order in which
// the standard values are written; it is also the column order of the table.
// clang-format off
#define SORAN_SETTINGS(X)                                                                   \
  X(YesNo,   アドビインフォメーション, Fixed, false)                                        \
  X(YesNo,   起動時にバージョン確認,   Fixed, true)                                         \
  X(YesNo,   更新確認メッセージ,       Fixed, false)                                        \
  X(YesNo,   自動デコード有効,         Fixed, true)                                         \
  X(YesNo,   マニュアル入力時停止,     Fixed, false)                                        \
  X(YesNo,   切断時メッセージ,         Fixed, true)                                         \
  X(YesNo,   切断時アラーム,           Fixed, true)                                         \
  X(YesNo,   更新終了時メッセージ,     Fixed, true)                                         \
  X(YesNo,   更新終了時アラーム,       Fixed, true)                                         \
  X(Integer, バッファ,                 Fixed, 10)                                           \
  X(Integer, 起動回数,                 Fixed, 0)                                            \
  X(YesNo,   天気略語着色,             Fixed, true)                                         \
  X(Rgb,     天気略語の色,             Fixed, 65280)                                        \
  X(YesNo,   SPECI着色,                Fixed, true)                                         \
  X(Rgb,     SPECIの色,                Fixed, 8388863)                                      \
  X(YesNo,   LOCAL使用,                Fixed, true)                                         \
  X(Text,    時差,                     ComputerOffset, u"")                                 \
  X(YesNo,   計器気象状態を強調,       Fixed, true)                                         \
  X(YesNo,   CBTCUを強調,              Fixed, true)                                         \
  X(YesNo,   条件1有効,                Fixed, true)                                         \
  X(Integer, 雲高1,                    Fixed, 1000)                                         \
  X(YesNo,   鉛直視程1有効,            Fixed, true)                                         \
  X(Integer, 視程1,                    Fixed, 5000)                                         \
  X(Integer, RVR1,                     Kept,  0)                                            \
  X(Rgb,     雲高1の色,                Fixed, 65535)                                        \
  X(Rgb,     視程1の色,                Fixed, 65535)                                        \
  X(YesNo,   条件2有効,                Fixed, true)                                         \
  X(Integer, 雲高2,                    Fixed, 200)                                          \
  X(YesNo,   鉛直視程2有効,            Fixed, true)                                         \
  X(Integer, 視程2,                    Fixed, 1600)                                         \
  X(Integer, RVR2,                     Fixed, 1600)                                         \
  X(Rgb,     雲高2の色,                Fixed, 33023)                                        \
  X(Rgb,     視程2の色,                Fixed, 33023)                                        \
  X(YesNo,   条件3有効,                Fixed, true)                                         \
  X(Integer, 雲高3,                    Fixed, 200)                                          \
  X(YesNo,   鉛直視程3有効,            Fixed, true)                                         \
  X(Integer, 視程3,                    Fixed, 800)                                          \
  X(Integer, RVR3,                     Fixed, 550)                                          \
  X(Rgb,     雲高3の色,                Fixed, 255)                                          \
  X(Rgb,     視程3の色,                Fixed, 255)                                          \
  X(Rgb,     表示領域の色,             Fixed, 0)                                            \
  X(Rgb,     表示文字の色,             Fixed, 16777215)                                     \
  X(Text,    表示文字のフォント,       Fixed, u"ＭＳ ゴシック")                             \
  X(Integer, 表示文字のサイズ,         Fixed, 11)                                           \
  X(YesNo,   表示文字のボールド,       Fixed, false)                                        \
  X(YesNo,   スクロールバーを表示,     Fixed, false)                                        \
  X(YesNo,   前画面クリアー,           Fixed, true)                                         \
  X(YesNo,   先頭行,                   Fixed, false)                                        \
  X(YesNo,   ポップアップ,             Fixed, true)                                         \
  X(Text,    印刷文字のフォント,       Fixed, u"ＭＳ ゴシック")                             \
  X(Integer, 印刷文字のサイズ,         Fixed, 11)                                           \
  X(YesNo,   印刷文字のボールド,       Fixed, false)                                        \
  X(YesNo,   印刷更新時印刷,           Fixed, false)                                        \
  X(YesNo,   印刷時刻指定,             Fixed, false)                                        \
  X(Text,    印刷開始時,               Fixed, u"00")                                        \
  X(Text,    印刷開始分,               Fixed, u"00")                                        \
  X(Text,    印刷終了時,               Fixed, u"23")                                        \
  X(Text,    印刷終了分,               Fixed, u"59")                                        \
  X(YesNo,   印刷時ダイアログ,         Fixed, true)                                         \
  X(Text,    プリンター,               Fixed, u"*")                                         \
  X(YesNo,   PAD表示,                  Fixed, true)                                         \
  X(YesNo,   ブラウザー,               Fixed, true)                                         \
  X(YesNo,   コマンドボタン,           Fixed, true)                                         \
  X(YesNo,   シーケンス表示,           Fixed, true)                                         \
  X(Integer, シーケンス時間,           Fixed, 3)                                            \
  X(Text,    BASEurl,                  Kept,  u"")                                          \
  X(Version, SORANバージョン,          Kept,  0)                                            \
  X(Date,    SORAN更新日,              Kept,  u"")                                          \
  X(Version, UPDATEバージョン,         Kept,  0)                                            \
  X(Date,    UPDATE更新日,             Kept,  u"")                                          \
  X(Version, DBバージョン,             Kept,  0)                                            \
  X(Date,    DB更新日,                 Kept,  u"")                                          \
  X(YesNo,   規約読み,                 Fixed, true)                                         \
  X(YesNo,   条件アラーム,             Fixed, false)                                        \
  X(Integer, アラーム間隔,             Fixed, 5)                                            \
  X(Text,    静音開始時,               Fixed, u"00")                                        \
  X(Text,    静音終了時,               Fixed, u"00")
// clang-format on

/// The C++ type of a stored form. A version is read as a number.
template <SettingType type>
using SettingValue = std::conditional_t<
    type == SettingType::YesNo, bool,
    std::conditional_t<
        type == SettingType::Integer, int,
        std::conditional_t<type == SettingType::Rgb, Colour,
                           std::conditional_t<type == SettingType::Version, double, QString>>>>;

/// The place of a setting in the list.
enum class SettingIndex : int {
#define SORAN_SETTING_INDEX(type, name, treatment, value) name,
  SORAN_SETTINGS(SORAN_SETTING_INDEX)
#undef SORAN_SETTING_INDEX
};

/// A setting, typed by its value: `settings[key::雲高1]` is a number of feet.
template <SettingType type>
struct SettingKey {
  SettingIndex index;
  using Value = SettingValue<type>;
};

/// One row of the list of settings, for those that walk it.
struct SettingSpec {
  SettingType type;
  Standard treatment;
  QStringView column;
  qint32 number;    ///< the standard value of a number, a colour or a yes/no
  QStringView text; ///< the standard value of a text
};

namespace detail {
constexpr SettingSpec spec(SettingType type, Standard treatment, QStringView column, qint32 number) {
  return {type, treatment, column, number, {}};
}
constexpr SettingSpec spec(SettingType type, Standard treatment, QStringView column, QStringView text) {
  return {type, treatment, column, 0, text};
}
} // namespace detail

/// All settings in the order of the list.
inline constexpr std::array settingSpecs = {
#define SORAN_SETTING_SPEC(type, name, treatment, value)                                                     \
  detail::spec(SettingType::type, Standard::treatment, QStringView(u"" #name), value),
    SORAN_SETTINGS(SORAN_SETTING_SPEC)
#undef SORAN_SETTING_SPEC
};

namespace key {
#define SORAN_SETTING_KEY(type, name, treatment, value)                                                      \
  inline constexpr SettingKey<SettingType::type> name{SettingIndex::name};
SORAN_SETTINGS(SORAN_SETTING_KEY)
#undef SORAN_SETTING_KEY
} // namespace key

} // namespace soran

#endif // Q_MOC_RUN
