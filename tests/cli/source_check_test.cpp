// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/utc.h"
#include "cli/source_check.h"

#include "cli_fixture.h"

using namespace soran;

TEST(SourceCheck, TellsEachKindOfAnswer) {
  const QDateTime now = inUtc(QDate(2026, 11, 24), QTime(5, 20));
  EndpointServer server;
  ASSERT_TRUE(server.start());
  const QString base = server.baseAddress();
  const QByteArray report = "2026/11/24 05:00\nRJTT 240500Z 33010KT 9999 FEW030 12/03 Q1020\n";
  const QByteArray lines = "METAR RJTT 240500Z 33010KT 9999 FEW030 12/03 Q1020=\n";
  Endpoints endpoints;
  endpoints.update = base;
  endpoints.cycles = base + u"/cycles/";
  endpoints.sigmet = base + u"/sigmet";
  endpoints.sources = {{.name = u"one"_s, .metar = base + u"/m/{code}", .taf = base + u"/t/{code}"},
                       {.name = u"many"_s,
                        .form = ReportSource::Form::RawLines,
                        .metar = base + u"/raw?{codes}",
                        .taf = base + u"/t/{codes}"}};
  struct Case {
    QString name;
    Answer answer; // at /NAME
    QStringView kind, verdict;
    std::optional<qint64> age = {};
    QByteArray row = {}; // of the table; HOST/NAME where it says nothing
  };
  const Answer hour{.body = "GIF89a", .headers = {{"Last-Modified", "Tue, 24 Nov 2026 04:20:00 GMT"}}};
  const Case cases[] = {
      {u"m/RJTT"_s, {.body = report}, u"report", u"OK", 20},
      {u"t/RJTT"_s, {.body = "<html>"}, u"html page", u"WRONG KIND"},
      {u"raw"_s, {.body = lines}, u"raw lines", u"NOT ALL", 20},
      {u"t/RJTT,RJAA"_s, {.status = 500}, u"empty", u"REFUSED"},
      {u"cycles/04Z.TXT"_s, {.body = "2026/11/23 04:01\nRJTT 230400Z\n"}, u"report", u"OLD", 1519},
      {u"data/version.dat"_s, {.body = "4.31\n1.00\n1.00\n"}, u"other", u"OK"},
      {u"sigmet"_s, {.status = 204}, u"empty", u"OK"},
      {u"png"_s, {.body = "\x89PNG"}, u"image png", u"OK"},
      {u"old"_s, hour, u"image gif", u"OLD", 60, "period=29"},
      {u"new"_s, hour, u"image gif", u"OK", 60, "period=30"},
      {u"jpeg"_s, {.body = "\xff\xd8\xff"}, u"image jpeg", u"WRONG KIND", {}, "kind=pdf"},
      {u"d.pdf"_s, {.body = "%PDF-1.4"}, u"pdf", u"OK"},
      {u"page"_s, {.body = "<!doctype html>"}, u"html page", u"OK", {}, "kind=page"},
      {u"json"_s, {.body = "{}"}, u"json", u"NO NAME", {}, "list=HOST/json\npath=a\naddress=HOST/{name}"},
      {u"forbidden"_s, {.body = "<html>", .status = 403}, u"html page", u"REFUSED"},
      {u"missing"_s, {.body = "<html>", .status = 404}, u"html page", u"NOTHING"},
      {u"hollow"_s, {}, u"empty", u"NOTHING"},
      {u"cut"_s, {.body = "\x89PNG"}, u"empty", u"BROKEN"},
      {u"nobody"_s, {}, u"empty", u"NO ANSWER", {}, "address=http://127.0.0.1:9/"},
      {u"bad"_s, {}, u"-", u"BAD ROW", {}, "address=HOST/{hour}"},
  };
  server.setDelivery(u"/cut"_s, {.cutAt = 2});
  QByteArray table = "[unknown]\nreason=x\n[menu_SPAS]\naddress=HOST/png\n"; // asked once with the row png
  for (const Case& c : cases) {
    server.setAnswer(u'/' + c.name, c.answer);
    const bool whole = c.row.contains("HOST") || c.row.contains("http");
    if (&c >= &cases[7])
      table += "[" + c.name.toLatin1() + "]\n" + c.row + '\n';
    if (&c >= &cases[7] && !whole)
      table += "address=HOST/" + c.name.toLatin1() + '\n';
  }
  endpoints.images = readImageTable(table.replace("HOST", base.toLatin1()), u"t.ini"_s);

  Shutdown shutdown;
  NetInet inet(makeNetwork(), shutdown);
  std::vector<CheckedSource> found;
  const auto take = [&](const CheckedSource& source) {
    found.push_back(source);
    return true;
  };
  checkSources(endpoints, inet, now, take);
  ASSERT_EQ(found.size(), std::size(cases) + 1);
  EXPECT_EQ(server.requests().count(u"/png"_s), 1);
  EXPECT_EQ(found[7].name, u"menu_SPAS");
  found.erase(found.begin() + 7);
  for (size_t i = 0; i < std::size(cases); ++i) {
    SCOPED_TRACE(cases[i].name.toStdString() + " " + found[i].address.toStdString());
    EXPECT_TRUE(i < 7 || found[i].name == cases[i].name);
    EXPECT_EQ(found[i].kind, cases[i].kind);
    EXPECT_EQ(found[i].verdict, cases[i].verdict);
    EXPECT_EQ(found[i].age, cases[i].age);
  }
  EXPECT_EQ(found[14].status, 403);
}

TEST_F(CliTest, ChecksTheSourcesOfTheDemonstration) {
  Cli json(with({u"--demo"_s, u"check-sources"_s, u"--json"_s}));
  const QJsonObject first = json.receive();
  EXPECT_EQ(first.value(u"name").toString(), u"noaa METAR");
  EXPECT_EQ(first.value(u"status").toInt(), 200);
  EXPECT_EQ(json.end(), 0);
  // Whoever names whom to ask in a file that cannot be used has nobody asked.
  ASSERT_TRUE(QDir().mkpath(world.path(u"imagery.ini"_s)));
  Cli refused(with({u"check-sources"_s}));
  EXPECT_EQ(refused.end(), 1);
  EXPECT_TRUE(refused.readAllStandardError().contains("imagery.ini"));
}
