// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringView>

/// The notice ahead of the weather charts, the form adobeinfo: some charts are PDF files.
namespace soran {

namespace adobe_notice {
inline constexpr QStringView title = u" インフォメーション";
inline constexpr QStringView text = u"一部の天気図を表示するにあたっては Adobe社が無償で配布している Adobe "
                                    u"Reader が必要になる場合があります.\r\n\r\n"
                                    u"Adobe Reader をダウンロードするには下のバナーをクリックしてください.";
inline constexpr QStringView checkBox = u"以後このメッセージを表示しない";
inline constexpr QStringView closeButton = u"閉じる";
inline constexpr QStringView downloadPage = u"https://get.adobe.com/jp/reader/";

/// Status lines: ahead of the notice, ahead of the charts, and where the user left for the download.
inline constexpr QStringView statusNotice = u"DISPLAY ADOBE PDF INFORMATION";
inline constexpr QStringView statusChart = u"DISPLAY WEATHER CHART";
inline constexpr QStringView statusUnload = u"SYSTEM UNLOAD";
} // namespace adobe_notice

} // namespace soran
