// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "imagery/chart_catalogue.h"

#include <QStringBuilder>
#include <algorithm>

namespace soran {

namespace {

struct Row {
  QStringView menu;
  QStringView caption;
  QStringView source;
  QStringView path;
  int index; // -1 for an item alone
  int width = 0;
  int height = 0;
  IssueCycle cycle = IssueCycle::None;
};

// clang-format off
constexpr Row rowsAheadOfEmagrams[] = {
    {u"menu_chart_today", u"天気のツボ (昼)", u"daily_weather", u"/imagedata/tubo/LBWwb_tubo_1.jpg", 1, 9600, 7300},
    {u"menu_chart_today", u"天気のツボ (夜)", u"daily_weather", u"/imagedata/tubo/LBWwb_tubo_2.jpg", 2, 9600, 7300},
    {u"menu_chart_today", u"実況天気図", u"daily_weather", u"/imagedata/chart/LBWwb_asas.jpg", 3, 9600, 7300},
    {u"menu_chart_today", u"予想天気図", u"daily_weather", u"/imagedata/chart/LBWwb_fsas.jpg", 4, 9600, 7300},
    {u"menu_yahoo", u"Yahoo 空港天気予報", u"yahoo", u"/weather/jp/leisure/airport/", -1},
};

constexpr Row rowsBehindEmagrams[] = {
    {u"menu_windaloft", u"毎時大気解析", u"wind_aloft", u"/air_kishou/jsp/user/anl/index.html", -1, 12660, 9750},
    {u"menu_FBJP", u"悪天予想図 - 6時間予想", u"facsimile", u"/image4/lfax/fbjp_", -1, 0, 0, IssueCycle::SixHourly},
    {u"menu_FBJP112", u"悪天予想図 - 12時間予想", u"facsimile", u"/image4/lfax/fbjp112_", -1, 0, 0, IssueCycle::ThreeHourly},
    {u"menu_FXJP", u"国内航空路断面図", u"facsimile", u"/image4/lfax/fxjp106_", -1, 0, 0, IssueCycle::ThreeHourly},
    {u"menu_chart_typoon", u"アジア広域", u"typhoon", u"/typh/images/asia_l.jpg", 1, 10200, 7800},
    {u"menu_chart_typoon", u"日本広域", u"typhoon", u"/typh/images/koiki_l.jpg", 2, 10200, 7800},
    {u"menu_chart_typoon", u"日本拡大", u"typhoon", u"/typh/images/kakudai_l.jpg", 3, 10200, 7800},
    {u"menu_chart_radaramedas", u"日本全図", u"radar_amedas", u"/rdam/rd0_jp.gif", 1, 10200, 10150},
    {u"menu_chart_radaramedas", u"南日本", u"radar_amedas", u"/rdam/rd0_sjp.gif", 2, 10200, 10150},
    {u"menu_chart_kouikiradar", u"広域合成レーダー", u"river_radar", u"/img/summary/radar_Area80.png", -1, 7400, 7400},
    {u"menu_chart_sat", u"日本付近", u"satellite", u"/FE/00Latest.jpg", 1, 10200, 7800},
    {u"menu_chart_sat", u"クイックルック", u"satellite", u"/QL/00Latest.jpg", 2, 9300, 9300},
};
// clang-format on

struct Named {
  QStringView caption;
  QStringView word;
};

constexpr Named emagramStations[] = {
    {u"稚内", u"wak"},     {u"根室", u"nem"}, {u"札幌", u"sap"},   {u"仙台", u"sen"},   {u"秋田", u"aki"},
    {u"輪島", u"waj"},     {u"館野", u"tat"}, {u"米子", u"yon"},   {u"潮ノ岬", u"sio"}, {u"福岡", u"fuk"},
    {u"鹿児島", u"kag"},   {u"那覇", u"nah"}, {u"石垣島", u"ish"}, {u"八丈島", u"hac"}, {u"名瀬", u"naz"},
    {u"南大東島", u"min"}, {u"父島", u"chi"},
};

constexpr struct {
  QStringView menu;
  QStringView caption;
  QStringView file;
} pdfCharts[] = {
    {u"menu_SPAS", u"速報天気図", u"SPAS.pdf"},
    {u"menu_ASAS", u"アジア地上解析図", u"ASAS.pdf"},
    {u"menu_AUPQ78", u"アジア 850,700hPa 高層天気図", u"AUPQ78.pdf"},
    {u"menu_AUPQ35", u"アジア 500,300hPa 高層天気図", u"AUPQ35.pdf"},
    {u"manu_AUPA20", u"アジア太平洋 200hPa 高度・気温・風・圏界面図", u"AUPA20.pdf"},
    {u"menu_AXFE578", u"極東 500,700hPa 天気図", u"AXFE578.pdf"},
    {u"menu_AXJP140", u"高層断面図", u"AXJP140.pdf"},
    {u"menu_AUXN50", u"北半球 500hPa 高度・気温天気図", u"AUXN50.pdf"},
    {u"menu_FSAS24", u"アジア地上24時間予想天気図", u"FSAS.pdf"},
    {u"menu_FSAS48", u"アジア地上48時間予想天気図", u"FSAS48.pdf"},
    {u"menu_FXFE502", u"500hPa 高度・渦度 12/24時間予想図", u"FXFE502.pdf"},
    {u"menu_FXFE504", u"500hPa 高度・渦度 36/48時間予想図", u"FXFE504.pdf"},
    {u"menu_FXFE507", u"500hPa 高度・渦度 72時間予想図", u"FXFE507.pdf"},
    {u"menu_FXFE5782", u"極東 850hPa 気温・風、700hPa 上昇流 12/24時間予想図", u"FXFE5782.pdf"},
    {u"menu_FXFE5784", u"極東 850hPa 気温・風、700hPa 上昇流 36/48時間予想図", u"FXFE5784.pdf"},
    {u"menu_FXFE577", u"極東 850hPa 気温・風、700hPa 上昇流 72時間予想図", u"FXFE577.pdf"},
    {u"menu_FXJP854", u"日本 850hPa 風・相当温位予想図", u"FXJP854.pdf"},
    {u"menu_FXXN519", u"週間予報支援図", u"FXXN519.pdf"},
    {u"menu_FZCX50", u"週間予報支援図 （アンサンブル）", u"FZCX50.pdf"},
    {u"menu_FEFE19", u"週間アンサンブル予想図", u"FEFE19.pdf"},
};

constexpr struct {
  QStringView menu;
  QStringView word;
} amedasKinds[] = {
    {u"menu_chart_amedas_rain", u"rain"},
    {u"menu_chart_amedas_wind", u"wind"},
    {u"menu_chart_amedas_temp", u"temp"},
    {u"menu_chart_amedas_sun", u"sun"},
};

// The second entry is the separator below the whole country.
constexpr Named amedasRegions[] = {
    {u"全国", u"zen"},
    {u"", u""},
    {u"北海道", u"hokkaido"},
    {u"東北", u"tohoku"},
    {u"関東・甲信越", u"kanto"},
    {u"東海・北陸・近畿", u"kinki"},
    {u"中国・四国", u"chushikoku"},
    {u"九州", u"kyushu"},
    {u"沖縄", u"okinawa"},
};

constexpr Named radarRegions[] = {
    {u"北海道", u"RSAP"},
    {u"東北北部", u"RNTH"},
    {u"東北南部・関東", u"RKNT"},
    {u"東海・近畿", u"RWTK"},
    {u"中国・四国・九州北部", u"RCGK"},
    {u"九州南部", u"RNKG"},
    {u"沖縄東部", u"RNAH"},
    {u"沖縄西部", u"RISG"},
};

constexpr Row rowsOfTheLastMenus[] = {
    {u"menu_chart_lowlevel", u"北海道", u"low_level", u"/fbsp.png", 1, 12660, 9750},
    {u"menu_chart_lowlevel", u"東北", u"low_level", u"/fbsn.png", 2, 12660, 9750},
    {u"menu_chart_lowlevel", u"東日本", u"low_level", u"/fbtk.png", 3, 12660, 9750},
    {u"menu_chart_lowlevel", u"西日本", u"low_level", u"/fbos.png", 4, 12660, 9750},
    {u"menu_chart_lowlevel", u"奄美", u"low_level", u"/fbkg.png", 5, 12660, 9750},
    {u"menu_chart_lowlevel", u"沖縄", u"low_level", u"/fbok.png", 6, 12660, 9750},
    {u"menu_chart_aviation", u"国内悪天予想図 (FBJP)", u"aviation", u"/fbjp.png", 1},
    {u"menu_chart_aviation", u"シグメット図", u"aviation", u"/sigmet.png", 2},
    {u"menu_chart_aviation", u"航空気象解説 (QYYA86)", u"aviation", u"/qyya86.png", 3},
    {u"menu_chart_aviation", u"航空気象解説 (QYYA83)", u"aviation", u"/qyya83.png", 4},
    {u"menu_chart_himawari", u"赤外", u"himawari", u"/b13.jpg", 1, 10200, 9300},
    {u"menu_chart_himawari", u"可視", u"himawari", u"/b03.jpg", 2, 10200, 9300},
    {u"menu_chart_himawari", u"水蒸気", u"himawari", u"/b08.jpg", 3, 10200, 9300},
    {u"menu_chart_himawari", u"カラー", u"himawari", u"/trm.jpg", 4, 10200, 9300},
    {u"menu_radar_japan", u"レーダー 日本全域", u"radar_japan", u"/japan.png", -1, 10200, 9300},
};

constexpr QStringView pdfSubmenu = u"menu_chart_pdf";

constexpr ChartSubmenu submenus[] = {
    {u"menu_chart_today", u"今日の天気", u""},
    {u"menu_chart_ema", u"エマグラム", u""},
    {u"menu_chart_typoon", u"台風情報", u""},
    {u"menu_chart_radaramedas", u"レーダー・アメダス合成図", u""},
    {u"menu_chart_sat", u"気象衛星画像", u""},
    {pdfSubmenu, u"専門天気図 (PDF)", u""},
    {u"menu_chart_amedas", u"アメダス", u""},
    {u"menu_chart_amedas_rain", u"降水量", u"menu_chart_amedas"},
    {u"menu_chart_amedas_wind", u"風向・風速", u"menu_chart_amedas"},
    {u"menu_chart_amedas_temp", u"気温", u"menu_chart_amedas"},
    {u"menu_chart_amedas_sun", u"日照", u"menu_chart_amedas"},
    {u"menu_chart_radar", u"合成レーダー", u""},
    {u"menu_chart_lowlevel", u"下層悪天予想図", u""},
    {u"menu_chart_aviation", u"航空気象情報", u""},
    {u"menu_chart_himawari", u"ひまわり 日本域", u""},
};

template <typename Rows>
void appendRows(QList<ChartItem>& items, const Rows& rows) {
  for (const Row& row : rows) {
    items.append({row.menu.toString(), row.index, row.caption.toString(),
                  row.index < 0 ? QString() : row.menu.toString(), row.source.toString(), row.path.toString(),
                  row.width, row.height, row.cycle});
  }
}

/// A menu of regions or stations whose files differ by one word.
template <typename Names>
void appendNamed(QList<ChartItem>& items, QStringView menu, int firstIndex, const Names& names,
                 QStringView source, const QString& pathHead, QStringView pathTail, int width, int height) {
  int index = firstIndex;
  for (const Named& name : names) {
    const QString path = name.word.isEmpty() ? QString() : pathHead % name.word % pathTail;
    items.append({menu.toString(), index++, name.caption.toString(), menu.toString(), source.toString(), path,
                  width, height, IssueCycle::None});
  }
}

} // namespace

QList<ChartItem> chartItems() {
  QList<ChartItem> items;
  appendRows(items, rowsAheadOfEmagrams);
  appendNamed(items, u"menu_chart_ema", 1, emagramStations, u"emagram", QStringLiteral("/sis/images/ema_"),
              u".gif", 11000, 8700);
  appendRows(items, rowsBehindEmagrams);
  for (const auto& pdf : pdfCharts) {
    items.append({pdf.menu.toString(), -1, pdf.caption.toString(), pdfSubmenu.toString(),
                  QStringLiteral("pdf_chart"), QStringLiteral("/tecweather/") % pdf.file, 0, 0,
                  IssueCycle::None});
  }
  for (const auto& kind : amedasKinds)
    appendNamed(items, kind.menu, 0, amedasRegions, u"amedas",
                QStringLiteral("/amedas/images/amedas-") % kind.word % u"-b-", u".jpg", 10200, 7800);
  appendNamed(items, u"menu_chart_radar", 1, radarRegions, u"radar", QStringLiteral("/radar/images/radar"),
              u".jpg", 10200, 7800);
  appendRows(items, rowsOfTheLastMenus);
  return items;
}

QList<ChartSubmenu> chartSubmenus() {
  return {std::begin(submenus), std::end(submenus)};
}

std::optional<ChartItem> findChartItem(QStringView menu, std::optional<int> index) {
  const QList<ChartItem> items = chartItems();
  const auto item = std::ranges::find_if(items, [menu, index](const ChartItem& each) {
    const bool alone = each.index < 0;
    return each.menu == menu && (alone ? index.value_or(1) == 1 : index == each.index);
  });
  if (item == items.end() || item->isSeparator())
    return std::nullopt;
  return *item;
}

ChartView chartView(const ChartItem& item, const QDateTime& now, QStringView timeOffset) {
  ChartView view;
  view.address = item.path;
  if (item.cycle != IssueCycle::None)
    view.address += issueStamp(item.cycle, now, timeOffset) % u".png";
  // This one window is titled with the state of its menu item, and users know it by that.
  view.title = u' ' % (item.menu == u"menu_chart_kouikiradar" ? QStringLiteral("True") : item.caption);
  view.width = item.width;
  view.height = item.height;
  view.maximised = item.maximised();
  return view;
}

std::optional<ChartView> chartView(QStringView menu, std::optional<int> index, const QDateTime& now,
                                   QStringView timeOffset) {
  const std::optional<ChartItem> item = findChartItem(menu, index);
  if (!item)
    return std::nullopt;
  return chartView(*item, now, timeOffset);
}

int firstChartIndex(const QDateTime& now) {
  return now.time().hour() < 12 ? 1 : 2;
}

} // namespace soran
