// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "imagery/cameras.h"
#include "imagery/chart_model.h"
#include "imagery/sources.h"
#include "support/printing.h"

#include <QSet>
#include <gtest/gtest.h>

using namespace soran;

namespace {

QDateTime at(int year, int month, int day, int hour, int minute = 0) {
  return {QDate(year, month, day), QTime(hour, minute)};
}

} // namespace

TEST(ChartIssue, NameFollowsTheClock) {
  const struct {
    IssueCycle cycle;
    QDateTime now;
    QStringView timeOffset, stamp;
  } cases[] = {
      {IssueCycle::SixHourly, at(2004, 3, 2, 2, 30), u"+9", u"2004311800"},
      {IssueCycle::SixHourly, at(2010, 3, 1, 0), u"+9", u"20102291800"},
      {IssueCycle::SixHourly, at(2010, 1, 1, 5, 59), u"+9", u"200912311800"},
      {IssueCycle::SixHourly, at(2010, 5, 1, 5), u"+9", u"20104301800"},
      {IssueCycle::SixHourly, at(2010, 1, 1, 6), u"+9", u"201001010000"},
      {IssueCycle::SixHourly, at(2010, 1, 1, 12), u"+9", u"201001010600"},
      {IssueCycle::SixHourly, at(2010, 1, 1, 23, 59), u"+9", u"201001011200"},
      {IssueCycle::ThreeHourly, at(2010, 1, 2, 2, 59), u"+9", u"2010112100"},
      {IssueCycle::ThreeHourly, at(2010, 1, 2, 3), u"+9", u"201001020000"},
      {IssueCycle::ThreeHourly, at(2010, 1, 2, 14), u"+9", u"201001020900"},
      {IssueCycle::ThreeHourly, at(2010, 1, 2, 21), u"+9", u"201001021800"},
      // Only the hour follows the offset, and it wraps once.
      {IssueCycle::SixHourly, at(2010, 1, 2, 17), u"±0", u"201001020000"},
      {IssueCycle::SixHourly, at(2010, 1, 2, 8), u"±0", u"201001021200"},
      {IssueCycle::SixHourly, at(2010, 1, 2, 23), u"+12", u"2010111800"},
      {IssueCycle::ThreeHourly, at(2010, 1, 2, 10), u"-5", u"201001021500"},
      {IssueCycle::ThreeHourly, at(2010, 1, 2, 6), u"+5.5", u"2010112100"},
  };
  for (const auto& c : cases)
    EXPECT_EQ(issueStamp(c.cycle, c.now, c.timeOffset), c.stamp) << c.now.toString().toStdString();
}

TEST(ChartCatalogue, ItemsGiveAddressTitleAndSize) {
  const QDateTime now = at(2010, 1, 1, 10);
  const struct {
    QStringView menu;
    std::optional<int> index;
    QStringView address, title;
    int width, height;
  } cases[] = {
      {u"menu_chart_today", 3, u"/imagedata/chart/LBWwb_asas.jpg", u" 実況天気図", 9600, 7300},
      {u"menu_chart_ema", 17, u"/sis/images/ema_chi.gif", u" 父島", 11000, 8700},
      {u"menu_FXJP", {}, u"/image4/lfax/fxjp106_201001010600.png", u" 国内航空路断面図", 0, 0},
      {u"menu_chart_radaramedas", 2, u"/rdam/rd0_sjp.gif", u" 南日本", 10200, 10150},
      {u"menu_chart_kouikiradar", {}, u"/img/summary/radar_Area80.png", u" True", 7400, 7400},
      {u"manu_AUPA20", {}, u"/tecweather/AUPA20.pdf", u" アジア太平洋 200hPa 高度・気温・風・圏界面図", 0, 0},
      {u"menu_FSAS24", 1, u"/tecweather/FSAS.pdf", u" アジア地上24時間予想天気図", 0, 0},
      {u"menu_chart_amedas_temp", 0, u"/amedas/images/amedas-temp-b-zen.jpg", u" 全国", 10200, 7800},
      {u"menu_chart_amedas_sun", 8, u"/amedas/images/amedas-sun-b-okinawa.jpg", u" 沖縄", 10200, 7800},
      {u"menu_chart_radar", 1, u"/radar/images/radarRSAP.jpg", u" 北海道", 10200, 7800},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.menu.toUtf8().toStdString());
    const auto view = chartView(c.menu, c.index, now, u"+9");
    ASSERT_TRUE(view);
    EXPECT_EQ(*view, (ChartView{c.address.toString(), c.title.toString(), c.width, c.height, c.width == 0}));
  }
  const struct {
    QStringView menu;
    std::optional<int> index;
  } refused[] = {
      {u"menu_chart_amedas_rain", 1},
      {u"menu_chart_amedas_rain", 9},
      {u"menu_chart_today", {}},
      {u"menu_chart_today", 0},
      {u"menu_chart_radar", 9},
      {u"menu_AUPA20", {}},
      {u"menu_FBJP", 2},
      {u"menu_exit", {}},
      {u"menu_chart_pdf", {}},
  };
  for (const auto& c : refused)
    EXPECT_FALSE(chartView(c.menu, c.index, now, u"+9")) << c.menu.toUtf8().toStdString();
}

