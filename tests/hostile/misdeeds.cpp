// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "hostile/misdeeds.h"

namespace soran::hostile {

namespace {

using enum Shows;
using enum Misdeed::Of;
using Bytes = QByteArray;
using D = Dice;
using M = Material;
using End = Script::End;

const Bytes ok = "HTTP/1.1 200 OK\r\n";

Bytes lengthOf(const Bytes& body) {
  return "Content-Length: " + Bytes::number(body.size()) + "\r\n";
}

Bytes sized(const Bytes& body, const Bytes& status = ok, const Bytes& headers = {}) {
  return status + lengthOf(body) + headers + "\r\n" + body;
}

Bytes chunk(const Bytes& data, const Bytes& behindSize = {}) {
  return Bytes::number(data.size(), 16) + behindSize + "\r\n" + data + "\r\n";
}

const Bytes chunkedHead = ok + "Transfer-Encoding: chunked\r\n\r\n";

Bytes chunked(D& d, const Bytes& body, const Bytes& extension = {}, const Bytes& trailers = {}) {
  const qsizetype first = d.from(1, body.size() - 1);
  return chunkedHead + chunk(body.left(first), extension) + chunk(body.mid(first), extension) + "0\r\n" +
         trailers + "\r\n";
}

Bytes whole(D& d, const Bytes& body) {
  return d.below(2) ? sized(body) : chunked(d, body);
}

Script cut(D& d, const Bytes& bytes) {
  return {.pieces = {bytes.left(d.below(bytes.size()))}, .end = d.below(2) ? End::Close : End::Reset};
}

Script redirect(D& d, const Bytes& to, Shows shows) {
  const Bytes statuses[] = {"301", "302", "303", "307", "308"};
  return {
      .pieces = {sized("moved\n", "HTTP/1.1 " + d.oneOf(statuses) + " Off\r\n", "Location: " + to + "\r\n")},
      .shows = shows};
}

Bytes here(const M& m, const Bytes& host = "127.0.0.1") {
  return "http://" + host + ':' + Bytes::number(m.port);
}

/// A place inside the true report behind its head.
Script spoilt(D& d, const M& m, const Bytes& with) {
  const qsizetype at = d.from(m.body.lastIndexOf(" END") + 2, m.body.size() - 1);
  const Bytes body = Bytes(m.body).insert(at, with);
  return {.pieces = {whole(d, body)}, .shows = Itself, .body = body};
}

const Misdeed all[] = {
    {"cut with a length", Transfer, [](D& d, const M& m) { return cut(d, sized(m.body)); }},
    {"cut in chunks", Transfer, [](D& d, const M& m) { return cut(d, chunked(d, m.body)); }},
    {"cut without a length", Transfer,
     [](D& d, const M& m) -> Script {
       // Behind a line it cannot be told.
       Bytes part = "\n";
       while (part.endsWith('\n') || part.endsWith('>'))
         part = m.body.left(d.below(m.body.size()));
       return {.pieces = {ok + "\r\n" + part}, .end = End::Close};
     }},
    {"no length and a reset", Transfer,
     [](D&, const M& m) -> Script { return {.pieces = {ok + "\r\n" + m.body}, .end = End::Reset}; }},
    {"no length, whole", Transfer,
     [](D&, const M& m) -> Script {
       return {.pieces = {ok + "\r\n" + m.body}, .end = End::Close, .shows = Truth};
     }},
    {"a false length", Transfer,
     [](D& d, const M& m) -> Script {
       const qsizetype off = d.from(1, 12) * (d.below(2) ? 1 : -1);
       const Bytes length = Bytes::number(m.body.size() + off);
       return {.pieces = {ok + "Content-Length: " + length + "\r\n\r\n" + m.body}, .end = End::Close};
     }},
    {"a malformed length", Transfer,
     [](D& d, const M& m) -> Script {
       const Bytes n = Bytes::number(m.body.size());
       const Bytes lengths[] = {
           "+" + n,  "-" + n,  "",     n + ".0", n + ", " + n,           n + " " + n,
           "0x" + n, n + "e0", "many", n + ";",  "99999999999999999999", "1" + n.repeated(9)};
       return {.pieces = {ok + "Content-Length: " + d.oneOf(lengths) + "\r\n\r\n" + m.body},
               .end = End::Close};
     }},
    {"two lengths", Transfer,
     [](D& d, const M& m) -> Script {
       const Bytes second = "Content-Length: " + Bytes::number(d.below(m.body.size())) + "\r\n";
       return {.pieces = {sized(m.body, d.below(2) ? ok : ok + second, second)}, .end = End::Close};
     }},
    {"a length and chunks", Transfer,
     [](D& d, const M& m) -> Script {
       return {.pieces = {chunked(d, m.body).insert(ok.size(), lengthOf(m.body))}};
     }},
    {"a false chunk size", Transfer,
     [](D& d, const M& m) -> Script {
       const qsizetype off = d.from(1, 12) * (d.below(2) ? 1 : -1);
       return {.pieces = {chunkedHead + Bytes::number(m.body.size() + off, 16) + "\r\n" + m.body +
                          "\r\n0\r\n\r\n"},
               .end = End::Close};
     }},
    {"a malformed chunk size", Transfer,
     [](D& d, const M& m) -> Script {
       const Bytes n = Bytes::number(m.body.size(), 16);
       const Bytes sizes[] = {
           "\r\n",   "-" + n + "\r\n",       "0x" + n + "\r\n",    n + "g\r\n",      " " + n + "\r\n",
           n + "\n", "ffffffffffffffff\r\n", n + "," + n + "\r\n", "\t" + n + "\r\n"};
       return {.pieces = {chunkedHead + d.oneOf(sizes) + m.body + "\r\n0\r\n\r\n"}, .end = End::Close};
     }},
    {"chunks run together", Transfer,
     [](D&, const M& m) -> Script {
       return {.pieces = {chunkedHead + chunk(m.body).chopped(2) + "0\r\n\r\n"}, .end = End::Close};
     }},
    {"encoded", Transfer,
     [](D& d, const M& m) -> Script {
       const Bytes codings[] = {"gzip", "x-gzip", "deflate", "br", "zstd", "identity, gzip", "aes128gcm"};
       return {.pieces = {sized(m.body, ok, "Content-Encoding: " + d.oneOf(codings) + "\r\n")}};
     }},
    {"another transfer coding", Transfer,
     [](D& d, const M& m) -> Script {
       const Bytes codings[] = {"gzip", "gzip, chunked", "chunked, chunked", "xchunked", "identity", ""};
       return {.pieces = {ok + "Transfer-Encoding: " + d.oneOf(codings) + "\r\n\r\n" + chunk(m.body) +
                          "0\r\n\r\n"},
               .end = End::Close};
     }},
    {"giant headers", Transfer,
     [](D& d, const M& m) -> Script {
       const Bytes heads[] = {"X: " + Bytes(66000, 'x') + "\r\n", Bytes("X: y\r\n").repeated(11000),
                              Bytes(66000, 'x')};
       return {.pieces = {sized(m.body, ok, d.oneOf(heads))}};
     }},
    {"giant trailers", Transfer,
     [](D& d, const M& m) -> Script {
       return {.pieces = {chunked(d, m.body, {}, Bytes("X: y\r\n").repeated(11000))}};
     }},
    {"a malformed header", Transfer,
     [](D& d, const M& m) -> Script {
       const Bytes headers[] = {"X: 1\r\n 2\r\n", "X\r\n",          "X : 1\r\n",   Bytes("X: \0\r\n", 6),
                                ": 1\r\n",        "X: \x1b[2J\r\n", "X: 1\r2\r\n", "\xe6\x97\xa5: 1\r\n"};
       return {.pieces = {sized(m.body, ok, d.oneOf(headers))}, .end = End::Close};
     }},
    {"another status", Transfer,
     [](D& d, const M& m) -> Script {
       const Bytes statuses[] = {
           "100 Go",      "101 Switch", "102 Wait",  "103 Hints", "199 X",  "201 Made",   "202 Later",
           "203 Altered", "204 None",   "205 Reset", "206 Part",  "226 IM", "300 Choose", "302 Off",
           "304 Same",    "306 X",      "399 X",     "401 Who",   "403 No", "404 None",   "407 Proxy",
           "408 Late",    "410 Gone",   "429 Many",  "500 X",     "502 X",  "503 X",      "504 X",
           "511 Login",   "599 X",      "600 X",     "999 X",     "000 X",  "20 X",       "2000 X",
           "-200 X",      "200OK",      "2OO OK",    "",          "0200 X"};
       const Bytes status = d.oneOf(statuses);
       const bool leavesAlone = status.startsWith("429");
       return {
           .pieces = {sized(m.body, "HTTP/1.1 " + status + "\r\n", leavesAlone ? "Retry-After: 1\r\n" : "")},
           .end = End::Close,
           .leavesAlone = leavesAlone};
     }},
    {"another protocol", Transfer,
     [](D& d, const M& m) -> Script {
       const Bytes lines[] = {"HTTP/2 200 OK\r\n",
                              "HTTP/1.2 200 OK\r\n",
                              "HTTP/0.9 200 OK\r\n",
                              "http/1.1 200 OK\r\n",
                              "ICY 200 OK\r\n",
                              "HTTP/1.1\t200 OK\r\n",
                              " HTTP/1.1 200 OK\r\n",
                              "\r\n" + ok,
                              "200 OK\r\n",
                              "220 ready\r\n",
                              ""};
       return {.pieces = {sized(m.body, d.oneOf(lines))}, .end = End::Close};
     }},
    {"on its way first", Transfer,
     [](D& d, const M& m) -> Script {
       const Bytes first[] = {"100 Continue", "102 Processing", "103 Early Hints"};
       return {.pieces = {"HTTP/1.1 " + d.oneOf(first) + "\r\n\r\n", sized(m.body)}};
     }},
    {"something behind it", Transfer,
     [](D& d, const M& m) -> Script {
       const Bytes second[] = {sized(m.body),
                               sized(m.other),
                               sized(m.other).left(d.from(1, 60)),
                               sized("<late>", "HTTP/1.1 408 Late\r\n"),
                               "\r\n",
                               sized("late", "HTTP/1.1 408 Late\r\n", "Connection: close\r\n"),
                               "garbage\n"};
       return {.pieces = {whole(d, m.body)},
               .shows = Either,
               .surplus = d.oneOf(second),
               .surplusAfter = int(d.below(4))};
     }},
    {"something ahead of it", Transfer,
     [](D& d, const M& m) -> Script {
       const Bytes first[] = {sized(m.other), sized("<late>", "HTTP/1.1 408 Late\r\n"), "garbage\r\n\r\n",
                              m.other, sized(m.other).left(d.from(1, 60))};
       return {.pieces = {d.oneOf(first) + sized(m.body)}, .end = End::Close};
     }},
    {"a 408 that hangs up", Transfer,
     [](D& d, const M&) -> Script {
       return {.pieces = {sized(d.below(2) ? "late" : "", "HTTP/1.1 408 Late\r\n", "Connection: close\r\n")},
               .end = End::Close};
     }},
    {"slow bytes", Transfer,
     [](D& d, const M& m) -> Script {
       const Bytes bytes = whole(d, m.body);
       Script script{.pieces = {}, .shows = Truth};
       const qsizetype step = bytes.size() / d.from(2, 60) + 1;
       for (qsizetype at = 0; at < bytes.size(); at += step)
         script.pieces.append(bytes.mid(at, step));
       return script;
     }},
    {"hangs up", Transfer,
     [](D& d, const M&) -> Script {
       return {.pieces = {}, .end = d.below(2) ? End::Close : End::Reset, .askedAgain = true};
     }},
    {"strange but whole", Transfer,
     [](D& d, const M& m) -> Script {
       const Bytes length = Bytes::number(m.body.size());
       const Bytes answers[] = {sized(m.body, ok, lengthOf(m.body)),
                                ok + "content-length:\t" + length + " \r\n\r\n" + m.body,
                                "HTTP/1.1 200\r\nCONTENT-LENGTH:" + length + "\r\n\r\n" + m.body,
                                "HTTP/1.0 200 OK\nContent-Length: " + length + "\n\n" + m.body,
                                chunked(d, m.body, ";a=b"),
                                chunked(d, m.body, "  ", "X: y\r\n"),
                                sized(m.body, ok, "Content-Encoding: identity\r\nX: \xe6\x97\xa5\r\n")};
       return {.pieces = {d.oneOf(answers)}, .shows = Truth};
     }},
    {"sent on here", Transfer,
     [](D& d, const M& m) {
       const Bytes name = m.path.mid(m.path.lastIndexOf('/') + 1);
       const Bytes places[] = {m.path, here(m) + m.path, name, "./" + name, "?", here(m).mid(5) + m.path};
       return redirect(d, Bytes(d.oneOf(places) + "?again").replace("??", "?"), Truth);
     }},
    {"sent on elsewhere", Transfer,
     [](D& d, const M& m) {
       const Bytes lure = "/lure" + m.path;
       const Bytes places[] = {here(m, "localhost") + lure,
                               here(m, "127.0.0.2") + lure,
                               here(m, "[::ffff:127.0.0.1]") + lure,
                               here(m, "0.0.0.0") + lure,
                               here(m).replace("http:", "https:") + lure,
                               here(m).replace("http:", "ftp:") + lure,
                               "http://127.0.0.1:" + Bytes::number(m.port % 65535 + 1) + lure,
                               "http://127.0.0.1" + lure,
                               here(m, "localhost").mid(5) + lure,
                               "file:///etc/hostname",
                               "qrc:/lure",
                               "data:text/plain,lure",
                               "javascript:lure()",
                               "http://",
                               "",
                               ":",
                               here(m) + m.path + Bytes(70000, 'x')};
       return redirect(d, d.oneOf(places), Refusal);
     }},
    {"sent round", Transfer, [](D& d, const M& m) { return redirect(d, m.path, Refusal); }},
    {"sent two ways", Transfer,
     [](D& d, const M& m) { return redirect(d, m.path + "?again\r\nLocation: /lure" + m.path, Refusal); }},
    {"silence", Silence, [](D&, const M&) -> Script { return {}; }},
    {"sent on to another station", Content,
     [](D& d, const M& m) { return redirect(d, m.otherPath, Refusal); }},
    {"another station", Content, [](D& d, const M& m) -> Script { return {.pieces = {whole(d, m.other)}}; }},
    {"an older report", Content,
     [](D& d, const M& m) -> Script {
       return {.pieces = {whole(d, m.older)}, .shows = Itself, .body = m.older};
     }},
    {"a report of the future", Content,
     [](D& d, const M& m) -> Script {
       return {.pieces = {whole(d, m.future)}, .shows = Itself, .body = m.future};
     }},
    {"nothing", Content,
     [](D& d, const M& m) -> Script {
       const Bytes bodies[] = {"",
                               "\r\n",
                               " \t\n \n",
                               "\xEF\xBB\xBF",
                               "0",
                               "NIL\n",
                               m.body.left(m.body.indexOf('\n') + 1),
                               "SYSTEM MAINTENANCE UNTIL 0600Z\n",
                               "\xE3\x83\xA1\xE3\x83\xB3\xE3\x83\x86\xE3\x83\x8A\xE3\x83\xB3\xE3\x82\xB9\n"};
       const Bytes body = d.oneOf(bodies);
       return {.pieces = {d.below(2) || body.size() < 2 ? sized(body) : chunked(d, body)}};
     }},
    {"bytes of any kind", Content,
     [](D& d, const M&) -> Script {
       Bytes body(d.from(2, 300), '\0');
       for (char& c : body)
         c = char(d.below(256));
       return {.pieces = {whole(d, body.replace('<', '?'))}};
     }},
    {"its code in disguise", Content,
     [](D& d, const M& m) -> Script {
       const Bytes masks[] = {"\xE2\x80\x8B", "\xE2\x80\xAE", Bytes(1, '\0'), "\x1b", "\xC2\xAD", "X"};
       return {.pieces = {whole(d, Bytes(m.body).replace("RJ", Bytes("RJ" + d.oneOf(masks))))}};
     }},
    {"controls", Content,
     [](D& d, const M& m) {
       const Bytes controls[] = {Bytes(1, '\0'), "\x1b[2J",      "\x07",         "\x7f",         "\xC2\x9B",
                                 "\xE2\x80\xAE", "\xE2\x80\x8B", "\xE2\x80\xA8", "\xEF\xBB\xBF", "\b\b\b"};
       return spoilt(d, m, d.oneOf(controls));
     }},
    {"invalid UTF-8", Content,
     [](D& d, const M& m) {
       const Bytes invalid[] = {"\xC0\xAF", "\xE7\xBE", "\xFF", "\xED\xA0\x80", "\x89\x48", "\xF8\x88"};
       return spoilt(d, m, d.oneOf(invalid));
     }},
    {"a page", Page,
     [](D& d, const M& m) -> Script {
       const Bytes statuses[] = {"200 OK", "403 No", "404 None", "500 X", "503 X", "511 Login"};
       const Bytes bodies[] = {"<html>Please log in</html>", "<" + m.body, "<!-- " + m.body + " -->", "<"};
       return {.pieces = {sized(d.oneOf(bodies), "HTTP/1.1 " + d.oneOf(statuses) + "\r\n")}};
     }},
    {"a page behind blanks", Page,
     [](D& d, const M& m) -> Script {
       const Bytes blanks[] = {" ", "\r\n", "\t", "\xEF\xBB\xBF", "\xEF\xBB\xBF\n"};
       return {.pieces = {whole(d, d.oneOf(blanks) + "<html>" + m.body + "</html>")}};
     }},
};

} // namespace

std::span<const Misdeed> misdeeds() {
  return all;
}

Script honest(const QByteArray& body) {
  return {.pieces = {sized(body)}, .shows = Truth};
}

} // namespace soran::hostile
