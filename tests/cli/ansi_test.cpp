// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/ansi.h"

#include "cli/screen_printer.h"
#include "cli/terminal_desk.h"
#include "support/printing.h"

#include <QStringList>
#include <gtest/gtest.h>

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

constexpr TerminalStyle plain = {ColourDepth::None, false};
constexpr TerminalStyle monochrome = {ColourDepth::None, true};
constexpr TerminalStyle sixteen = {ColourDepth::Sixteen, true};
constexpr TerminalStyle indexed = {ColourDepth::Indexed, true};
constexpr TerminalStyle trueColour = {ColourDepth::True, true};

} // namespace

TEST(Ansi, StyleFollowsTheEnvironment) {
  struct Case {
    const char* term;
    const char* colorTerm;
    const char* noColor;
    TerminalStyle style;
  };
  const Case cases[] = {
      {"xterm-256color", "truecolor", "", trueColour},
      {"xterm", "24bit", "", trueColour},
      {"xterm-256color", "", "", indexed},
      {"screen.xterm-256color", "yes", "", indexed},
      {"xterm", "", "", sixteen},
      {"linux", "", "", sixteen},
      {"xterm-256color", "truecolor", "1", monochrome},
      {"vt220", "", "", monochrome},
      {"dumb", "truecolor", "", plain},
      {"", "", "", plain},
  };
  for (const Case& c : cases)
    EXPECT_EQ(terminalStyle(c.term, c.colorTerm, c.noColor), c.style) << c.term << ' ' << c.colorTerm;
}

TEST(Ansi, ColoursAtEachDepth) {
  struct Case {
    Colour colour;
    bool bold;
    TerminalStyle style;
    const char* code;
  };
  const Case cases[] = {
      // Red is the low byte.
      {red, false, trueColour, "\x1B[38;2;255;0;0m"},
      {Colour{0x8000FF}, false, trueColour, "\x1B[38;2;255;0;128m"},
      {red, true, trueColour, "\x1B[1;38;2;255;0;0m"},
      {red, false, indexed, "\x1B[38;5;196m"},
      {yellow, false, indexed, "\x1B[38;5;226m"},
      {grey, false, indexed, "\x1B[38;5;244m"},
      {colourOf(8, 8, 8), false, indexed, "\x1B[38;5;232m"},
      {colourOf(238, 238, 238), false, indexed, "\x1B[38;5;255m"},
      {colourOf(95, 135, 215), false, indexed, "\x1B[38;5;68m"},
      {red, false, sixteen, "\x1B[91m"},
      {yellow, true, sixteen, "\x1B[1;93m"},
      {colourOf(0, 190, 10), false, sixteen, "\x1B[32m"},
      {red, true, monochrome, "\x1B[1m"},
      {red, true, plain, ""},
      // The base colour is the terminal's own at every depth.
      {white, false, trueColour, ""},
      {white, true, trueColour, "\x1B[1m"},
      {white, false, sixteen, ""},
  };
  for (const Case& c : cases)
    EXPECT_EQ(attributeCode(c.colour, c.bold, white, c.style).toStdString(), c.code);
}

TEST(Ansi, NothingButTextReachesTheTerminal) {
  struct Case {
    QString text;
    QString shown;
  };
  const Case cases[] = {
      {u"RJTT 気温 ⊿H ±0"_s, u"RJTT 気温 ⊿H ±0"_s}, {u"a\tb"_s, u"a b"_s},
      {u"\x1B[2J\x1B]0;x\a"_s, u"·[2J·]0;x·"_s},    {u"\b\f\v\x7F"_s + QChar(0), u"·····"_s},
      {u"\u0085\u009B31m"_s, u"··31m"_s},           {u"\u202Eabc\u2066\u200F\u061C"_s, u"·abc···"_s},
      {u"\u200B\uFEFF\u2028\u2029"_s, u"····"_s},   {QString(QChar(0xD83D)) + u'x' + QChar(0xDE00), u"·x·"_s},
      {u"\U0001F600"_s, u"\U0001F600"_s},           {u"\uE000\uFFFE"_s, u"··"_s},
  };
  for (const Case& c : cases)
    EXPECT_EQ(printable(c.text), c.shown);
}

TEST(Ansi, RunsBecomeLinesWithoutLeftOverAttributes) {
  const QString text = u"A\r\nTS\nC\r\r\nD\tE\x1B"_s;
  const std::vector<AttributeRun> runs = {
      {0, 2, white, false}, {2, 6, red, false}, {8, text.size() - 8, white, true}};
  EXPECT_EQ(ansiText(text, 0, runs, white, trueColour).toStdString(),
            "A\n\x1B[38;2;255;0;0mTS\x1B[0m\n\x1B[38;2;255;0;0mC\x1B[0m\n\n\x1B[1mD E\xC2\xB7\x1B[0m");
  EXPECT_EQ(ansiText(text, 4, runs, white, plain).toStdString(), "S\nC\n\nD E\xC2\xB7");
}

class ScreenPrinting : public ::testing::Test {
 protected:
  ScreenPrinting() {
    screen_.setBase(white, false);
    QObject::connect(&screen_, &Screen::replaced, &screen_, [this] { printer_.noteReplaced(); });
  }
  std::string news() { return printer_.takeNews(20).toStdString(); }

  Screen screen_;
  ScreenPrinter printer_{screen_, monochrome};
};