TEST(ChartCatalogue, EveryItemHasAServerAndASubmenu) {
  QSet<QString> submenus{QString()};
  for (const ChartSubmenu& submenu : chartSubmenus()) {
    EXPECT_TRUE(submenus.contains(submenu.parent.toString()));
    submenus.insert(submenu.name.toString());
  }
  QSet<QString> seen;
  int shown = 0;
  for (const ChartItem& item : chartItems()) {
    SCOPED_TRACE(item.menu.toStdString() + ' ' + std::to_string(item.index));
    EXPECT_TRUE(submenus.contains(item.submenu));
    EXPECT_NE(findImagerySource(item.source), nullptr);
    if (item.isSeparator())
      continue;
    ++shown;
    EXPECT_TRUE(item.path.startsWith(u'/'));
    EXPECT_FALSE(seen.contains(item.path));
    seen.insert(item.path);
  }
  EXPECT_EQ(shown, 4 + 1 + 17 + 1 + 3 + 3 + 2 + 1 + 2 + 20 + 32 + 8 + 6 + 4 + 4 + 1);
  for (const Camera& camera : cameras())
    EXPECT_NE(findImagerySource(camera.source), nullptr);
}

TEST(ChartModel, SizesPrintingAndFirstPage) {
  ChartModel model({15000, 11000}, QStringLiteral("+9"));
  EXPECT_EQ(model.open(at(2010, 1, 1, 12)).title, u" 天気のツボ (夜)");
  const ChartShow first = model.open(at(2010, 1, 1, 11, 59));
  EXPECT_EQ(first.title, u" 天気のツボ (昼)");
  EXPECT_EQ(first.window, (TwipSize{9600 + 115, 7300 + 695}));
  EXPECT_TRUE(ChartModel::printEnabled(first, true));
  EXPECT_FALSE(ChartModel::printEnabled(first, false));

  const QDateTime now = at(2010, 1, 1, 10);
  EXPECT_EQ(model.choose(u"menu_yahoo", {}, now)->view, (TwipSize{9600, 7300}));
  const auto pdf = model.choose(u"menu_SPAS", {}, now);
  EXPECT_TRUE(pdf->maximised);
  EXPECT_EQ(pdf->view, (TwipSize{14300, 10300}));
  EXPECT_FALSE(ChartModel::printEnabled(*pdf, true));
  const auto facsimile = model.choose(u"menu_FBJP", {}, now);
  EXPECT_EQ(facsimile->view, (TwipSize{14300, 10300}));
  EXPECT_TRUE(ChartModel::printEnabled(*facsimile, true));
  EXPECT_FALSE(model.choose(u"menu_chart_today", 5, now));
}

TEST(ChartModel, ReloadsEveryFiveMinutes) {
  ChartModel model({15000, 11000}, QStringLiteral("+9"));
  model.open(at(2010, 1, 1, 10));
  for (int second = 1; second <= 600; ++second)
    EXPECT_EQ(model.tick(), second % 300 == 0) << second;
}

TEST(Cameras, OnlyStillPicturesAreReloaded) {
  CameraModel model;
  EXPECT_EQ(model.open(),
            (CameraView{QStringLiteral("camera_shinnchitose"), QStringLiteral("/camera/chitose_L.jpg"),
                        QStringLiteral("新千歳空港"), true}));
  const auto ticksToReload = [&model](int limit) {
    for (int second = 1; second <= limit; ++second) {
      if (model.tick())
        return second;
    }
    return 0;
  };
  EXPECT_EQ(ticksToReload(100), 60);
  EXPECT_EQ(ticksToReload(59), 0);
  EXPECT_EQ(model.choose(u"menu_suisha")->title, u" インディアン水車");
  EXPECT_EQ(ticksToReload(150), 0);
  EXPECT_EQ(model.choose(u"menu_komatsu")->address, u"/-wvhttp-01-/GetOneShot");
  EXPECT_EQ(ticksToReload(100), 60);
  EXPECT_FALSE(model.choose(u"menu_narita"));
}
