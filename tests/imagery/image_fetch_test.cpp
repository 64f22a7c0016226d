// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/utc.h"
#include "imagery/image_fetch.h"

#include "http/endpoint_server.h"
#include "imagery/image_choice.h"
#include "platform/net_inet.h"
#include "support/printing.h"

#include <gtest/gtest.h>

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

const QDateTime now = inUtc(QDate(2026, 11, 24), QTime(5, 20));

class ImageFetch : public testing::Test {
 protected:
  ImageFetch() : inet_(makeNetwork(), shutdown_) { server_.start(); }

  void serve(const QString& path, const QByteArray& body, const QByteArray& modified = {}) {
    Answer answer{.body = body};
    if (!modified.isEmpty())
      answer.headers.append({"Last-Modified", modified});
    server_.setAnswer(path, answer);
  }
  ImageRow row(const QByteArray& lines) {
    QByteArray text = "[k]\n" + lines;
    const ImageTable table = readImageTable(text.replace("HOST", server_.baseAddress().toLatin1()), u"t"_s);
    EXPECT_TRUE(table.faults.isEmpty()) << table.faults.join(u' ').toStdString();
    return table.rows.at(0);
  }
  FetchedImage fetch(const QByteArray& lines) {
    server_.clearRequests();
    return fetchImage(inet_, row(lines), now);
  }

  Shutdown shutdown_;
  EndpointServer server_;
  NetInet inet_;
};

constexpr QByteArrayView png = "\x89PNG...";

} // namespace

TEST_F(ImageFetch, WalksBackUntilAPictureIsThere) {
  const QByteArray form = "address=HOST/w_{yyyy}{MM}{dd}{HH}{mm}.png\nstep=30\noffset=10\n";
  server_.setAnswer(u"/w_202611240500.png"_s, {.body = "<html>none</html>", .status = 404});
  serve(u"/w_202611240430.png"_s, "<html>a page in its place</html>");
  serve(u"/w_202611240400.png"_s, png.toByteArray(), "Tue, 24 Nov 2026 04:10:00 GMT");
  const FetchedImage found = fetch(form + "back=3");
  EXPECT_EQ(found.layers, std::vector{png.toByteArray()});
  EXPECT_EQ(found.time, now.addSecs(-80 * 60)); // its name tells it, not the server
  EXPECT_EQ(server_.requests().size(), 3);
  const FetchedImage none = fetch(form + "back=1");
  EXPECT_FALSE(none.ok());
  EXPECT_EQ(none.address.path(), u"/w_202611240500.png");
  EXPECT_EQ(none.reply.status, 404);
  server_.stop();
  EXPECT_EQ(fetch(form + "back=40").reply.failure, NetFailure::Unreachable);
  EXPECT_TRUE(server_.requests().isEmpty());
}

TEST_F(ImageFetch, AnHourAloneMayBeThatOfTheDayBefore) {
  const QByteArray form = "address=HOST/h_{HH}.png\nstep=180\nback=1";
  serve(u"/h_03.png"_s, "\x89PNG yesterday", "Mon, 23 Nov 2026 05:30:00 GMT");
  EXPECT_EQ(fetch(form).layers, std::vector{QByteArray("\x89PNG yesterday")});
  serve(u"/h_00.png"_s, png.toByteArray(), "Tue, 24 Nov 2026 02:30:00 GMT");
  EXPECT_EQ(fetch(form).layers, std::vector{png.toByteArray()});
  serve(u"/h_03.png"_s, "\x89PNG today");
  const FetchedImage untold = fetch(form);
  EXPECT_EQ(untold.layers, std::vector{QByteArray("\x89PNG today")});
  EXPECT_FALSE(untold.time.isValid());
}

