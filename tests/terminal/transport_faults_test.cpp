// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/harness.h"

#include <QElapsedTimer>

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

struct TransportFault {
  const char* name;
  QByteArray wind = "18005KT";         ///< the word of RJAA's files that a fault spoils
  std::optional<QByteArray> body = {}; ///< what comes in the place of the file
  int status = 200;
  Delivery delivery = {};
  std::optional<QString> shown = {}; ///< the word on the screen; nothing where the transfer counts as refused
  bool stopped = false;              ///< nobody listens
  bool nameless = false;             ///< the host has no address
};

void PrintTo(const TransportFault& fault, std::ostream* out) {
  *out << fault.name;
}

const TransportFault faults[] = {
    {.name = "no network", .stopped = true},
    {.name = "no name service", .nameless = true},
    {.name = "cut in the head", .delivery = {.cutHead = true}},
    {.name = "cut before the body", .delivery = {.cutAt = 0}},
    {.name = "cut in the body", .delivery = {.cutAt = 30}},
    {.name = "cut in a chunk", .delivery = {.chunked = true, .cutAt = 30}},
    {.name = "a page", .body = "<html>Please log in</html>"},
    {.name = "an error page", .body = "<html>gone</html>", .status = 503},
    {.name = "an error without a page", .body = "RJTT 240500Z 36010KT", .status = 500},
    {.name = "silence", .delivery = {.delay = 60'000}},
    {.name = "a slow drip", .delivery = {.dripBytes = 1, .dripPause = 100}},
    {.name = "no end, slow",
     .wind = QByteArray(3'000'000, 'A'),
     .delivery = {.dripBytes = 500, .dripPause = 1}},
    {.name = "no end, quick", .wind = QByteArray(NetInet::largestBody, 'A')},
    {.name = "a line of 5 MB", .wind = QByteArray(5'000'000, 'A'), .shown = QString(5'000'000, u'A')},
    {.name = "invalid UTF-8", .wind = "\xC0\xAF\xE7\xBE", .shown = u"\u00C0\u00AF\u00E7\u00BE"_s},
    {.name = "Shift_JIS", .wind = "\x89\x48", .shown = u"·H"_s},
    {.name = "NUL bytes", .wind = QByteArray("1\0\0T", 4), .shown = u"1··T"_s},
};

class TransportFaultTest : public ::testing::TestWithParam<TransportFault> {
 protected:
  TransportFaultTest() {
    world.prepare([](Tables& tables) { tables.settings().store(key::シーケンス表示, false); });
    world.report(u"RJTT"_s, u"05:00"_s, u"240500Z 36010KT"_s, u"240500Z 36010KT"_s);
    mend();
  }
  void mend() {
    if (GetParam().stopped) {
      EXPECT_TRUE(world.server.start());
    }
    run.program.services.endpoints = world.endpoints;
    for (const QString& path : {observation, forecast})
      spoil(path, {.name = "none"});
  }
  void spoil(const QString& path, const TransportFault& fault) {
    const QByteArray word = path == forecast ? "TAF RJAA" : "RJAA";
    const QByteArray file = "2026/11/24 05:00\n" + word + " 240500Z " + fault.wind + '\n';
    world.server.setAnswer(path, {.body = fault.body.value_or(file), .status = fault.status});
    world.server.setDelivery(path, fault.delivery);
    if (fault.stopped)
      world.server.stop();
    if (fault.nameless)
      run.program.services.endpoints.metar = run.program.services.endpoints.taf =
          u"http://no-such-host.invalid/"_s;
  }
  /// What the screen shows of RJAA behind a typed line, which ends in bounded time.
  QString blockBehind(const QString& line) {
    const Delivery& delivery = GetParam().delivery;
    run.inet.setRequestTimeout(delivery.delay > 0 || delivery.dripBytes > 0 ? 1 : 5);
    QElapsedTimer time;
    time.start();
    run.type(line);
    EXPECT_LT(time.elapsed(), 20'000);
    return run.screen().mid(run.screen().indexOf(u"\r\nRJAA"));
  }

  const QString observation = stationsPath + u"RJAA.TXT";
  const QString forecast = forecastsPath + u"RJAA.TXT";
  World world;
  ProgramRun run{world};
};

const QString wind = u"18005KT"_s;
const QString refused = u"\r\nRJAA  NOT FOUND\r\n"_s + ready;

/// A block of RJAA with these words in the place of its winds; nothing stands for a TAF that was refused.
QString blockOf(const QString& metar, const std::optional<QString>& taf) {
  const QString head = u"\r\nRJAA  METAR 1400I\r\n      240500Z "_s + metar + u"\n\r\nRJAA  TAF   ";
  return head + (taf ? u"1400I\r\n      240500Z "_s + *taf + u'\n' : u"\r\n      NO FORECAST"_s) + crlf +
         ready;
}

} // namespace

TEST_P(TransportFaultTest, IsToldUnderItsStationAndEndsInTime) {
  const TransportFault& fault = GetParam();
  // Megabytes are not for printing.
  const auto expectBlock = [this](const QString& line, const QString& wanted) {
    const QString block = blockBehind(line);
    EXPECT_TRUE(block == wanted) << block.left(200).toStdString() << "\nwanted "
                                 << wanted.left(200).toStdString();
  };
  ASSERT_TRUE(run.begin());
  expectBlock(u"RJTT RJAA"_s, blockOf(wind, wind));

  spoil(observation, fault);
  expectBlock(u"RJAA"_s, fault.shown ? blockOf(*fault.shown, wind) : refused);
  const QString translated = blockBehind(u"JP RJAA"_s);
  EXPECT_EQ(translated == refused, !fault.shown);
  EXPECT_FALSE(translated.contains(wind) || translated.contains(u"RJTT"));
  mend();
  expectBlock(u"RJAA"_s, blockOf(wind, wind));

  if (fault.stopped || fault.nameless)
    return;
  spoil(forecast, fault);
  expectBlock(u"RJTT RJAA"_s, blockOf(wind, fault.shown));
  mend();
  expectBlock(u"RJAA"_s, blockOf(wind, wind));
}

INSTANTIATE_TEST_SUITE_P(Transport, TransportFaultTest, testing::ValuesIn(faults), [](const auto& fault) {
  std::string name = fault.param.name;
  std::erase_if(name, [](char c) { return !std::isalnum(static_cast<unsigned char>(c)); });
  return name;
});
