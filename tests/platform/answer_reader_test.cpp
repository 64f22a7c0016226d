// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/answer_reader.h"

#include "support/printing.h"

#include <gtest/gtest.h>

using namespace soran;

namespace {

constexpr qint64 limit = 1000;

/// The answer in pieces of so many bytes, and then the end of the connection.
AnswerReader read(const QByteArray& answer, qsizetype piece, bool properly = true) {
  AnswerReader reader(limit, true);
  for (qsizetype at = 0; at < answer.size(); at += piece)
    reader.add(answer.mid(at, piece));
  reader.endOfConnection(properly);
  return reader;
}

const QByteArray ok = "HTTP/1.1 200 OK\r\n";
const QByteArray report = "2026/11/24 05:00\nRJTT 240500Z 36010KT\n";
const QByteArray sized = ok + "Content-Length: 38\r\n\r\n" + report;
const QByteArray chunks = ok + "Transfer-Encoding: Chunked\r\n\r\n";
const QByteArray chunked = chunks + "11\r\n" + report.left(17) + "\r\n0015  ;x=1\r\n" + report.mid(17) +
                           "\r\n0\r\nDigest: x\r\n\r\n";

} // namespace

TEST(AnswerReader, TakesWhatIsWholeAndRefusesEverythingElse) {
  using enum NetFailure;
  const QByteArray page = "<p>gone";
  const struct {
    const char* name;
    QByteArray answer;
    NetFailure failure = None;
    QByteArray body = report;
  } cases[] = {
      {"with a length", sized},
      {"in chunks", chunked},
      {"up to the end of the connection", ok + "\r\n" + report},
      {"of an old server", "HTTP/1.0 200\r\nContent-Type: text/plain\r\n\r\n" + report},
      {"lines without a carriage return", "HTTP/1.1 200 OK\nContent-Length: 38\n\n" + report},
      {"the same length twice", ok + "Content-Length: 38\r\n" + sized.mid(ok.size())},
      {"not encoded", ok + "Content-Encoding: identity\r\n" + sized.mid(ok.size())},
      {"bytes up to the end of the connection", ok + "Content-Type: image/png\r\n\r\nPNG", None, "PNG"},
      {"a page with an error", "HTTP/1.1 404 No\r\nContent-Length: 7\r\n\r\n" + page, None, page},
      {"another text with an error", "HTTP/1.1 404 No\r\nContent-Length: 4\r\n\r\ngone", Status},
      {"a text that ends in its line", ok + "\r\n" + report.chopped(1), Cut},
      {"two lengths", ok + "Content-Length: 39\r\n" + sized.mid(ok.size()), Cut},
      {"a list of lengths", ok + "Content-Length: 38, 38\r\n\r\n" + report, Cut},
      {"a length with a sign", ok + "Content-Length: +38\r\n\r\n" + report, Cut},
      {"no length", ok + "Content-Length:\r\n\r\n" + report, Cut},
      {"a length and chunks", ok + "Content-Length: 38\r\n" + chunked.mid(ok.size()), Cut},
      {"a length beyond the limit", ok + "Content-Length: 1001\r\n\r\n", TooLarge},
      {"a length beyond all limits", ok + "Content-Length: 99999999999999999999\r\n\r\n", Cut},
      {"endless", ok + "\r\n" + QByteArray(1001, '\n'), TooLarge},
      {"a chunk beyond the limit", chunks + "3e9\r\n", TooLarge},
      {"a wrong chunk size", chunks + "4x\r\n4.31\r\n0\r\n\r\n", Cut},
      {"a negative chunk size", chunks + "-1\r\n4.31\r\n0\r\n\r\n", Cut},
      {"a chunk longer than its size", chunks + "3\r\n4.31\r\n0\r\n\r\n", Cut},
      {"a chunk shorter than its size", chunks + "5\r\n4.31\r\n0\r\n\r\n", Cut},
      {"without the last chunk", chunks + "4\r\n4.31\r\n", Cut},
      {"compressed", ok + "Content-Encoding: gzip\r\n" + sized.mid(ok.size()), Cut},
      {"in another coding", ok + "Transfer-Encoding: gzip, chunked\r\n\r\n", Cut},
      {"empty", ok + "Content-Length: 0\r\n\r\n", None, {}},
      {"empty, in chunks", chunks + "0\r\n\r\n", None, {}},
      {"on the way", "HTTP/1.1 100 Continue\r\n\r\n" + sized, Cut},
      {"another protocol", "HTTP/1.1 101 Switch\r\n\r\n", Cut},
      {"no content", "HTTP/1.1 204 No\r\n\r\n" + report, Status},
      {"a part", "HTTP/1.1 206 Part\r\n" + sized.mid(ok.size()), Status},
      {"not modified", "HTTP/1.1 304 Same\r\n" + sized.mid(ok.size()), Status},
      {"a redirect to nowhere", "HTTP/1.1 302 Off\r\n" + sized.mid(ok.size()), Status},
      {"no answer", report, Cut},
      {"a later protocol", "HTTP/2 200\r\n" + sized.mid(ok.size()), Cut},
      {"no status", "HTTP/1.1 2000\r\n" + sized.mid(ok.size()), Cut},
      {"a folded header", ok + "X: 1\r\n 2\r\n" + sized.mid(ok.size()), Cut},
      {"a header without a colon", ok + "X\r\n" + sized.mid(ok.size()), Cut},
      {"a control in a header", ok + QByteArray("X: \0\r\n", 6) + sized.mid(ok.size()), Cut},
      {"a giant header", ok + "X: " + QByteArray(65536, 'x') + "\r\n" + sized.mid(ok.size()), TooLarge},
      {"many headers", ok + QByteArray("X: y\r\n").repeated(11000) + sized.mid(ok.size()), TooLarge},
      {"many trailers", chunked.chopped(2) + QByteArray("X: y\r\n").repeated(11000), TooLarge},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    for (const qsizetype piece : {c.answer.size(), qsizetype(1), qsizetype(7)}) {
      AnswerReader reader = read(c.answer, piece);
      EXPECT_EQ(reader.failure(), c.failure);
      EXPECT_TRUE(reader.ended());
      if (c.failure == None) {
        EXPECT_TRUE(reader.isWhole());
        EXPECT_EQ(reader.takeBody(), c.body);
      }
    }
  }
}

TEST(AnswerReader, IsWholeNowhereBeforeItsEndAndSeesWhatComesBehindIt) {
  for (const QByteArray& answer : {sized, chunked}) {
    for (qsizetype cut = 0; cut < answer.size(); ++cut)
      EXPECT_EQ(read(answer.left(cut), answer.size()).failure(), NetFailure::Cut) << cut;
    for (const qsizetype piece : {answer.size() + 1, answer.size()}) {
      EXPECT_TRUE(read(answer + 'x', piece).hasSurplus());
      EXPECT_FALSE(read(answer, piece).hasSurplus());
    }
  }
  EXPECT_EQ(read(ok + "\r\n" + report, 1, false).failure(), NetFailure::Cut);
  AnswerReader secure(limit, false);
  secure.add(QByteArray(ok + "\r\n" + report));
  secure.endOfConnection(true);
  EXPECT_EQ(secure.failure(), NetFailure::Cut);
}
