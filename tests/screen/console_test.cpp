// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "screen/console.h"

#include "base/text.h"
#include "store/tables.h"
#include "support/printing.h"

#include <gtest/gtest.h>

using namespace soran;
using namespace Qt::StringLiterals;

namespace {

class ConsoleTest : public ::testing::Test {
 protected:
  SetClock clock{QDateTime::fromString(u"2026-11-24T14:20:00+09:00"_s, Qt::ISODate)};
  Tables tables; // closed: the settings of a program that has just begun
  Console console{clock, tables.settings()};
};

} // namespace

TEST_F(ConsoleTest, APromptEndsWhatIsUnderWay) {
  const QString prompt = u"\r\nREADY / PRESS ESC TO EXIT"_s;
  console.setBusy(true);
  console.setPromptGap(true);
  console.showReady();
  EXPECT_EQ(console.screen().text(), prompt + crlf);
  EXPECT_EQ(console.screen().caret(), console.screen().text().size());
  EXPECT_FALSE(console.busy());
  console.showReady(); // the gap was for one prompt
  EXPECT_EQ(console.screen().text(), prompt + crlf + prompt);
}

TEST_F(ConsoleTest, PanelTwoComesBackBehindASequenceThatIsWhole) {
  console.setPanel(2, u"before"_s);
  console.status().savePanel2();
  const struct {
    bool pending;
    const char* screen;
    QString panel;
  } cases[] = {
      {false, "RJTT", u"during"_s}, {true, "LOADING RJTT", u"during"_s}, {true, "RJTT", u"before"_s}};
  for (const auto& c : cases) {
    console.setPanel(2, u"during"_s);
    console.setSequencePending(c.pending);
    console.screen().setText(QString::fromLatin1(c.screen));
    console.showReady();
    EXPECT_EQ(console.status().panel2(), c.panel) << c.screen;
  }
  // The browser pane has the panel for itself; what comes meanwhile is kept.
  console.status().setPaneVisible(true);
  console.status().setPaneText(u"page"_s);
  console.setPanel(2, u"meanwhile"_s);
  EXPECT_EQ(console.status().panel2(), u"page");
  EXPECT_EQ(console.status().statusText(), u"meanwhile");
  EXPECT_EQ(console.status().panel1(), QString());
}

TEST_F(ConsoleTest, PaintingEmptiesTheTypedLine) {
  console.setInput(u"RJTT"_s);
  console.setPad(u"RJTT(SPECI) "_s);
  EXPECT_EQ(console.inputlbl(), u"RJTT");
  EXPECT_EQ(console.padlbl(), u"RJTT(SPECI) ");
  console.screen().setText(u"RJTT"_s);
  console.repaint();
  EXPECT_EQ(console.inputlbl() + console.padlbl(), u"RJTTRJTT(SPECI) ");
  EXPECT_EQ(console.screen().caret(), 0);
  console.colourScreenText();
  EXPECT_EQ(console.inputlbl() + console.padlbl(), QString());
  EXPECT_EQ(console.screen().caret(), 4);
}

TEST_F(ConsoleTest, LogKeepsItsThousandNewestRows) {
  const auto& rows = console.log().rows();
  console.log().load();
  ASSERT_EQ(rows.size(), 3U);
  EXPECT_EQ(rows[0].message, u"SYSTEM  CONNECTED  KSD  DATABASE");
  EXPECT_EQ(rows[2].message, u"SYSTEM  LOAD");
  for (int i = 0; i < 998; ++i)
    console.addLogEntry(QString::number(i));
  EXPECT_EQ(rows.size(), 1000U);
  EXPECT_EQ(rows.front().message, u"997");
  EXPECT_EQ(rows.front().date + u' ' + rows.front().time, u"2026/11/24 14:20:00");
  EXPECT_EQ(rows.back().message, u"SYSTEM  LOGIN");
  const struct {
    QString message;
    Colour colour;
  } colours[] = {{u"MANUAL DECODE"_s, grey},
                 {u"RJTT METAR RECEIVED"_s, black},
                 {u"METAR HOMEPAGE"_s, grey},
                 {u"SPECI METAR"_s, Colour{5}},
                 {u"RJTT TAF(COR) RECEIVED"_s, Colour{5}},
                 {u"SPECI HOMEPAGE"_s, Colour{5}}};
  for (const auto& c : colours)
    EXPECT_EQ(RunningLog::colourOf({{}, {}, c.message}, Colour{5}), c.colour) << c.message.toStdString();
}
