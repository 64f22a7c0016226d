// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/net_inet.h"

#include "http/endpoint_server.h"
#include "platform/courtesy.h"
#include "support/line_server.h"
#include "support/own_folder.h"
#include "support/printing.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QLocale>
#include <QTimer>
#include <gtest/gtest.h>

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

class NetInetTest : public ::testing::Test {
 protected:
  NetInetTest() { EXPECT_TRUE(server.start()); }
  QUrl at(const QString& path) const { return QUrl(server.baseAddress() + path); }
  static void after(int milliseconds, const std::function<void()>& action) {
    QTimer::singleShot(milliseconds, action);
  }

  EndpointServer server;
  Shutdown shutdown;
  std::shared_ptr<Network> network = makeNetwork();
  NetInet inet{network, shutdown, 100'000};
};

const QByteArray whole = "HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\n4.31";
const QByteArray report = "2026/11/24 05:00\nRJTT 240500Z 36010KT 9999 FEW030 12/02 Q1018\n";

} // namespace

TEST_F(NetInetTest, TellsAnswersFromFailures) {
  using enum NetFailure;
  const QByteArray page = "<html>gone</html>";
  const QByteArray half(report.left(report.size() / 2));
  const struct {
    const char* name;
    Answer answer;
    Delivery delivery;
    NetFailure failure;
    QByteArray body = {};
  } cases[] = {
      {"whole", {.body = report}, {}, None, report},
      {"chunked", {.body = report}, {.chunked = true}, None, report},
      {"dripped", {.body = report}, {.dripBytes = 60, .dripPause = 5}, None, report},
      {"late", {.body = report}, {.delay = 100}, None, report},
      {"empty", {}, {}, None},
      {"empty, chunked", {}, {.chunked = true}, None},
      {"no content", {.status = 204}, {}, Status},
      {"latin-1", {.body = "caf\xe9"}, {}, None, "caf\xe9"},
      {"error page", {.body = page, .status = 404}, {}, None, page},
      {"refused page", {.body = page, .status = 400}, {}, None, page},
      {"login page", {.body = page, .status = 401}, {}, None, page},
      {"server's page", {.body = page, .status = 503}, {}, None, page},
      {"plain 404", {.body = "not here", .status = 404}, {}, Status},
      {"empty 500", {.status = 500}, {}, Status},
      {"cut in the head", {.body = report}, {.cutHead = true}, Cut},
      {"cut before the body", {.body = report}, {.cutAt = 0}, Cut},
      {"cut in the body", {.body = report}, {.cutAt = half.size()}, Cut},
      {"cut in a chunk", {.body = report}, {.chunked = true, .cutAt = half.size()}, Cut},
      {"cut error page", {.body = page, .status = 404}, {.cutAt = 6}, Cut},
      {"cut chunked page", {.body = page, .status = 404}, {.chunked = true, .cutAt = 6}, Cut},
      {"as long as allowed", {.body = QByteArray(100'000, 'x')}, {}, None, QByteArray(100'000, 'x')},
      {"too long", {.body = QByteArray(100'001, 'x')}, {}, TooLarge},
      {"far too long, chunked", {.body = QByteArray(3'000'000, 'x')}, {.chunked = true}, TooLarge},
      {"redirect to nowhere",
       {.status = 302, .headers = {{"Location", "ftp://127.0.0.1/"}}},
       {},
       Unreachable},
      {"redirect for ever", {.status = 302, .headers = {{"Location", "/file"}}}, {}, Unreachable},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    server.setAnswer(u"/file"_s, c.answer);
    server.setDelivery(u"/file"_s, c.delivery);
    const Reply reply = inet.open(at(u"/file"_s));
    EXPECT_EQ(reply.ok, c.failure == None);
    EXPECT_EQ(reply.body, c.body);
    EXPECT_EQ(reply.failure, c.failure);
    EXPECT_FALSE(inet.stillExecuting());
  }
  const Reply unknown = inet.open(at(u"/unknown"_s));
  EXPECT_TRUE(unknown.ok && unknown.body.startsWith('<'));
}

TEST_F(NetInetTest, FailsWhereThereIsNothingToReach) {
  EndpointServer closed;
  ASSERT_TRUE(closed.start());
  closed.stop();
  for (const QString& address : QStringList{
           closed.baseAddress() + u"/x"_s, u"http://no-such-host.invalid/x"_s, u"ftp://127.0.0.1/x"_s,
           server.baseAddress().replace(u"http:"_s, u"https:"_s), u"data:,x"_s, u""_s, u"nonsense"_s}) {
    SCOPED_TRACE(address.toStdString());
    const Reply reply = inet.open(QUrl(address));
    EXPECT_FALSE(reply.ok);
    EXPECT_EQ(reply.failure, NetFailure::Unreachable);
  }
}

TEST_F(NetInetTest, AsksOnceMoreWhereTheConnectionEndedUnanswered) {
  for (const int unanswered : {1, 2}) {
    LineServer hasty([unanswered](LineServer::Request& request) {
      request.send(request.number > unanswered ? whole : QByteArray());
      request.hangUp();
    });
    const Reply reply = NetInet(makeNetwork(), shutdown).open(hasty.at(u"/x"_s));
    EXPECT_EQ(reply.failure, unanswered == 1 ? NetFailure::None : NetFailure::Cut);
    EXPECT_EQ(hasty.requests.size(), 2);
  }
}

TEST_F(NetInetTest, WhatNobodyAskedForAnswersNothing) {
  const QByteArray newer = QByteArray(whole).replace("31", "32");
  const QByteArray other = "HTTP/1.1 200 OK\r\nContent-Length: 6\r\n\r\nother\n";
  const QByteArray tired = "HTTP/1.1 408 Timeout\r\nContent-Length: 1\r\n\r\n<";
  const QByteArray gone = "HTTP/1.1 400 No\r\nConnection: close\r\nContent-Length: 1\r\n\r\n<";
  const QByteArray chunks = "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n4\r\n4.31\r\n0\r\n\r\n";
  const struct {
    const char* name;
    QByteArray first;       // what answers the first request
    QByteArray idle = {};   // what comes behind it, unasked
    QByteArray second = {}; // what comes over the same connection for the second request
    bool firstIsGood = true;
    int connections = 2;
  } cases[] = {
      {.name = "nothing", .first = whole, .second = newer, .connections = 1},
      {.name = "the former answer again", .first = whole, .second = whole},
      {.name = "a surplus answer", .first = whole, .idle = other},
      {.name = "half of one", .first = whole, .idle = other.left(20)},
      {.name = "a 408", .first = whole, .idle = tired},
      {.name = "with the answer", .first = whole + other, .firstIsGood = false},
      {.name = "behind the chunks", .first = chunks + other},
      {.name = "a surplus answer in between", .first = whole, .second = other + newer},
      {.name = "a 408 in between", .first = whole, .second = tired},
      {.name = "an error that hangs up", .first = whole, .second = gone},
      {.name = "the end of another answer", .first = whole, .second = "4.32" + newer},
      {.name = "the end", .first = whole},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    LineServer line([&c, &newer](LineServer::Request& request) {
      if (request.number == 1) {
        request.send(c.first);
        if (!c.idle.isEmpty())
          QTimer::singleShot(20, &request.socket, [request, &c] { request.send(c.idle); });
      } else if (request.ofConnection == 2) {
        request.send(c.second);
        if (c.second.isEmpty())
          request.hangUp();
      } else {
        request.send(newer);
      }
    });
    NetInet client(makeNetwork(), shutdown);
    EXPECT_EQ(client.open(line.at(u"/1"_s)).ok, c.firstIsGood);
    QEventLoop loop;
    after(50, [&loop] { loop.quit(); });
    loop.exec();
    EXPECT_EQ(client.open(line.at(u"/2"_s)).body, "4.32");
    EXPECT_EQ(line.connections(), c.connections);
  }
}

TEST_F(NetInetTest, AnUnchangedBodyIsAskedForWithoutItsBytes) {
  QByteArray tag = "\"1\"";
  QByteArrayList conditions;
  LineServer changing([&](LineServer::Request& request) {
    conditions.append(request.field("If-None-Match") + '|' + request.field("If-Modified-Since"));
    if (request.field("If-None-Match") == tag)
      request.send("HTTP/1.1 304 Not Modified\r\n\r\n");
    else
      request.send("HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(report.size()) +
                   "\r\nETag: " + tag + "\r\nLast-Modified: Tue, 24 Nov 2026 05:00:00 GMT\r\n\r\n" + report);
  });
  const QUrl url = changing.at(u"/RJTT.TXT"_s);
  for (int i = 0; i < 3; ++i) {
    const Reply reply = inet.open(url);
    EXPECT_TRUE(reply.ok);
    EXPECT_EQ(reply.status, 200);
    EXPECT_EQ(reply.body, report);
  }
  const QByteArray known = "\"1\"|Tue, 24 Nov 2026 05:00:00 GMT";
  tag = "\"2\"";
  EXPECT_EQ(inet.open(url).body, report);
  EXPECT_EQ(inet.open(changing.at(u"/RJAA.TXT"_s)).body, report);
  EXPECT_EQ(conditions, (QByteArrayList{"|", known, known, known, "|", "|"}));
  // What is not trusted is not asked for by what is known of it.
  inet.distrustConnections();
  inet.open(url);
  EXPECT_EQ(conditions.last(), "|");
  EXPECT_EQ(changing.connections(), 3);
}

TEST_F(NetInetTest, AHostThatAsksToBeLeftAloneIs) {
  for (const QByteArray& refusal : {QByteArray("429 Too Many"), QByteArray("503 Busy")}) {
    SCOPED_TRACE(refusal.toStdString());
    NetInet fresh(makeNetwork(), shutdown);
    LineServer busy([&](LineServer::Request& request) {
      request.send(request.number == 1
                       ? "HTTP/1.1 " + refusal + "\r\nRetry-After: 1\r\nContent-Length: 0\r\n\r\n"
                       : whole);
    });
    EXPECT_EQ(fresh.open(busy.at(u"/a"_s)).failure, NetFailure::Status);
    EXPECT_EQ(fresh.open(busy.at(u"/b"_s)).status, 429);
    EXPECT_EQ(busy.requests, QByteArrayList{"/a"});
    QEventLoop loop;
    after(1050, [&] { loop.quit(); });
    loop.exec();
    EXPECT_TRUE(fresh.open(busy.at(u"/c"_s)).ok);
  }
}

TEST(Courtesy, KeepsToItsBounds) {
  using namespace std::chrono_literals;
  Courtesy::Time now{};
  Courtesy courtesy([&] { return now; });
  const QUrl far(u"https://reports.example/RJTT"_s);
  for (size_t i = 0; i < Courtesy::mostAMinute; ++i, now += 100ms)
    ASSERT_EQ(courtesy.claim(far), 0ms);
  EXPECT_EQ(courtesy.claim(far), 50s);
  EXPECT_EQ(courtesy.claim(QUrl(u"https://other.example/"_s)), 0ms);
  EXPECT_EQ(courtesy.claim(QUrl(u"http://127.0.0.1/"_s)), 0ms);
  now += 50s;
  EXPECT_EQ(courtesy.claim(far), 0ms);
  EXPECT_EQ(courtesy.claim(far), 100ms);
  courtesy.keepApart(1s);
  const QUrl near(u"https://other.example/2"_s);
  EXPECT_EQ(courtesy.claim(near), 0ms);
  now += 400ms;
  EXPECT_EQ(courtesy.claim(near), 600ms);
  EXPECT_EQ(courtesy.claim(QUrl(u"http://127.0.0.1/"_s)), 0ms);
  const QByteArray inTwoMinutes =
      QLocale::c()
          .toString(QDateTime::currentDateTimeUtc().addSecs(120), u"ddd, dd MMM yyyy hh:mm:ss 'GMT'")
          .toLatin1();
  const struct {
    QByteArray retryAfter;
    Courtesy::Time::duration least;
    Courtesy::Time::duration most;
  } cases[] = {{"20", 19s, 20s},
               {"-5", 0s, 1s},
               {"99999", 30min - 1s, 30min},
               {"", 59s, 60s},
               {inTwoMinutes, 117s, 121s}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.retryAfter.toStdString());
    courtesy.leaveAlone(far, c.retryAfter);
    EXPECT_TRUE(courtesy.isLeftAlone(far));
    now += c.least;
    EXPECT_EQ(courtesy.isLeftAlone(far), true);
    now += c.most - c.least;
    EXPECT_FALSE(courtesy.isLeftAlone(far));
  }
}

TEST_F(NetInetTest, FollowsRedirectsWithinTheServerAlone) {
  EndpointServer other;
  ASSERT_TRUE(other.start());
  other.setFile(u"/b"_s, report);
  server.setFile(u"/b"_s, report);
  QStringList asked;
  inet.onRequest([&](const QUrl& url) { asked.append(url.path()); });
  const QByteArray here = server.baseAddress().toLatin1();
  const struct {
    QByteArray to;
    bool followed;
  } cases[] = {{"/b", true},
               {here + "/b", true},
               {other.baseAddress().toLatin1() + "/b", false},
               {QByteArray(here).replace("127.0.0.1", "localhost") + "/b", false},
               {QByteArray(here).replace("http:", "https:") + "/b", false},
               {"file:///etc/hostname", false},
               {"", false}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.to.toStdString());
    server.setAnswer(u"/a"_s, {.body = "moved\n", .status = 301, .headers = {{"Location", c.to}}});
    EXPECT_EQ(inet.open(at(u"/a"_s)).body, c.followed ? report : QByteArray());
  }
  EXPECT_EQ(asked.size(), qsizetype(std::size(cases)));
  EXPECT_EQ(other.requests(), QStringList());
}

TEST_F(NetInetTest, AsksThroughTheProxyOfTheEnvironmentButNeverForLoopback) {
  LineServer proxy([](LineServer::Request& request) {
    const bool first = request.target.endsWith("/a");
    request.send(first ? "HTTP/1.1 302 Moved\r\nContent-Length: 0\r\nLocation: http://c.invalid/b\r\n\r\n"
                       : whole);
  });
  qputenv("http_proxy", proxy.at({}).toEncoded());
  qputenv("no_proxy", "x.invalid, .y.invalid");
  EXPECT_EQ(inet.open(QUrl(u"http://b.invalid/a"_s)).body, "4.31");
  for (const QString& host : {u"x.invalid"_s, u"z.y.invalid"_s, u"[::1]:1"_s})
    EXPECT_EQ(inet.open(QUrl(u"http://"_s + host)).failure, NetFailure::Unreachable);
  EXPECT_TRUE(inet.open(at(u"/unknown"_s)).ok);
  qunsetenv("http_proxy");
  qunsetenv("no_proxy");
  EXPECT_EQ(proxy.requests, (QByteArrayList{"http://b.invalid/a", "http://c.invalid/b"}));
}

TEST_F(NetInetTest, EndsAtTheTimeOutEvenWhileBytesComeIn) {
  server.setFile(u"/silent"_s, report);
  server.setDelivery(u"/silent"_s, {.delay = 60'000});
  server.setFile(u"/slow"_s, report.repeated(10));
  server.setDelivery(u"/slow"_s, {.dripBytes = 5, .dripPause = 50});
  inet.setRequestTimeout(1);
  for (const QString& path : {u"/silent"_s, u"/slow"_s}) {
    QElapsedTimer time;
    time.start();
    const Reply reply = inet.open(at(path));
    EXPECT_FALSE(reply.ok);
    EXPECT_EQ(reply.body, QByteArray());
    EXPECT_GE(time.elapsed(), 950);
    EXPECT_LT(time.elapsed(), 3000);
  }
}

TEST_F(NetInetTest, CancelEndsTheTransfersOfItsOwnClientOnly) {
  server.setFile(u"/silent"_s, report);
  server.setDelivery(u"/silent"_s, {.delay = 60'000});
  server.setFile(u"/other"_s, report);
  server.setDelivery(u"/other"_s, {.delay = 200});
  NetInet second(network, shutdown);
  Reply other;
  bool executing = false;
  after(20, [&] { other = second.open(at(u"/other"_s)); });
  after(100, [&] {
    executing = inet.stillExecuting();
    inet.cancel();
  });
  EXPECT_FALSE(inet.open(at(u"/silent"_s)).ok);
  EXPECT_TRUE(executing);
  EXPECT_TRUE(other.ok);
}

TEST_F(NetInetTest, ShutdownUnwindsEveryWaitAtOnce) {
  server.setFile(u"/silent"_s, report);
  server.setDelivery(u"/silent"_s, {.delay = 60'000});
  bool innerUnwound = false;
  after(20, [&] {
    try {
      inet.open(at(u"/silent"_s));
    } catch (const Unwind&) {
      innerUnwound = true;
    }
  });
  after(100, [&] { shutdown.request(); });
  QElapsedTimer time;
  time.start();
  EXPECT_THROW(inet.open(at(u"/silent"_s)), Unwind);
  EXPECT_LT(time.elapsed(), 2000);
  EXPECT_TRUE(innerUnwound);
  server.clearRequests();
  EXPECT_THROW(inet.open(at(u"/silent"_s)), Unwind);
  EXPECT_EQ(server.requests(), QStringList());
}

TEST_F(NetInetTest, AnOpenInsideAWaitHasItsOwnAnswer) {
  server.setFile(u"/outer"_s, "outer");
  server.setFile(u"/inner"_s, "inner");
  // The outer answer comes before the inner one, and then behind it.
  for (const auto& [outerDelay, innerDelay] : {std::pair{100, 300}, std::pair{300, 50}}) {
    server.setDelivery(u"/outer"_s, {.delay = outerDelay});
    server.setDelivery(u"/inner"_s, {.delay = innerDelay});
    QByteArray inner;
    after(20, [&] { inner = inet.open(at(u"/inner"_s)).body; });
    EXPECT_EQ(inet.open(at(u"/outer"_s)).body, "outer");
    EXPECT_EQ(inner, "inner");
    EXPECT_FALSE(inet.stillExecuting());
  }
}

TEST_F(NetInetTest, TheTimeOfATransferBegunAheadCountsFromWhenItIsSent) {
  server.setHandler(u"/"_s, [](const QUrl& url) { return Answer{.body = url.path().toLatin1()}; });
  server.setDelivery(u"/"_s, {.delay = 1600});
  server.setDelivery(u"/open"_s, {});
  inet.setRequestTimeout(3);
  int asked = 0;
  inet.onRequest([&](const QUrl&) { ++asked; });
  std::vector<std::unique_ptr<Transfer>> transfers(10);
  QStringList ended;
  for (size_t i = 0; i < transfers.size(); ++i)
    transfers[i] =
        inet.begin(at(u'/' + QString::number(i)), [&](const Reply& reply) { ended.append(reply.text()); });
  EXPECT_EQ(inet.open(at(u"/open"_s)).body, "/open");
  EXPECT_EQ(ended, QStringList()); // those ahead left it a connection
  EXPECT_EQ(asked, 6);
  for (int i = 9; i >= 0; --i)
    EXPECT_EQ(transfers[size_t(i)]->take().body, '/' + QByteArray::number(i));
  EXPECT_EQ(ended.size(), 10);
  EXPECT_FALSE(inet.stillExecuting());
}

TEST_F(NetInetTest, WhatIsBegunAheadEndsWithItsWaitItsOwnerOrTheProgram) {
  server.setFile(u"/silent"_s, report);
  server.setDelivery(u"/silent"_s, {.delay = 60'000});
  server.setFile(u"/late"_s, report);
  server.setDelivery(u"/late"_s, {.delay = 200});
  QStringList asked;
  inet.onRequest([&](const QUrl& url) { asked.append(url.path()); });
  const auto begin = [&](const QString& path) { return inet.begin(at(path), [](const Reply&) {}); };
  const auto waited = begin(u"/silent"_s);
  const auto late = begin(u"/late"_s);
  after(50, [&] { inet.cancel(); });
  EXPECT_FALSE(waited->take().ok);
  EXPECT_EQ(late->take().body, report);
  std::vector<std::unique_ptr<Transfer>> silent(8);
  for (auto& transfer : silent)
    transfer = begin(u"/silent"_s);
  EXPECT_EQ(asked.size(), 2 + 5);
  // One that is still queued goes unasked; one that is waited for stands behind nothing.
  silent.pop_back();
  EXPECT_EQ(asked.size(), 2 + 5);
  after(50, [&] { inet.cancel(); });
  EXPECT_FALSE(silent.back()->take().ok);
  EXPECT_EQ(asked.size(), 2 + 6);
  after(50, [&] { shutdown.request(); });
  EXPECT_THROW(silent.front()->take(), Unwind);
  EXPECT_THROW(begin(u"/late"_s)->take(), Unwind);
  EXPECT_EQ(asked.size(), 2 + 6);
  EXPECT_FALSE(inet.stillExecuting());
}

TEST_F(NetInetTest, FortyStationsShareOneConnection) {
  server.setHandler(u"/"_s, [](const QUrl& url) { return Answer{.body = url.path().toLatin1()}; });
  server.setDelivery(u"/"_s, {.delay = 50});
  NetInet second(network, shutdown);
  for (int i = 0; i < 40; ++i) {
    const QString path = u"/%1.TXT"_s.arg(i);
    EXPECT_EQ((i % 2 ? second : inet).open(at(path)).body, path.toLatin1());
  }
  EXPECT_EQ(server.connections(), 1);
  inet.distrustConnections();
  EXPECT_TRUE(second.open(at(u"/1.TXT"_s)).ok);
  EXPECT_EQ(server.connections(), 2);
}

TEST_F(NetInetTest, AConnectionThatDiedMeanwhileIsMadeAnew) {
  server.setFile(u"/a"_s, report);
  EXPECT_TRUE(inet.open(at(u"/a"_s)).ok);
  // Without a turn of the event loop in between the client has not yet seen the end of its connection.
  server.stop();
  ASSERT_TRUE(server.start());
  EXPECT_EQ(inet.open(at(u"/a"_s)).body, report);
  server.stop();
  EXPECT_FALSE(inet.open(at(u"/a"_s)).ok);
  ASSERT_TRUE(server.start());
  EXPECT_EQ(inet.open(at(u"/a"_s)).body, report);
}

TEST_F(NetInetTest, AStationCodeArrivesAsItWasAsked) {
  server.setFile(u"/羽田 ?.TXT"_s, report);
  EXPECT_EQ(inet.open(at(u"/%E7%BE%BD%E7%94%B0%20%3F.TXT?a=b%26c"_s)).body, report);
  EXPECT_EQ(server.requests(), QStringList{u"/%E7%BE%BD%E7%94%B0%20%3F.TXT?a=b%26c"_s});
}

TEST_F(NetInetTest, ReadsFoldersByTheSameRules) {
  OwnFolder folder;
  ASSERT_TRUE(QDir(folder.path()).mkpath(u"sub"_s));
  const auto write = [&](const QString& name, const QByteArray& bytes) {
    QFile file(folder.filePath(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
  };
  write(u"RJTT.TXT"_s, report);
  write(u"empty"_s, "");
  write(u"羽田 1.TXT"_s, "<html>");
  write(u"large"_s, QByteArray(100'001, 'x'));
  const struct {
    QString path;
    bool ok;
    QByteArray body = {};
  } cases[] = {
      {u"/RJTT.TXT"_s, true, report},
      {u"/sub/../RJTT.TXT"_s, true, report},
      {u"/empty"_s, true},
      {u"/%E7%BE%BD%E7%94%B0%201.TXT"_s, true, "<html>"},
      {u"/large"_s, false},
      {u"/missing"_s, false},
      {u"/sub"_s, false},
      {u"/sub/..%2FRJTT.TXT"_s, false},
      {u"/RJTT.TXT%00"_s, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.path.toStdString());
    const Reply reply = inet.open(QUrl(QUrl::fromLocalFile(folder.path()).toString() + c.path));
    EXPECT_EQ(reply.ok, c.ok);
    EXPECT_EQ(reply.body, c.body);
  }
}

TEST(Reply, TextIsUtf8WhereValidElseLatin1) {
  const struct {
    QByteArray body;
    QStringView text;
  } cases[] = {
      {"", u""},
      {"RJTT\r\n", u"RJTT\r\n"},
      {"\xe7\xbe\xbd", u"羽"},
      {"caf\xe9", u"caf\u00e9"},
      {"\xe7\xbe", u"\u00e7\u00be"},
      {"\xef\xbb\xbfRJTT", u"\ufeffRJTT"},
      {"\xc0\xaf", u"\u00c0\u00af"},
  };
  for (const auto& c : cases)
    EXPECT_EQ(Reply({.ok = true, .body = c.body}).text(), c.text) << c.body.toHex().toStdString();
}