TEST_F(ImageFetch, AListTellsTheNameAndLayersComeTogether) {
  serve(u"/p/a.png"_s, png.toByteArray());
  serve(u"/l.json"_s, R"({"near": {"now": ["9.png", "a.png", "10.png"]}, "o": [[{"n": "a.png"}]]})");
  serve(u"/l.html"_s, R"(<a href="/p/"><img src="/p/x y.png"><img src='/p/a.png?x'>)");
  const struct {
    QByteArray lines;
    bool ok;
  } cases[] = {
      {"list=HOST/l.json\npath=near.now[max]\naddress=HOST/p/{name}", true},
      {"list=HOST/l.json\npath=o[0][0].n\naddress=HOST/p/{name}", true},
      {"list=HOST/l.json\npath=near.now[7]\naddress=HOST/p/{name}", false},
      {"list=HOST/l.json\npath=near.then\naddress=HOST/p/{name}", false},
      {"list=HOST/l.html\npattern=/p/*.png", true},
      {"list=HOST/l.html\npattern=/q/*.png", false},
      {"list=HOST/none\npattern=/p/*.png", false},
      {"address=HOST/p/a.png\nlayer.2=HOST/p/a.png\nlayer.3=HOST/p/a.png", true},
      {"address=HOST/p/a.png\nlayer.2=HOST/none.png", false},
      {"address=HOST/l.json", false},
      {"address=HOST/p/a.png\nkind=pdf", false},
  };
  for (const auto& c : cases) {
    const FetchedImage found = fetch(c.lines);
    EXPECT_EQ(found.ok(), c.ok) << c.lines.toStdString();
    EXPECT_TRUE(!c.ok || found.layers.back() == png) << c.lines.toStdString();
  }
}

TEST(NameInPage, IsSoughtInABoundedStretch) {
  const QString runs = u"/p/a"_s.repeated(16 << 20);
  EXPECT_EQ(nameInPage(runs, u"/p/*.png"_s), QString()); // in a moment, not in minutes
  EXPECT_EQ(nameInPage(runs.first(400) + u".png", u"/p/*.png"_s).size(), 404);
}

TEST(ImageNote, TellsTimeAgeAndThatAPictureIsOld) {
  const struct {
    int minutes;
    QStringView age;
    bool old;
  } cases[] = {{0, u"0分前", false},  {120, u"2時間0分前", false},   {121, u"2時間1分前", true},
               {-5, u"0分前", false}, {2879, u"47時間59分前", true}, {2880, u"2日前", true}};
  const ImageRow row{.period = 60, .from = u"気象庁"_s};
  for (const auto& c : cases) {
    const QDateTime time = now.addSecs(qint64(-60) * c.minutes);
    const QString note = imageNote(row, time, now);
    EXPECT_TRUE(note.contains(u' ' + c.age.toString())) << note.toStdString();
    EXPECT_EQ(note.contains(u"古い画像です"), c.old) << note.toStdString();
  }
  EXPECT_EQ(imageNote(row, now, now), u"2026/11/24 05:20 UTC (24日 14:20 JST)   0分前   出典: 気象庁");
  EXPECT_EQ(imageNote({}, {}, now), u"時刻不明");
}

TEST(BodyKind, IsToldByTheFirstBytes) {
  const struct {
    QByteArray body;
    BodyKind kind;
  } cases[] = {{"", BodyKind::Empty},
               {" \r\n", BodyKind::Empty},
               {"\xff\xd8\xff\xe0", BodyKind::Jpeg},
               {"GIF89a", BodyKind::Gif},
               {"%PDF-1.4", BodyKind::Pdf},
               {"<!DOCTYPE html><svg>", BodyKind::Html},
               {"<?xml?><svg >", BodyKind::Svg},
               {"[1]", BodyKind::Json},
               {"[x", BodyKind::Other},
               {"RJTT 240500Z", BodyKind::Other}};
  for (const auto& c : cases)
    EXPECT_EQ(bodyKind(c.body), c.kind) << c.body.toStdString();
}

TEST(ImageChoice, AHostOfTheEndpointsFileGoesBeforeTheTable) {
  Endpoints endpoints;
  endpoints.images = readImageTable("[menu_SPAS]\naddress=https://t.example/s.png\nperiod=180\n", {});
  const ChartItem item = *findChartItem(u"menu_SPAS", {});
  EXPECT_EQ(chartRow(endpoints, item, now, u"+9").kind, ImageRow::Kind::Picture);
  endpoints.others.insert(u"pdf_chart"_s, u"http://h.example"_s);
  const ImageRow own = chartRow(endpoints, item, now, u"+9");
  EXPECT_EQ(own.layers, QStringList(u"http://h.example/tecweather/SPAS.pdf"_s));
  EXPECT_EQ(own.kind, ImageRow::Kind::Pdf);
  EXPECT_EQ(own.period, 180);
  endpoints.others.insert(u"pdf_chart"_s, QString());
  EXPECT_TRUE(chartRow(endpoints, item, now, u"+9").reason.contains(u"pdf_chart"));
  EXPECT_FALSE(cameraRow(endpoints, cameras().front()).isAvailable());
}
