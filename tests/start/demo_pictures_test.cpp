// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "start/demo_pictures.h"

#include "delivered.h"
#include "http/endpoint_server.h"
#include "imagery/cameras.h"
#include "imagery/chart_catalogue.h"
#include "imagery/image_fetch.h"
#include "imagery/sources.h"
#include "platform/net_inet.h"

#include <QXmlStreamReader>
#include <gtest/gtest.h>
#include <set>

namespace soran {
namespace {

using namespace Qt::StringLiterals;

class DemoPictures : public testing::Test {
 protected:
  DemoPictures() : inet_(makeNetwork(), shutdown_) {
    server_.start();
    serveDemoPictures(server_, clock_, delivered_);
  }

  QString served(QStringView source, const QString& path) {
    const Reply reply = inet_.open(QUrl(server_.baseAddress() + demoSourcePath(source) + path));
    QXmlStreamReader reader(reply.body);
    while (!reader.atEnd())
      reader.readNext();
    EXPECT_FALSE(reader.hasError()) << path.toStdString() << reader.errorString().toStdString();
    return reply.text();
  }

  const std::function<QByteArray(const QString&)> delivered_ = delivered::file;
  Shutdown shutdown_;
  SetClock clock_{QDateTime::fromString(u"2026-11-24T14:20:00+09:00"_s, Qt::ISODate)};
  EndpointServer server_;
  NetInet inet_;
};

TEST_F(DemoPictures, StandInForEveryChartAndCamera) {
  for (const ChartItem& item : chartItems()) {
    if (item.isSeparator())
      continue;
    const QString picture = served(item.source, chartView(item, clock_.now(), u"+9").address);
    EXPECT_TRUE(picture.contains(item.caption)) << item.menu.toStdString();
    EXPECT_TRUE(picture.contains(u"DEMONSTRATION DATA")) << item.menu.toStdString();
  }
  for (const Camera& camera : cameras())
    EXPECT_TRUE(served(camera.source, camera.path.toString()).contains(camera.caption));
  EXPECT_TRUE(served(u"ais", u"/"_s).contains(findImagerySource(u"ais")->name));
}

TEST_F(DemoPictures, EveryRowOfTheTableIsServedInItsOwnWay) {
  const ImageTable real = readImageTable(delivered_(u"imagery.ini"_s), u"imagery.ini"_s);
  EXPECT_TRUE(real.faults.isEmpty()) << real.faults.join(u'\n').toStdString();
  const ImageTable demo = demoTable(real, server_.baseAddress());
  std::set<BodyKind> seen;
  for (const ImageRow& row : demo.rows) {
    const FetchedImage found = fetchImage(inet_, row, clock_.now());
    EXPECT_TRUE(found.ok()) << row.key.toStdString() << found.address.toString().toStdString();
    EXPECT_TRUE(found.time.isValid()) << row.key.toStdString();
    EXPECT_FALSE(isOld(found.time, row.period, clock_.now())) << row.key.toStdString();
    seen.insert(found.kind);
  }
  EXPECT_EQ(seen, (std::set{BodyKind::Png, BodyKind::Jpeg, BodyKind::Svg, BodyKind::Pdf}));
  for (const ChartItem& item : chartItems())
    EXPECT_TRUE(item.isSeparator() || real.find(item.menu, item.index)) << item.menu.toStdString();
}

TEST_F(DemoPictures, TellTheTimeAndNothingElse) {
  EXPECT_TRUE(served(u"satellite", u"/QL/00Latest.jpg"_s).contains(u"2026/11/24 14:20:00"));
  clock_.advance(60);
  EXPECT_TRUE(served(u"satellite", u"/QL/00Latest.jpg"_s).contains(u"2026/11/24 14:21:00"));
  EXPECT_TRUE(served(u"satellite", u"/QL/none.jpg"_s).contains(u"404"));
  const QString escaped = QString::fromUtf8(demoPicture(u"<a & b>"_s, u"c"_s, clock_.now(), 1));
  EXPECT_TRUE(escaped.contains(u"&lt;a &amp; b&gt;"));
}

} // namespace
} // namespace soran