TEST_F(ScreenPrinting, AnAppendIsPrintedOnce) {
  screen_.setText(u"SYSTEM"_s);
  screen_.append(u"\r\nREADY"_s);
  EXPECT_EQ(news(), "SYSTEM\nREADY\n");
  EXPECT_FALSE(printer_.hasNews());
  // The line end of the prompt stands on the terminal already.
  screen_.append(u"\r\nSYNTAX ERROR\r\n"_s);
  EXPECT_EQ(news(), "SYNTAX ERROR\n");
  screen_.append(u"\r\nREADY"_s);
  EXPECT_EQ(news(), "\nREADY\n");
}

TEST_F(ScreenPrinting, AGrowingLineGrowsInItsPlace) {
  screen_.append(u"\r\nLOADING"_s);
  EXPECT_EQ(news(), "\nLOADING\n");
  screen_.append(u" RJTT"_s);
  EXPECT_EQ(news(), "\x1B[A\x1B[8G RJTT\n");
  // Where the line fills its row, the cursor stands behind it already.
  screen_.append(u" RJAA RJ"_s);
  EXPECT_EQ(news(), "\x1B[A\x1B[13G RJAA RJ\n");
  screen_.append(u"BB"_s);
  EXPECT_EQ(news(), "BB\n");
  // Behind another line it cannot.
  printer_.noteForeignLine();
  screen_.append(u" RJOO"_s);
  EXPECT_EQ(news(), " RJOO\n");
}

TEST(SoftWrapping, TearsNoWord) {
  const struct {
    QString text;
    int columns;
    std::string printed;
  } cases[] = {
      {u"RJTT  METAR\r\n      240500Z 33010KT 9999 FEW030 12/02 Q1018"_s, 30,
       "RJTT  METAR\n      240500Z 33010KT 9999\n      FEW030 12/02 Q1018"},
      {u"      BECMG   2812/2815 04006KT"_s, 31, "      BECMG   2812/2815 04006KT"},
      {u"      BECMG   2812/2815 04006KT"_s, 30, "      BECMG   2812/2815\n      04006KT"},
      // The indentation takes a third of a narrow terminal at most.
      {u"      BECMG   2812/2815 04006KT"_s, 14, "      BECMG\n    2812/2815\n    04006KT"},
      // What has no blank, or no room anywhere, is left to the terminal.
      {u"ABCDEFGHIJKLMNOPQRSTUVWXYZ 12"_s, 20, "ABCDEFGHIJKLMNOPQRSTUVWXYZ 12"},
      {u"AB ABCDEFGHIJKLMNOPQRSTUVWXYZ"_s, 20, "AB ABCDEFGHIJKLMNOPQRSTUVWXYZ"},
      {u"視程　 ： 8000 メートル (NDV) 9999"_s, 27, "視程　 ： 8000 メートル\n         (NDV) 9999"},
      {u"風向 風速 視程"_s, 10, "風向 風速\n視程"},
      {u"ABC  \r\nD"_s, 4, "ABC  \nD"},
  };
  for (const auto& c : cases) {
    const std::vector<SoftBreak> breaks = softWrapped(c.text, 0, c.columns, 0).breaks;
    EXPECT_EQ(ansiText(c.text, 0, {{0, c.text.size(), white, false}}, white, plain, breaks).toStdString(),
              c.printed);
  }
}

TEST_F(ScreenPrinting, AWrappedLineGrowsInItsLastRow) {
  screen_.append(u"  RJTT 240500Z 33010KT"_s);
  EXPECT_EQ(news(), "  RJTT 240500Z\n  33010KT\n");
  screen_.append(u" 9999 FEW030"_s);
  EXPECT_EQ(news(), "\x1B[A\x1B[10G 9999\n  FEW030\n");
  screen_.append(u"\r\nREADY"_s);
  EXPECT_EQ(news(), "READY\n");
}

TEST_F(ScreenPrinting, AReplacedTextStandsBehindARule) {
  const std::string rule = "\x1B[2m-------------------\x1B[0m\n";
  screen_.setText(u"ONE\r\n"_s);
  screen_.append(u"READY"_s);
  news();
  screen_.setText(u"TWO\r\n"_s);
  EXPECT_EQ(news(), rule + "TWO\n");
  // What is only added to the text of the last run is not printed over again.
  screen_.append(u"\r\nREADY"_s);
  news();
  screen_.setText(u"TWO\r\n\r\n\r\nTHREE\r\n"_s);
  EXPECT_EQ(news(), rule + "THREE\n");
  screen_.setText(u"TWO\r\n"_s);
  EXPECT_EQ(news(), rule + "TWO\n");
}

TEST_F(ScreenPrinting, AClearedScreenClearsTheTerminal) {
  screen_.setText(u"ONE\r\n"_s);
  news();
  screen_.setText(u" "_s);
  screen_.append(u"\r\nREADY"_s);
  EXPECT_EQ(news(), "\x1B[H\x1B[2JREADY\n");
}

TEST(TerminalDesk, APrinterIsNamedByNumberNameOrNothing) {
  const QStringList printers = {u"OFFICE"_s, u"TOWER"_s};
  EXPECT_EQ(printerOf(u" 2 "_s, printers, u"OFFICE"_s), u"TOWER"_s);
  EXPECT_EQ(printerOf(u"OFFICE"_s, printers, u"TOWER"_s), u"OFFICE"_s);
  EXPECT_EQ(printerOf(QString(), printers, u"TOWER"_s), u"TOWER"_s);
  EXPECT_EQ(printerOf(QString(), printers, u"GONE"_s), std::nullopt);
  for (const QString& bad : {u"0"_s, u"3"_s, u"-1"_s, u"office"_s})
    EXPECT_EQ(printerOf(bad, printers, u"TOWER"_s), std::nullopt);
}
