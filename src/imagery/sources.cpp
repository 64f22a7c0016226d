// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "imagery/sources.h"

#include <algorithm>

namespace soran {

namespace {

// clang-format off
constexpr ImagerySource sources[] = {
    {u"daily_weather", u"天気概況図", u"/imagedata/tubo/"},
    {u"yahoo", u"Yahoo!天気・災害", u"/weather/jp/leisure/airport/"},
    {u"emagram", u"エマグラム (高層観測)", u"/sis/images/"},
    {u"wind_aloft", u"毎時大気解析", u"/air_kishou/jsp/user/anl/index.html"},
    {u"facsimile", u"悪天予想図・航空路断面図", u"/image4/lfax/"},
    {u"typhoon", u"台風情報", u"/typh/images/"},
    {u"radar_amedas", u"レーダー・アメダス合成図", u"/"},
    {u"river_radar", u"広域合成レーダー", u"/img/summary/"},
    {u"satellite", u"気象衛星画像", u"/"},
    {u"pdf_chart", u"専門天気図", u"/tecweather/"},
    {u"amedas", u"アメダス", u"/amedas/images/"},
    {u"radar", u"合成レーダー", u"/radar/images/"},
    {u"low_level", u"下層悪天予想図", u"/"},
    {u"aviation", u"航空気象情報", u"/"},
    {u"himawari", u"ひまわり 日本域", u"/"},
    {u"radar_japan", u"レーダー 日本全域", u"/"},
    {u"ais", u"国土交通省 AIS JAPAN", u"/"},
    {u"camera_haneda", u"羽田空港 ネットワークカメラ", u"/ImageViewer"},
    {u"camera_shinnchitose", u"新千歳空港 放送局カメラ", u"/camera/"},
    {u"camera_sapporo", u"札幌市街 放送局カメラ", u"/camera/"},
    {u"camera_asahikawa", u"旭川市街 放送局カメラ", u"/camera/"},
    {u"camera_hakodate", u"函館市街 放送局カメラ", u"/camera/"},
    {u"camera_sendai", u"仙台空港 大学カメラ", u"/liveimage/"},
    {u"camera_fukushima", u"福島空港 県空港事務所カメラ", u"/kukouoffice/"},
    {u"camera_toyama", u"富山空港 自治体カメラ", u"/picture/camera/"},
    {u"camera_komatsu", u"小松空港 市カメラ", u"/-wvhttp-01-/"},
    {u"camera_suisha", u"インディアン水車 ネットワークカメラ", u"/CgiStart"},
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
