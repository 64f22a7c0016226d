// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "imagery/sources.h"

#include <algorithm>

namespace soran {

namespace {

constexpr QStringView noHost = u"公開サーバーは確認されていません. endpoints.ini に指定してください.";
constexpr QStringView cameraAway = u"カメラのサーバーは確認されていません. endpoints.ini に指定してください.";

// clang-format off
constexpr ImagerySource sources[] = {
    {u"daily_weather", u"天気概況図", u"", u"/imagedata/tubo/", noHost},
    {u"yahoo", u"Yahoo!天気・災害", u"https://weather.yahoo.co.jp", u"/weather/jp/leisure/airport/",
     u"空港の天気のページです. 構成が変わると別のページが表示されることがあります."},
    {u"emagram", u"エマグラム (高層観測)", u"", u"/sis/images/", noHost},
    {u"wind_aloft", u"気象庁 毎時大気解析", u"", u"/air_kishou/jsp/user/anl/index.html",
     u"航空気象の利用者向けページです. endpoints.ini に指定してください."},
    {u"facsimile", u"悪天予想図・航空路断面図", u"", u"/image4/lfax/",
     u"発表時刻を名前に持つ PNG です. endpoints.ini に指定してください."},
    {u"typhoon", u"台風情報", u"", u"/typh/images/", noHost},
    {u"radar_amedas", u"レーダー・アメダス合成図", u"", u"/", noHost},
    {u"river_radar", u"国土交通省 川の防災情報", u"https://www.river.go.jp", u"/img/summary/",
     u"サイトは更新されており、この画像は提供されていないことがあります."},
    {u"satellite", u"高知大学 気象情報頁", u"http://weather.is.kochi-u.ac.jp", u"/",
     u"気象衛星の最新画像です."},
    {u"pdf_chart", u"北海道放送 専門天気図", u"https://www.hbc.co.jp", u"/tecweather/",
     u"気象庁の天気図の PDF です."},
    {u"amedas", u"アメダス", u"", u"/amedas/images/", noHost},
    {u"radar", u"合成レーダー", u"", u"/radar/images/", noHost},
    {u"ais", u"国土交通省 AIS JAPAN", u"https://aisjapan.mlit.go.jp", u"/",
     u"航空路誌とノータムのページです. 利用には登録が必要です."},
    {u"camera_haneda", u"羽田空港 ネットワークカメラ", u"", u"/ImageViewer",
     u"動画のページで、自身で更新されます. endpoints.ini に指定してください."},
    {u"camera_shinnchitose", u"新千歳空港 放送局カメラ", u"", u"/camera/", cameraAway},
    {u"camera_sapporo", u"札幌市街 放送局カメラ", u"", u"/camera/", cameraAway},
    {u"camera_asahikawa", u"旭川市街 放送局カメラ", u"", u"/camera/", cameraAway},
    {u"camera_hakodate", u"函館市街 放送局カメラ", u"", u"/camera/", cameraAway},
    {u"camera_sendai", u"仙台空港 大学カメラ", u"", u"/liveimage/", cameraAway},
    {u"camera_fukushima", u"福島空港 県空港事務所カメラ", u"", u"/kukouoffice/", cameraAway},
    {u"camera_toyama", u"富山空港 自治体カメラ", u"", u"/picture/camera/", cameraAway},
    {u"camera_komatsu", u"小松空港 市カメラ", u"", u"/-wvhttp-01-/", cameraAway},
    {u"camera_suisha", u"インディアン水車 ネットワークカメラ", u"", u"/CgiStart",
     u"ポート 60001 の動画のページです. endpoints.ini にポートとともに指定してください."},
};
// clang-format on

} // namespace

std::span<const ImagerySource> imagerySources() noexcept {
  return sources;
}

const ImagerySource* findImagerySource(QStringView key) noexcept {
  const auto* source = std::ranges::find(sources, key, &ImagerySource::key);
  return source == std::end(sources) ? nullptr : source;
}

} // namespace soran
